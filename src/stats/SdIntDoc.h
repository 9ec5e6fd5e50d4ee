// Confidence intervals on the standard deviation: for each data file of a
// list, the sample standard deviation with chi-square limits, the range and
// the number of observations. Rows and treatments as in CIntrvlDoc.
//
// Graph records overlap: row i's five doubles start at 3i + 2, so each row
// overwrites the minimum and maximum of the row before and only the last row
// keeps them. The chart reads the first three of each record.
#pragma once

#include "stats/IntrvlDoc.h"

class CSdIntDoc : public CIntrvlDoc {
public:
    CSdIntDoc() = default;

    int GraphRecordOffset(int row) const override { return 3 * row + 2; }
    // "Standard Deviation Intervals"
    int GraphTitleId() const override { return 15951; }

protected:
    int ComputeRow(CRecordReader& in, CMultiFileItem& row, double alpha) override;
    int WriteGraphRecord(int row, const CMultiFileItem& item) override;
    bool StopOnEmptyRow() const override { return true; }
};
