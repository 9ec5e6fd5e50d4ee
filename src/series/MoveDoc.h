// The moving average document: one data file's series (Welch's series under
// "All"), smoothed by a centred or a trailing moving average, the one-step
// forecast errors of the trailing one, and the MSER-5 warm-up suggestion;
// optionally the smoothed series saved as a data file.
#pragma once

#include <string>
#include <vector>

#include "datafile/SingleDoc.h"
#include "series/MovingAverage.h"
#include "series/Mser.h"

// The result record: what the report, the graph and the results for scripts read.
struct MoveResults {
    long n = 0;        // observations in the series
    int reps = 1;      // replications averaged (Welch's series under "All")
    int window = 1;
    MoveMethod method = MOVE_CENTRED;
    std::vector<double> smoothed;  // from observation number move_FirstSmoothed
    long firstSmoothed = 1;
    bool warmupRun = false;
    MserResult mser;  // when warmupRun
    // Trailing only: the forecast of the next observation and the errors.
    double forecast = 0.0;
    ForecastErrors errors;
    // The graph's points, reduced to what a plot area shows.
    std::vector<double> rawX, rawY, smoothX, smoothY;
    double low = 0.0, high = 0.0;  // of the series
};

class CMoveDoc : public CSingleDoc {
public:
    static constexpr int kOpenFailed = -1;
    // Runs of the series drawn per graph point pair; more than any plot area's columns.
    static constexpr std::size_t kGraphBuckets = 8192;

    CSingleDoc* CreateSibling() override { return new CMoveDoc; }
    // Takes a validated CMoveDlg's fields, opens the file and computes.
    int InitFromDialog(CDialog& dlg) override;
    // 0 or a message id; on failure no output file is left under its name.
    int Compute();

    // Parameters.
    int m_nWindow = 1;
    MoveMethod m_nMethod = MOVE_CENTRED;
    bool m_bWarmup = true;
    std::string m_strMoveTitle;  // the user's title (m_strTitle is the file's)
    std::string m_strFile;       // as entered
    std::string m_strReps;       // the treatment text as entered
    std::string m_strOutFile;    // empty: nothing saved

    const MoveResults& Results() const { return m_results; }

protected:
    MoveResults m_results;
};
