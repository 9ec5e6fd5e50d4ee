// Classical confidence intervals on the mean: for each data file of a list,
// under its own replication treatment, the average, standard deviation,
// Student t half-width, minimum, maximum and number of observations.
//
// The rows of the result are the dialog's entries, except that an entry under
// the "all" treatment becomes one row per replication, identified PATH@N.
#pragma once

#include <string>
#include <vector>

#include "datafile/SingleDoc.h"
#include "dialog/FileDialogs.h"
#include "stats/IntervalResults.h"

class CObsStream;

class CIntrvlDoc : public CBaseFileDoc {
public:
    CIntrvlDoc() = default;

    // Takes the entries, title, level and scale flag of a CIntrvlDlg (or a
    // dialog derived from it) and computes. 0 or the message id to show.
    int InitFromDialog(CDialog& dlg) override;

    // Computes every row at the error probability alpha. 0 or a message id.
    virtual int Compute(double alpha);

    // Where row i's graph record (five doubles: the estimate, lower limit,
    // upper limit, minimum, maximum) would start in the charts' table of
    // MAX_POINTS doubles; a row whose record would not fit fails with 15934.
    virtual int GraphRecordOffset(int row) const { return 5 * row; }
    // The chart's title, "Observation Intervals".
    virtual int GraphTitleId() const { return 15952; }
    // The chart's legend level in whole percent, e.g. 95.
    long LegendPercent() const;

    double m_dAlpha = 0.05;
    std::string m_strTitle;
    bool m_bScale = false;
    std::vector<CMultiFileItem> m_items;  // the entries of the list

    const IntervalResults& Results() const { return m_results; }

protected:
    // Computes one row from the stream's current row; 0, 15901 (no
    // observations, the row keeps no results) or another message id.
    virtual int ComputeRow(CObsStream& in, IntervalRow& row, double alpha);
    // The rows of entry, computed, appended to the results. Stops at the first
    // id other than 15901; 15901 is kept in *noObs and the rows go on.
    int ComputeEntry(const CMultiFileItem& entry, double alpha, int* noObs);
    // 15934 when row i's graph record would not fit the charts' table.
    int CheckGraphRoom(int row) const;
    void WidenGraphRange(double low, double high);
    // Whether a row without observations stops the computation.
    virtual bool StopOnEmptyRow() const { return false; }

private:
    IntervalResults m_results;
};
