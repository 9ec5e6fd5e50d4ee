// The interval charts: the classical, standard deviation and standardized
// time series intervals, one family titled by analysis.
#pragma once

#include <string>
#include <vector>

#include "graph/BaseView.h"
#include "graph/IntervalChart.h"

class CIntrvlView : public CBaseScrollView {
public:
    CIntrvlView() : CIntrvlView(15952) {}

    int DrawGraph(CDC& dc) override;
    // Takes the computed rows' graph records, range, level and scale flag of
    // its CIntrvlDoc (or of a document derived from it).
    void OnInitialUpdate() override;

    // The rows' graph records as the interval documents leave them in the
    // work table (row i's record at offsets[i]), with the document's range,
    // level and scale flag.
    void SetRecords(const std::vector<std::string>& names, const std::vector<int>& offsets, double low, double high,
                    double alpha, bool scale);

    IntervalChart m_chart;

protected:
    explicit CIntrvlView(int titleId);
    // Whether the records carry a minimum and maximum worth showing.
    virtual bool ShowsExtremes() const { return true; }

    int m_nTitleId;  // one of 15951 to 15953
};

// Standard deviation intervals: the records overlap, so only the estimate and
// limits of each are drawn.
class CSdIntView : public CIntrvlView {
public:
    CSdIntView() : CIntrvlView(15951) {}

protected:
    bool ShowsExtremes() const override { return false; }
};
