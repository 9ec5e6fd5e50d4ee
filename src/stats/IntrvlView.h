// The interval charts: the classical, standard deviation and standardized
// time series intervals, one family titled by analysis.
#pragma once

#include <string>
#include <vector>

#include "graph/BaseView.h"
#include "graph/IntervalChart.h"
#include "stats/IntervalResults.h"

class CIntrvlView : public CBaseScrollView {
public:
    CIntrvlView() : CIntrvlView(15952) {}

    int DrawGraph(CDC& dc) override;
    // Takes the results, level and scale flag of its CIntrvlDoc (or of a
    // document derived from it).
    void OnInitialUpdate() override;

    // One interval per computed row, over the results' range.
    void SetResults(const IntervalResults& results, double alpha, bool scale);

    IntervalChart m_chart;

protected:
    explicit CIntrvlView(int titleId);
    // Whether the rows' minimum and maximum are shown.
    virtual bool ShowsExtremes() const { return true; }
    // The value marked inside a row's interval.
    virtual double Estimate(const IntervalRow& row) const { return row.average; }

    int m_nTitleId;  // one of 15951 to 15953
};

// Standard deviation intervals: the standard deviation within its limits.
class CSdIntView : public CIntrvlView {
public:
    CSdIntView() : CIntrvlView(15951) {}

protected:
    bool ShowsExtremes() const override { return false; }
    double Estimate(const IntervalRow& row) const override { return row.stdDev; }
};
