// The correlogram: autocovariances and autocorrelations of one data file's
// observations for lags 1 to L, the sample mean, variance and size, and the
// weighted sum of the covariances; optionally the correlations saved as a data
// file (.cor).
#pragma once

#include <optional>
#include <string>

#include "datafile/SingleDoc.h"
#include "series/LagProducts.h"

class COutputDataFile;

// One lag of the correlogram.
class CCovarData : public CObject {
public:
    CCovarData(int lag, double covariance, double correlation)
        : m_nLag(lag), m_dCovariance(covariance), m_dCorrelation(correlation) {}

    int m_nLag;
    double m_dCovariance;
    double m_dCorrelation;
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
    // Computes for the document's treatment. "All" makes one pass per
    // replication: the list then holds L records per replication, while the
    // four summary values are those of the last pass. 0 or a message id; on
    // failure no output file is left under the target name.
    int Compute();

    // Parameters.
    int m_nMaxLags = 1;
    std::string m_strCorrTitle;  // the user's title (m_strTitle is the file's)
    std::string m_strOutFile;    // empty: nothing saved
    // Forces a summation method (tests, benchmarks); otherwise the faster one.
    std::optional<CLagProducts::Method> m_forceMethod;

    // Results of the last pass.
    double m_dMean = 0.0;
    double m_dVariance = 0.0;
    int m_nSize = 0;
    double m_dWeightedSum = 0.0;

    // The lag records, in order (held in the document's object list). The
    // report and the chart show the first m_nMaxLags of them: bars of height
    // m_dCorrelation from lag - 1 to lag, on a y axis from -1.0001 to 1.0001.
    int CovarCount() const { return static_cast<int>(m_objList.size()); }
    const CCovarData& Covar(int i) const { return static_cast<const CCovarData&>(*m_objList[static_cast<std::size_t>(i)]); }

private:
    int Position(int rep);
    int Pass(int rep, bool copyEndMarker, COutputDataFile& out);
};
