// Comparison of means: for each pair of data files (A, B), a confidence
// interval on mean(A) - mean(B) by paired-t or two-sample-t, and the test that
// the means are equal.
#pragma once

#include <string>
#include <vector>

#include "datafile/SingleDoc.h"
#include "dialog/FileDialogs.h"
#include "stats/PairResults.h"

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
    // The pairs as the dialog gave them, and as computed ("All" pairs expanded).
    std::vector<CFilePairItem> m_givenPairs;
    std::vector<CFilePairItem> m_pairs;

    // One row per pair: the estimate is the difference of the means.
    const PairResults& Results() const { return m_results; }

protected:
    PairResults m_results;

private:
    int ComputePaired(const CFilePairItem& pair, PairRow& row);
    int ComputeTwoSample(const CFilePairItem& pair, PairRow& row);
};
