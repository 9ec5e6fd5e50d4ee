// The bar chart of one data file under a replication treatment. A bar is a
// replication (its height the replication's mean, time-weighted by the
// Batch/Truncate rules for time-persistent kinds, with the mean of the bars)
// or an observation (a bar at its time; for time-persistent kinds a filled
// step area, each value holding until the next change). More observations
// than kExactBars are kept reduced to kColumns columns of the time window,
// each with its lowest and highest value, so any file fits in little memory.
#pragma once

#include <string>
#include <vector>

#include "graph/GraphDoc.h"

// A bar covers [x0, x1] (x0 = x1 for an observation of a tally) and reaches
// from the baseline to low and to high (equal unless the bar is a column
// reduced from several).
struct BarchBar {
    double x0 = 0.0;
    double x1 = 0.0;
    double low = 0.0;
    double high = 0.0;
    int replication = 0;  // replications: the replication's number
};

struct BarchResults {
    std::string file;
    std::string reps;
    std::string ident;
    std::string fileTitle;
    std::string title;       // the user's
    int kind = 0;
    int bars = 0;            // BARS_REPLICATIONS or BARS_OBSERVATIONS
    bool stepArea = false;   // observations of a time-persistent kind
    bool reduced = false;    // observations reduced to columns
    std::vector<BarchBar> bar;
    double meanOfBars = 0.0; // replications
    long observations = 0;   // observations inside the window
};

class CBarchDoc : public CGraphDoc {
public:
    static constexpr long kExactBars = 1L << 16;
    static constexpr int kColumns = 4096;

    // Takes the file, treatment, bars and window of a CBarchDlg, reads the file
    // and forms the bars; 0 or a message id.
    int InitFromDialog(CDialog& dlg) override;

    const BarchResults& Results() const { return m_results; }

private:
    int LoadReplications(double from, double to);
    int LoadObservations(double from, double to);

    BarchResults m_results;
};

// The mean of one replication's records by the Batch/Truncate rules: the
// time-weighted mean over the replication's time span for time-persistent
// kinds (the last value for a span of zero), else the plain mean. Records
// arrive through Add; Mean is NaN for none.
class CRepBarMean {
public:
    explicit CRepBarMean(int kind);
    void Add(double t, double v);
    double Mean() const;
    long Count() const { return m_n; }

private:
    int m_kind;
    bool m_persistent;
    long m_n = 0;
    double m_sum = 0.0;
    double m_first = 0.0;
    double m_prevT = 0.0;
    double m_prevV = 0.0;
};
