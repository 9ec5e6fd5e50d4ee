#include "stats/ComprDoc.h"

#include <cmath>
#include <cstdint>

#include "datafile/RecordReader.h"
#include "dialog/DataFileCheck.h"
#include "framework/Messages.h"
#include "stats/Distributions.h"
#include "stats/IntervalCheck.h"
#include "stats/PairDialogs.h"
#include "stats/PairFiles.h"

namespace {

// What x86-64's truncating conversion gives: the minimum int for NaN and for
// values outside the int range.
int CutToInt(double x) {
    if (!(x > -2147483649.0 && x < 2147483648.0)) return INT32_MIN;
    return static_cast<int>(x);
}

void WidenRange(double lower, double upper, double* low, double* high) {
    if (lower < *low) *low = lower;
    if (upper > *high) *high = upper;
}

void StoreResults(PairRow& row, double estimate, double sd, double hw) {
    row.estimate = estimate;
    row.stdDev = sd;
    row.halfWidth = hw;
    row.lower = estimate - hw;
    row.upper = estimate + hw;
    row.computed = true;
}

}  // namespace

int CComprDoc::InitFromDialog(CDialog& dialog) {
    auto& dlg = dynamic_cast<CComprDlg&>(dialog);
    m_nMethod = dlg.m_nMethod == CComprDlg::METHOD_TWO_SAMPLE ? METHOD_TWO_SAMPLE : METHOD_PAIRED;
    m_dAlpha = dlg_AlphaFromLevel(dlg.m_strLevel);
    m_strTitle = dlg.m_strTitle;
    m_bScale = dlg.m_bScale;
    m_givenPairs = dlg.m_pairs;
    if (int rc = pair_Expand(dlg.m_pairs, &m_pairs)) return rc;
    return Compute();
}

int CComprDoc::Compute() {
    m_results = PairResults{};
    m_results.rows.resize(m_pairs.size());
    for (std::size_t i = 0; i < m_pairs.size(); ++i) m_results.rows[i].ident = m_pairs[i].a.Identifier();
    for (std::size_t i = 0; i < m_pairs.size(); ++i) {
        PairRow& row = m_results.rows[i];
        int rc = m_nMethod == METHOD_PAIRED ? ComputePaired(m_pairs[i], row) : ComputeTwoSample(m_pairs[i], row);
        if (rc) return rc;
        WidenRange(row.lower, row.upper, &m_results.low, &m_results.high);
    }
    // The zero difference is always in view.
    WidenRange(0.0, 0.0, &m_results.low, &m_results.high);
    return 0;
}

int CComprDoc::ComputePaired(const CFilePairItem& pair, PairRow& row) {
    const CMultiFileItem& a = pair.a;
    const CMultiFileItem& b = pair.b;
    CRecordReader readA;
    CRecordReader readB;
    if (int rc = pair_OpenFile(readA, a.m_strPath, a.m_nTreatment)) return rc;
    if (int rc = pair_OpenFile(readB, b.m_strPath, b.m_nTreatment)) return rc;
    CExtremes sa;
    CExtremes sb;
    CMoments diff;
    CMoments sumA;  // for the means alone
    CMoments sumB;
    // An A value without a partner in B changes nothing. A is read ahead of
    // B by up to a chunk; once B has ended first, what A met after the value
    // that found no partner (a read error included) is none of the pair's.
    constexpr std::size_t kChunk = 4096;
    double va[kChunk], vb[kChunk];
    bool aEndedFirst = false;
    for (;;) {
        const std::size_t na = pair_Fill(readA, va, kChunk);
        const std::size_t nb = pair_Fill(readB, vb, na);
        sumA.AddAll(va, nb);
        sumB.AddAll(vb, nb);
        st_AddExtremes(va, nb, &sa.min, &sa.max);
        st_AddExtremes(vb, nb, &sb.min, &sb.max);
        for (std::size_t i = 0; i < nb; ++i) va[i] -= vb[i];
        diff.AddAll(va, nb);
        if (nb < na) break;
        if (na < kChunk) {
            aEndedFirst = true;
            break;
        }
    }
    if (aEndedFirst) {
        if (int rc = pair_ReadError(readA)) return rc;
    }
    if (int rc = pair_ReadError(readB)) return rc;
    long n = diff.Count();
    if (n <= 0) return IDS_NO_OBSERVATIONS;

    double mean = diff.Mean();
    double variance = n >= 2 ? diff.SumSqDev() / static_cast<double>(n - 1) : 0.0;
    if (variance < 0.0) variance = 0.0;
    double t = st_TQuantile(static_cast<int>(n - 1), m_dAlpha / 2.0);
    double hw = t * std::sqrt(variance) / std::sqrt(static_cast<double>(n));
    if (!st_IntervalHolds(mean, std::sqrt(variance), mean - hw, mean + hw)) return IDS_INTERVAL_ERROR;

    StoreResults(row, mean, std::sqrt(variance), hw);
    row.a = {sa.min, sa.max, n, sumA.Mean(), 0.0};
    row.b = {sb.min, sb.max, n, sumB.Mean(), 0.0};
    row.df = static_cast<int>(n - 1);
    return 0;
}

int CComprDoc::ComputeTwoSample(const CFilePairItem& pair, PairRow& row) {
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

    double dna = static_cast<double>(na);
    double dnb = static_cast<double>(nb);
    double va = na >= 2 ? sa.SumSqDev() / (dna - 1.0) : 0.0;
    if (va <= 0.0) va = 0.0;
    double vb = nb >= 2 ? sb.SumSqDev() / (dnb - 1.0) : 0.0;
    if (vb <= 0.0) vb = 0.0;
    double wa = va / dna;
    double wb = vb / dnb;
    double s = wa + wb;
    // Welch-Satterthwaite; the variances are not pooled. A file of one
    // observation makes this 0/0, which the cut turns into the minimum int.
    int df = CutToInt(s * s / (wb * wb / (dnb - 1.0) + wa * wa / (dna - 1.0)));
    double se = std::sqrt(s);
    double hw = st_TQuantile(df, m_dAlpha / 2.0) * se;
    double estimate = sa.Mean() - sb.Mean();
    if (!st_IntervalHolds(estimate, se, estimate - hw, estimate + hw)) return IDS_INTERVAL_ERROR;

    StoreResults(row, estimate, se, hw);
    row.a = {sa.Min(), sa.Max(), na, sa.Mean(), va};
    row.b = {sb.Min(), sb.Max(), nb, sb.Mean(), vb};
    row.df = df;
    return 0;
}
