// The correlogram: autocovariances and autocorrelations of one data file's
// observations for lags 1 to L, the sample mean, variance and size, and the
// weighted sum of the covariances; optionally the correlations saved as a data
// file (.cor).
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "datafile/SingleDoc.h"
#include "series/LagProducts.h"

class COutputDataFile;

// One lag of the correlogram.
struct CCovarData {
    int lag = 0;
    double covariance = 0.0;
    double correlation = 0.0;
};

// The result record of the correlogram: what its report, its chart and any
// other writer of results read.
struct CorrResults {
    // Of the last pass (the last replication under "All").
    double mean = 0.0;
    double variance = 0.0;
    int size = 0;
    double weightedSum = 0.0;
    // Lags 1 to L of each pass in turn: under "All" L per replication. The
    // report and the chart show the first L.
    std::vector<CCovarData> lags;
    // Each pass's summary, in the order of lags: what the report cannot show
    // of the replications under "All".
    struct Pass {
        int replication = 0;
        double mean = 0.0;
        double variance = 0.0;
        int size = 0;
        double weightedSum = 0.0;
    };
    std::vector<Pass> passes;
};

class CCorrDoc : public CSingleDoc {
public:
    // InitFromDialog's result when the data file could not be opened; the open
    // has shown its message already.
    static constexpr int kOpenFailed = -1;

    CSingleDoc* CreateSibling() override { return new CCorrDoc; }

    // Takes the parameters of a validated CCorrDlg (after its field exchange),
    // opens the data file and computes. 0, kOpenFailed or a message id.
    int InitFromDialog(CDialog& dlg) override;
    // Computes for the document's treatment: one pass, or under "All" one per
    // replication. 0 or a message id; on failure no output file is left under
    // the target name.
    int Compute();

    // Parameters.
    int m_nMaxLags = 1;
    std::string m_strCorrTitle;  // the user's title (m_strTitle is the file's)
    std::string m_strOutFile;    // empty: nothing saved
    // Forces a summation method (tests, benchmarks); otherwise the faster one.
    std::optional<CLagProducts::Method> m_forceMethod;

    const CorrResults& Results() const { return m_results; }

protected:
    CorrResults m_results;

private:
    int Position(int rep);
    int Pass(int rep, bool copyEndMarker, COutputDataFile& out);
};
