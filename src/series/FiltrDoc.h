// Batch/Truncate: drops a warm-up stretch of one data file, cuts the rest into
// batches by time span or by count, replaces each batch by its mean (written to
// a .flt data file when one is named), and estimates the lag-1 correlation of
// successive batch means with a test against zero.
#pragma once

#include <cstdio>
#include <string>

#include "datafile/SingleDoc.h"

class CFiltrDlg;

class CFiltrDoc : public CSingleDoc {
public:
    // Parameters (units: 0 time, 1 observations, -1 not given / no batching).
    int truncUnit = -1;
    double truncAmount = 0.0;
    int batchUnit = -1;
    double batchSize = -1.0;  // -1.0: not given, ten batches are formed
    std::string title;
    std::string batchFileName;  // empty: no output file

    // Results; each keeps its initial value when a run stores nothing.
    double truncUsed = -1.0;
    double batchUsed = -1.0;
    int numBatches = -1;
    int trailingObs = -1;
    double trailingTime = -1.0;
    double covEstimate = -1.0;
    int rejectPositive = 0;
    int rejectNonZero = 0;

    // Takes the dialog's fields, opens the data file and computes. 0, a message
    // id for the caller to show, or -1 when opening failed and has already
    // shown its message.
    int InitFromDialog(CDialog& dlg) override;
    CSingleDoc* CreateSibling() override;

    // Runs every pass of the replication treatment over the open file and
    // writes the output file. 0 or a message id; on a message no output file
    // is left under batchFileName.
    int Compute();

private:
    int PassCount() const;
};
