// The bar chart's graph (kind 0): bars filled in the plot's first blue, from
// the baseline (0, or the edge of the value range nearer to it) to each bar's
// height; replications carry their numbers and a line at the mean of the bars.
// Bars that fall into one pixel column are drawn as one, from the lowest to
// the highest of them, so that a dense chart costs a bar per column.
#pragma once

#include "graph/BaseView.h"

class CBarchartView : public CBaseView {
public:
    bool CanGraph() override;
    int DrawGraph(CDC& dc) override;
};
