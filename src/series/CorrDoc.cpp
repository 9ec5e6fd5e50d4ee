#include "series/CorrDoc.h"

#include <vector>

#include "datafile/DataFile.h"
#include "datafile/OutputDataFile.h"
#include "framework/Messages.h"
#include "series/CorrDlg.h"
#include "stats/Moments.h"

namespace {

// Counts at or above this are the counting function's error ids.
constexpr int kFirstMessageId = 15000;
constexpr std::size_t kFeed = 4096;

}  // namespace

int CCorrDoc::InitFromDialog(CDialog& dialog) {
    auto& dlg = dynamic_cast<CCorrDlg&>(dialog);
    m_nMaxLags = dlg.m_nMaxLags;
    m_strCorrTitle = dlg.m_strTitle;
    m_strOutFile = dlg.m_strOutFile;
    SetPathName(dlg.m_strFile, false);
    if (!OnOpenDocument(dlg.m_strFile.c_str())) return kOpenFailed;
    m_nTreatment = op_ParseRepTreatment(dlg.m_strReps.c_str());
    return Compute();
}

int CCorrDoc::Compute() {
    m_results = CorrResults{};
    COutputDataFile out(m_strOutFile);
    if (int rc = out.Open()) return rc;
    if (int rc = out.WriteHeader(KIND_FILTERED, m_nReinit, m_strIdent, m_strCorrTitle)) return rc;

    int rc = 0;
    if (m_nTreatment == REP_ALL) {
        const int reps = RepCount();
        if (reps >= kFirstMessageId) rc = reps;
        for (int r = 1; r <= reps && rc == 0; ++r) {
            m_nTreatment = r;
            rc = Pass(r, true, out);
        }
        m_nTreatment = REP_ALL;
    } else {
        rc = Pass(m_nTreatment, false, out);
    }
    if (rc == 0) rc = out.Commit();
    return rc;
}

// Puts the reader at the first record of replication rep, or of the file
// when lumped.
int CCorrDoc::Position(int rep) {
    CRecordReader& in = Reader();
    if (!in.SeekEntry(rep >= 1 ? rep : 1)) return IDS_INVALID_REP_TREATMENT;
    const std::int64_t start = in.Tell();
    if (rep >= 1) {
        double t = 0.0, v = 0.0;
        if (!in.ReadRecord(&t, &v)) return in.Failed() ? IDS_READ_ERROR : IDS_INVALID_REP_TREATMENT;
        in.Seek(start);
    }
    return 0;
}

int CCorrDoc::Pass(int rep, bool copyEndMarker, COutputDataFile& out) {
    if (int rc = Position(rep)) return rc;
    CRecordReader& in = Reader();
    const int lags = m_nMaxLags;
    const int treatment = rep >= 1 ? rep : REP_LUMPED;

    // Values go to the sums a block at a time; the lagged products need the
    // mean first, so a second pass reads the values again. Streaming keeps
    // the memory to the products' own (the transform's blocks), whatever n.
    CMoments sums;
    double chunk[kFeed];
    in.BeginPass(treatment);
    while (const std::size_t got = in.NextObsRun(nullptr, chunk, kFeed)) sums.AddAll(chunk, got);
    if (in.PassEnd() == RecordKind::Error) return IDS_READ_ERROR;
    const long n = sums.Count();
    if (n <= lags) return IDS_TOO_FEW_POINTS;
    const double dn = static_cast<double>(n);
    const double mean = sums.Mean();
    const double variance = sums.SumSqDev() / dn;
    // Centred on the rounded mean, the values sum to n times its residual;
    // the products are corrected for it.
    const double residual = sums.MeanFrom(mean);

    in.RewindPass();
    CLagProducts products(lags, m_forceMethod ? *m_forceMethod : CLagProducts::Choose(lags, n));
    while (const std::size_t got = in.NextObsRun(nullptr, chunk, kFeed)) {
        for (std::size_t i = 0; i < got; ++i) chunk[i] -= mean;
        products.Add(chunk, got);
    }
    if (in.PassEnd() == RecordKind::Error) return IDS_READ_ERROR;
    std::vector<double> acc = products.Finish(residual);

    double weighted = 0.0;
    for (int k = 1; k <= lags; ++k) {
        double c = acc[static_cast<std::size_t>(k)] / dn;
        // A constant series has variance 0: the correlations are then 0/0.
        double r = c / variance;
        weighted += (1.0 - static_cast<double>(k) / dn) * c;
        m_results.lags.push_back({k, c, r});
        out.Put(k, r);
    }
    // Under "all" the marker that ended the pass closes the replication in the
    // output too.
    if (copyEndMarker)
        out.Put(in.EndTime(), in.EndValue());
    else
        out.Put(MARK_END, MARK_END);
    m_results.mean = mean;
    m_results.variance = variance;
    m_results.size = static_cast<int>(n);
    m_results.weightedSum = 2.0 * weighted;
    m_results.passes.push_back({rep, mean, variance, m_results.size, m_results.weightedSum});
    return 0;
}
