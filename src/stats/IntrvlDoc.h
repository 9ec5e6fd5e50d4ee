// Classical confidence intervals on the mean: for each data file of a list,
// under its own replication treatment, the average, standard deviation,
// Student t half-width, minimum, maximum and number of observations.
//
// The rows of the result are the dialog's entries, except that an entry under
// the "all" treatment becomes one row per replication, identified PATH@N.
// Each row's graph record goes to the module-wide work table; the overall
// graph range stays in the document for the chart.
#pragma once

#include <string>
#include <vector>

#include "datafile/SingleDoc.h"
#include "dialog/FileDialogs.h"

class CObsStream;

class CIntrvlDoc : public CBaseFileDoc {
public:
    CIntrvlDoc() = default;

    // Takes the entries, title, level and scale flag of a CIntrvlDlg (or a
    // dialog derived from it) and computes. 0 or the message id to show.
    int InitFromDialog(CDialog& dlg) override;

    // Computes every row at the error probability alpha. 0 or a message id.
    virtual int Compute(double alpha);

    // Where row i's graph record starts in g_WorkTable (five doubles: the
    // estimate, lower limit, upper limit, minimum, maximum).
    virtual int GraphRecordOffset(int row) const { return 5 * row; }
    // The chart's title, "Observation Intervals".
    virtual int GraphTitleId() const { return 15952; }
    // The chart's legend level in whole percent, e.g. 95.
    long LegendPercent() const;

    double m_dAlpha = 0.05;
    std::string m_strTitle;
    bool m_bScale = false;
    std::vector<CMultiFileItem> m_items;  // the result rows once computed
    double m_dGraphLow = 1e20;
    double m_dGraphHigh = -1e20;

protected:
    // Computes one row from the stream's current row; 0, 15901 (no
    // observations, the row keeps no results) or another message id.
    virtual int ComputeRow(CObsStream& in, CMultiFileItem& row, double alpha);
    // The rows of entry, computed, appended to rows. Stops at the first id
    // other than 15901; 15901 is kept in *noObs and the rows go on.
    int ComputeEntry(const CMultiFileItem& entry, std::vector<CMultiFileItem>& rows, double alpha, int* noObs);
    // Writes row i's record into the work table; 15934 when it does not fit.
    virtual int WriteGraphRecord(int row, const CMultiFileItem& item);
    void WidenGraphRange(double low, double high);
    // Whether a row without observations stops the computation.
    virtual bool StopOnEmptyRow() const { return false; }
};
