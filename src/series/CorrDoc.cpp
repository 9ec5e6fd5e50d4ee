#include "series/CorrDoc.h"

#include <vector>

#include "datafile/DataFile.h"
#include "framework/Messages.h"
#include "framework/SafeOutput.h"
#include "series/CorrDlg.h"
#include "stats/ShiftedSums.h"

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
    CSafeOutput safe(m_strOutFile);
    FILE* out = nullptr;
    if (!m_strOutFile.empty()) {
        int err = 0;
        out = op_OpenDataFile(&err, safe.TempPath().c_str(), 5, false);
        if (!out) return err ? err : IDS_OPEN_ERROR;
        int rc = op_WriteFileHdr(out, false, KIND_FILTERED, op_KindText(KIND_FILTERED), m_nReinit, 1,
                                 static_cast<long>(m_strIdent.size()), static_cast<long>(m_strCorrTitle.size()),
                                 m_strIdent.c_str(), m_strCorrTitle);
        if (rc) {
            std::fclose(out);
            return rc;
        }
    }

    int rc = 0;
    if (m_nTreatment == REP_ALL) {
        const int reps = m_nReps;
        if (reps >= kFirstMessageId) rc = reps;
        for (int r = 1; r <= reps && rc == 0; ++r) {
            m_nTreatment = r;
            rc = Pass(r, true, out);
        }
        m_nTreatment = REP_ALL;
    } else {
        rc = Pass(m_nTreatment, false, out);
    }

    if (out) {
        if (std::ferror(out) && rc == 0) rc = IDS_WRITE_ERROR;
        if (std::fclose(out) != 0 && rc == 0) rc = IDS_WRITE_ERROR;
        if (rc == 0 && !safe.Commit()) rc = IDS_WRITE_ERROR;
    }
    return rc;
}

// Puts the stream at the first record of replication rep, or of the file when
// lumped.
int CCorrDoc::Position(int rep) {
    int r = rep >= 1 ? rep : 1;
    if (r >= RepIndexSize()) return IDS_INVALID_REP_TREATMENT;
    std::clearerr(m_pFile);
    long start = RepInfo(r).m_lFilePos;
    if (std::fseek(m_pFile, start, SEEK_SET) != 0) return IDS_READ_ERROR;
    if (rep >= 1) {
        double t = 0.0, v = 0.0;
        op_ReadPair(m_pFile, m_nIsDouble, &t, &v);
        if (std::ferror(m_pFile)) return IDS_READ_ERROR;
        if (std::feof(m_pFile)) return IDS_INVALID_REP_TREATMENT;
        std::fseek(m_pFile, start, SEEK_SET);
    }
    return 0;
}

namespace {

// Reads the pass's observations: -2.0 markers are passed over, -1.0 (or the
// end of the file) ends the data; other markers end a replication, which ends
// the pass unless lumped reading goes on across it. The marker that ended the
// pass is left in *endTime, *endValue.
template <typename Sink>
void ReadPass(FILE* f, int isDouble, int treatment, int kind, double* endTime, double* endValue, Sink&& sink) {
    double t = 0.0, v = 0.0;
    for (;;) {
        op_ReadObs(f, isDouble, treatment, kind, &t, &v);
        if (t >= 0.0) {
            sink(v);
            continue;
        }
        if (v == MARK_SKIP) continue;
        if (treatment == REP_LUMPED && v != MARK_END) continue;
        *endTime = t;
        *endValue = v;
        return;
    }
}

}  // namespace

int CCorrDoc::Pass(int rep, bool copyEndMarker, FILE* out) {
    if (int rc = Position(rep)) return rc;
    const long start = std::ftell(m_pFile);
    const int lags = m_nMaxLags;
    const int treatment = rep >= 1 ? rep : REP_LUMPED;
    double endTime = MARK_END, endValue = MARK_END;

    CShiftedSums sums;
    ReadPass(m_pFile, m_nIsDouble, treatment, m_nKind, &endTime, &endValue, [&](double v) { sums.Add(v); });
    if (std::ferror(m_pFile)) return IDS_READ_ERROR;
    const long n = sums.Count();
    if (n <= lags) return 15831;
    const double dn = static_cast<double>(n);
    const double mean = sums.Mean();
    const double variance = sums.CentredSquares() / dn;

    std::clearerr(m_pFile);
    if (std::fseek(m_pFile, start, SEEK_SET) != 0) return IDS_READ_ERROR;
    CLagProducts products(lags, m_forceMethod ? *m_forceMethod : CLagProducts::Choose(lags, n));
    std::vector<double> feed;
    feed.reserve(kFeed);
    ReadPass(m_pFile, m_nIsDouble, treatment, m_nKind, &endTime, &endValue, [&](double v) {
        feed.push_back(v - mean);
        if (feed.size() == kFeed) {
            products.Add(feed.data(), feed.size());
            feed.clear();
        }
    });
    if (std::ferror(m_pFile)) return IDS_READ_ERROR;
    products.Add(feed.data(), feed.size());
    std::vector<double> acc = products.Finish();

    double weighted = 0.0;
    for (int k = 1; k <= lags; ++k) {
        double c = acc[static_cast<std::size_t>(k)] / dn;
        // A constant series has variance 0: the correlations are then 0/0.
        double r = c / variance;
        weighted += (1.0 - static_cast<double>(k) / dn) * c;
        m_results.lags.push_back({k, c, r});
        if (out) {
            double time = k;
            op_WritePair(out, &time, &r);
        }
    }
    if (out) {
        if (copyEndMarker) {
            op_WritePair(out, &endTime, &endValue);
        } else {
            double end = MARK_END;
            op_WritePair(out, &end, &end);
        }
    }
    m_results.mean = mean;
    m_results.variance = variance;
    m_results.size = static_cast<int>(n);
    m_results.weightedSum = 2.0 * weighted;
    return 0;
}
