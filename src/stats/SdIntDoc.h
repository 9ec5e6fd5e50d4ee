// Confidence intervals on the standard deviation: for each data file of a
// list, the sample standard deviation with chi-square limits, the range and
// the number of observations. Rows and treatments as in CIntrvlDoc.
//
// The chart's table holds row i's record at 3i + 2, records overlapping: the
// rows that fit are fewer than the classical intervals'.
#pragma once

#include "stats/IntrvlDoc.h"

class CSdIntDoc : public CIntrvlDoc {
public:
    CSdIntDoc() = default;

    int GraphRecordOffset(int row) const override { return 3 * row + 2; }
    // "Standard Deviation Intervals"
    int GraphTitleId() const override { return 15951; }

protected:
    int ComputeRow(CObsStream& in, IntervalRow& row, double alpha) override;
    bool StopOnEmptyRow() const override { return true; }
};
