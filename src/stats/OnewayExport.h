// The one-way analysis of variance's results for scripts: "groups", "anova"
// (the test's figures Welch's under unequal variances, which adds "welch") and
// "comparisons", one per method and pair. The CSV table is the comparisons.
#pragma once

#include "report/ResultValue.h"

class COnewyDoc;

ResultRecord st_OnewayRecord(const COnewyDoc& doc);
