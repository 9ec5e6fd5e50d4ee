#include "stats/VarDoc.h"

#include <cmath>

#include "dialog/DataFileCheck.h"
#include "framework/Messages.h"
#include "stats/Distributions.h"
#include "stats/IntervalCheck.h"
#include "stats/PairDialogs.h"
#include "stats/PairFiles.h"

int CVarDoc::InitFromDialog(CDialog& dialog) {
    auto& dlg = dynamic_cast<CVarDlg&>(dialog);
    m_dAlpha = dlg_AlphaFromLevel(dlg.m_strLevel);
    m_strTitle = dlg.m_strTitle;
    m_bScale = dlg.m_bScale;
    m_givenPairs = dlg.m_pairs;
    if (int rc = pair_Expand(dlg.m_pairs, &m_pairs)) return rc;
    return Compute();
}

int CVarDoc::Compute() {
    m_results = PairResults{};
    m_results.rows.resize(m_pairs.size());
    for (std::size_t i = 0; i < m_pairs.size(); ++i) m_results.rows[i].ident = m_pairs[i].a.Identifier();
    double& low = m_results.low;
    double& high = m_results.high;
    for (std::size_t i = 0; i < m_pairs.size(); ++i) {
        PairRow& row = m_results.rows[i];
        if (int rc = ComputePair(m_pairs[i], row)) return rc;
        if (row.lower < low) low = row.lower;
        if (row.upper > high) high = row.upper;
    }
    // The ratio 1 is always in view.
    if (1.0 < low) low = 1.0;
    if (1.0 > high) high = 1.0;
    return 0;
}

int CVarDoc::ComputePair(const CFilePairItem& pair, PairRow& row) {
    const CMultiFileItem& a = pair.a;
    const CMultiFileItem& b = pair.b;
    CMoments sa;
    if (int rc = pair_ReadSample(a, &sa)) return rc;
    long na = sa.Count();
    if (na <= 0) return IDS_NO_OBSERVATIONS;
    CMoments sb;
    if (int rc = pair_ReadSample(b, &sb)) return rc;
    long nb = sb.Count();
    if (nb <= 0) return IDS_NO_OBSERVATIONS;

    double va = na >= 2 ? sa.SumSqDev() / static_cast<double>(na - 1) : 0.0;
    double vb = nb >= 2 ? sb.SumSqDev() / static_cast<double>(nb - 1) : 0.0;
    if (vb <= 0.0) vb = 0.0;
    // A constant B makes the ratio infinite (or NaN with a constant A too); it
    // is reported as it is.
    double ratio = va / vb;
    int dfa = static_cast<int>(na - 1);
    int dfb = static_cast<int>(nb - 1);
    double f1 = st_FQuantile(dfa, dfb, m_dAlpha / 2.0);
    double f2 = st_FQuantile(dfb, dfa, m_dAlpha / 2.0);
    double lower = ratio / f1;
    // With both NaN the quantile's NaN, sign and all, is the one reported.
    double upper = std::isnan(f2) ? f2 : ratio * f2;
    if (!st_IntervalHolds(ratio, ratio, lower, upper)) return IDS_INTERVAL_ERROR;

    row.estimate = ratio;
    row.lower = lower;
    row.upper = upper;
    row.computed = true;
    row.a = {sa.Min(), sa.Max(), na, sa.Mean(), va};
    row.b = {sb.Min(), sb.Max(), nb, sb.Mean(), vb};
    return 0;
}
