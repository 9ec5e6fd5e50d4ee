// The chart of a one-way analysis of variance: each group's mean with its
// confidence interval side by side, a dashed line at the grand mean, and the
// groups' identifiers as the key in the right inset of the frame.
#pragma once

#include "framework/DC.h"
#include "graph/GraphLayout.h"

struct OnewayResult;

// Draws into the plot area laid out in g_Layout.
void oneway_DrawChart(CDC& dc, const OnewayResult& result, TickBlock* ticks);
