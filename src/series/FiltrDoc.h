// Batch/Truncate: drops a warm-up stretch of one data file, cuts the rest into
// batches by time span or by count, replaces each batch by its mean (written to
// a .flt data file when one is named), and estimates the lag-1 correlation of
// successive batch means with a test against zero.
#pragma once

#include <cstdio>
#include <cmath>
#include <string>
#include <vector>

#include "datafile/SingleDoc.h"

class CFiltrDlg;

// The result record of Batch/Truncate: what its report and any other writer of
// results read. Each value keeps its initial one when no pass stores it.
struct BatchResults {
    double truncUsed = -1.0;      // observations or time truncated
    double batchUsed = -1.0;      // batch size used
    int numBatches = -1;
    int trailingObs = -1;         // left over after the last whole batch
    double trailingTime = -1.0;
    double covEstimate = -1.0;    // lag-1 correlation of the batch means
    int rejectPositive = 0;       // the tests against zero correlation
    int rejectNonZero = 0;
    double z = std::nan("");      // the test statistic; NaN under 8 batches
    // The batch means of the pass the estimate comes from (up to 10^5).
    std::vector<double> batchMeans;
    bool batchMeansOmitted = false;
};

class CFiltrDoc : public CSingleDoc {
public:
    // Parameters (units: 0 time, 1 observations, -1 not given / no batching).
    int truncUnit = -1;
    double truncAmount = 0.0;
    int batchUnit = -1;
    double batchSize = -1.0;  // -1.0: not given, ten batches are formed
    std::string title;
    std::string batchFileName;  // empty: no output file

    const BatchResults& Results() const { return m_results; }

    // Takes the dialog's fields, opens the data file and computes. 0, a message
    // id for the caller to show, or -1 when opening failed and has already
    // shown its message.
    int InitFromDialog(CDialog& dlg) override;
    CSingleDoc* CreateSibling() override;

    // Runs every pass of the replication treatment over the open file and
    // writes the output file. 0 or a message id; on a message no output file
    // is left under batchFileName.
    int Compute();

protected:
    BatchResults m_results;

private:
    int PassCount() const;
};
