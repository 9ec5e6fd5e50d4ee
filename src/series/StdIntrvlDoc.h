// Standardized time series intervals on the mean: the variance of the mean is
// estimated from batches of consecutive observations by the area estimator
// (weighted batch sums) combined with the batch-means estimator, so that
// correlated steady-state output gets an honest interval. Everything else
// (rows, treatments, the chart's room and range) is that of CIntrvlDoc.
#pragma once

#include "stats/IntrvlDoc.h"

class CStdIntrvlDoc : public CIntrvlDoc {
public:
    CStdIntrvlDoc() = default;

    // "Standardized Time Series Intervals"
    int GraphTitleId() const override { return 15953; }

    static constexpr int kBatchSize = 2;
    // MAX_SHORT makes one batch of all observations of a row.
    int m_nBatchSize = kBatchSize;

protected:
    int ComputeRow(CObsStream& in, IntervalRow& row, double alpha) override;
    bool StopOnEmptyRow() const override { return true; }
};
