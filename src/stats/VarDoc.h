// Comparison of variances: for each pair of data files (A, B), an F interval
// on var(A) / var(B) and the test that the variances are equal.
#pragma once

#include <string>
#include <vector>

#include "datafile/SingleDoc.h"
#include "dialog/FileDialogs.h"
#include "stats/PairResults.h"

class CVarDoc : public CBaseFileDoc {
public:
    // Takes the parameters of a validated CVarDlg and computes every pair.
    // 0 or the message id of the first failure (then there is no report).
    int InitFromDialog(CDialog& dlg) override;
    int Compute();

    double m_dAlpha = 0.05;
    std::string m_strTitle;
    bool m_bScale = false;
    // The pairs as the dialog gave them, and as computed ("All" pairs expanded).
    std::vector<CFilePairItem> m_givenPairs;
    std::vector<CFilePairItem> m_pairs;

    // One row per pair: the estimate is the variance ratio, with its limits.
    const PairResults& Results() const { return m_results; }

protected:
    PairResults m_results;

private:
    int ComputePair(const CFilePairItem& pair, PairRow& row);
};
