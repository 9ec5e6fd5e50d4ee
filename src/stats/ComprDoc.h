// Comparison of means: for each pair of data files (A, B), a confidence
// interval on mean(A) - mean(B) by paired-t or two-sample-t, and the test that
// the means are equal.
#pragma once

#include <string>
#include <vector>

#include "datafile/SingleDoc.h"
#include "dialog/FileDialogs.h"

class CComprDoc : public CBaseFileDoc {
public:
    enum { METHOD_PAIRED = 0, METHOD_TWO_SAMPLE = 1 };

    // Takes the parameters of a validated CComprDlg and computes every pair.
    // 0 or the message id of the first failure (then there is no report).
    int InitFromDialog(CDialog& dlg) override;
    int Compute();

    // Parameters.
    int m_nMethod = METHOD_PAIRED;
    double m_dAlpha = 0.05;
    std::string m_strTitle;
    bool m_bScale = false;

    // The computed pairs: entries 2i (A) and 2i + 1 (B), "All" pairs already
    // expanded. Both entries of a pair hold the pair's estimate (m_dAverage),
    // standard deviation (m_dStdDev: of the differences for paired-t, the
    // standard error for two-sample-t), half-width, and the interval
    // m_dLower = estimate - half-width, m_dUpper = estimate + half-width; each
    // holds its own file's m_dMin, m_dMax and m_lNumObs (the number of pairs
    // for paired-t).
    std::vector<CMultiFileItem> m_items;

    // Chart range over all intervals, always holding 0.
    double m_dLow = 1e20;
    double m_dHigh = -1e20;

    int PairCount() const { return static_cast<int>(m_items.size() / 2); }
    const CMultiFileItem& PairA(int i) const { return m_items[2 * static_cast<std::size_t>(i)]; }
    const CMultiFileItem& PairB(int i) const { return m_items[2 * static_cast<std::size_t>(i) + 1]; }
    // The pair's name in the report and on the chart: file A's identifier.
    const std::string& PairIdentifier(int i) const { return PairA(i).Identifier(); }

private:
    int ComputePaired(CMultiFileItem& a, CMultiFileItem& b);
    int ComputeTwoSample(CMultiFileItem& a, CMultiFileItem& b);
};
