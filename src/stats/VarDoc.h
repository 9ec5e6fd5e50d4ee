// Comparison of variances: for each pair of data files (A, B), an F interval
// on var(A) / var(B) and the test that the variances are equal.
#pragma once

#include <string>
#include <vector>

#include "datafile/SingleDoc.h"
#include "dialog/FileDialogs.h"

class CVarDoc : public CBaseFileDoc {
public:
    // Takes the parameters of a validated CVarDlg and computes every pair.
    // 0 or the message id of the first failure (then there is no report).
    int InitFromDialog(CDialog& dlg) override;
    int Compute();

    double m_dAlpha = 0.05;
    std::string m_strTitle;
    bool m_bScale = false;

    // The computed pairs: entries 2i (A) and 2i + 1 (B), "All" pairs already
    // expanded. Both entries hold the variance ratio (m_dAverage) and the
    // interval limits m_dLower and m_dUpper; each holds its own file's
    // m_dMin, m_dMax and m_lNumObs.
    std::vector<CMultiFileItem> m_items;

    // Chart range over all intervals, always holding the ratio 1.
    double m_dLow = 1e20;
    double m_dHigh = -1e20;

    int PairCount() const { return static_cast<int>(m_items.size() / 2); }
    const CMultiFileItem& PairA(int i) const { return m_items[2 * static_cast<std::size_t>(i)]; }
    const CMultiFileItem& PairB(int i) const { return m_items[2 * static_cast<std::size_t>(i) + 1]; }
    const std::string& PairIdentifier(int i) const { return PairA(i).Identifier(); }

private:
    int ComputePair(CMultiFileItem& a, CMultiFileItem& b);
};
