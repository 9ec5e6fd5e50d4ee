// The charts of the pair analyses: one interval per pair, for the difference
// of means (0 always in view) or the ratio of variances (1 always in view).
#pragma once

#include <string>
#include <vector>

#include "graph/BaseView.h"
#include "graph/IntervalChart.h"

class CComprView : public CBaseScrollView {
public:
    int DrawGraph(CDC& dc) override;
    // Takes the pairs, range, level and scale flag of its CComprDoc.
    void OnInitialUpdate() override;
    // paired: the paired-t title, else two-sample-t.
    void SetPairs(const std::vector<IntervalItem>& pairs, bool paired, double low, double high, double alpha, bool scale);

    IntervalChart m_chart;
};

class CVarView : public CBaseScrollView {
public:
    int DrawGraph(CDC& dc) override;
    // Takes the pairs, range, level and scale flag of its CVarDoc.
    void OnInitialUpdate() override;
    void SetPairs(const std::vector<IntervalItem>& pairs, double low, double high, double alpha, bool scale);

    IntervalChart m_chart;
};
