// The chart of the one-way analysis of variance (graph kind 1): each group's
// mean with its confidence interval, the grand mean, the groups as the key.
#pragma once

#include "graph/BaseView.h"

class COnewyView : public CBaseScrollView {
public:
    int DrawGraph(CDC& dc) override;

    TickBlock m_ticks;  // the screen's ticks, reused by a printout
};
