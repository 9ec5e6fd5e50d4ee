#include "stats/VarDoc.h"

#include "framework/Messages.h"
#include "stats/Distributions.h"
#include "stats/IntervalCheck.h"
#include "stats/PairDialogs.h"
#include "stats/PairFiles.h"

int CVarDoc::InitFromDialog(CDialog& dialog) {
    auto& dlg = dynamic_cast<CVarDlg&>(dialog);
    m_dAlpha = pair_AlphaFromLevel(dlg.m_strLevel);
    m_strTitle = dlg.m_strTitle;
    m_bScale = dlg.m_bScale;
    if (int rc = pair_Expand(dlg.m_items, &m_items)) return rc;
    return Compute();
}

int CVarDoc::Compute() {
    m_dLow = 1e20;
    m_dHigh = -1e20;
    for (int i = 0; i < PairCount(); ++i) {
        CMultiFileItem& a = m_items[2 * static_cast<std::size_t>(i)];
        CMultiFileItem& b = m_items[2 * static_cast<std::size_t>(i) + 1];
        if (int rc = ComputePair(a, b)) return rc;
        if (a.m_dLower < m_dLow) m_dLow = a.m_dLower;
        if (a.m_dUpper > m_dHigh) m_dHigh = a.m_dUpper;
    }
    // The ratio 1 is always in view.
    if (1.0 < m_dLow) m_dLow = 1.0;
    if (1.0 > m_dHigh) m_dHigh = 1.0;
    return 0;
}

int CVarDoc::ComputePair(CMultiFileItem& a, CMultiFileItem& b) {
    CFileSample sa;
    if (int rc = pair_ReadSample(a, &sa)) return rc;
    long na = sa.sums.Count();
    if (na <= 0) return IDS_NO_OBSERVATIONS;
    CFileSample sb;
    if (int rc = pair_ReadSample(b, &sb)) return rc;
    long nb = sb.sums.Count();
    if (nb <= 0) return IDS_NO_OBSERVATIONS;

    double va = na >= 2 ? sa.sums.CentredSquares() / static_cast<double>(na - 1) : 0.0;
    double vb = nb >= 2 ? sb.sums.CentredSquares() / static_cast<double>(nb - 1) : 0.0;
    if (vb <= 0.0) vb = 0.0;
    // A constant B makes the ratio infinite (or NaN with a constant A too); it
    // is reported as it is.
    double ratio = va / vb;
    int dfa = static_cast<int>(na - 1);
    int dfb = static_cast<int>(nb - 1);
    double f1 = st_FQuantile(dfa, dfb, m_dAlpha / 2.0);
    double f2 = st_FQuantile(dfb, dfa, m_dAlpha / 2.0);
    double lower = ratio / f1;
    double upper = ratio * f2;
    if (!st_IntervalHolds(ratio, ratio, lower, upper)) return IDS_INTERVAL_ERROR;

    for (CMultiFileItem* item : {&a, &b}) {
        item->m_dAverage = ratio;
        item->m_dLower = lower;
        item->m_dUpper = upper;
        item->m_bComputed = true;
    }
    a.m_dMin = sa.min;
    a.m_dMax = sa.max;
    a.m_lNumObs = na;
    b.m_dMin = sb.min;
    b.m_dMax = sb.max;
    b.m_lNumObs = nb;
    return 0;
}
