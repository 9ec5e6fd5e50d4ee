#include "series/FiltrPass.h"

#include <algorithm>
#include <climits>
#include <cmath>

#include "datafile/DataFile.h"
#include "datafile/OutputDataFile.h"
#include "datafile/RecordReader.h"
#include "datafile/TimeWeight.h"
#include "framework/Messages.h"
#include "framework/WholeNumber.h"
#include "stats/Moments.h"

namespace {

// Records taken from the reader at a time.
constexpr std::size_t kRun = 1024;

// The von Neumann estimate and its test. The two batching units treat a
// large z differently (by time it withdraws the one-sided rejection, by
// observations it clears the two-sided flag, which is never set): each
// unit's report states its own conclusion, and both are kept so that a
// report reads the same whichever release printed it. S and D, the sums of
// squared deviations and of squared successive differences of the batch
// means, keep their digits whatever offset the means share.
void StoreEstimate(const CMoments& st, bool byTime, FiltrResults* res) {
    const double cov = 1.0 - st.SumSqSteps() / (2.0 * st.SumSqDev());
    res->covEstimate = cov;
    res->numBatches = static_cast<int>(st.Count());
    if (st.Count() < 8) return;
    const double n = static_cast<double>(st.Count());
    const double z = cov / std::sqrt((n - 2.0) / (n * n - 1.0));
    res->z = z;
    if (z > Z_ONE_SIDED_05) res->rejectPositive = 1;
    if (std::fabs(z) > Z_TWO_SIDED_05) {
        if (byTime)
            res->rejectPositive = 0;
        else
            res->rejectNonZero = 0;
    }
}

// Keeps a batch mean for the results; past the limit only that some were left out.
void KeepMean(FiltrResults* res, double mean) {
    if (res->means.size() < FiltrResults::kMaxKeptMeans)
        res->means.push_back(mean);
    else
        res->meansOmitted = true;
}

// Replication ends met by a pass under "all" are copied so the output keeps
// the source's replications apart.
void CopyEnd(const FiltrParams& p, RecordKind rec, COutputDataFile& out, double t, double v) {
    if (p.treatment == REP_ALL && (rec == RecordKind::End || rec == RecordKind::Boundary)) out.Put(t, v);
}

// Step is a template argument so that the per-record loop carries no test of
// the weighting rule.
template <bool step>
int PassByTime(CRecordReader& in, const FiltrParams& p, int rep, COutputDataFile& out, FiltrResults* res) {
    const double W = p.batchSize;
    const double T = p.truncAmount;
    // A zero span (all records at one time) would never close a batch.
    if (!(W > 0.0)) return IDS_ZERO_DENOMINATOR;
    const bool lumped = p.treatment == REP_LUMPED;

    double t = 0.0;
    double v = 0.0;
    RecordKind rec = RecordKind::Obs;
    bool have = false;
    double r = T;
    if (rep > 1) {
        // Later replications are truncated from their own start.
        rec = in.Next(&t, &v);
        have = true;
        if (rec == RecordKind::Obs) r = t + T;
    }
    double vp = 0.0;
    for (;;) {
        if (!have) rec = in.Next(&t, &v);
        have = false;
        if (rec == RecordKind::Obs) {
            if (t > r) break;
            vp = v;  // the value in force at the truncation point
            continue;
        }
        if (rec == RecordKind::Error) return IDS_READ_ERROR;
        if (rec == RecordKind::Boundary && lumped) continue;
        // The data ended before the truncation point: nothing is stored.
        CopyEnd(p, rec, out, t, v);
        return 0;
    }

    double b = r;
    double tp = r;
    double area = 0.0;
    CMoments st;
    double times[kRun], values[kRun];
    std::size_t got = 0, at = 0;
    for (;;) {
        while (t - b > W) {
            const double end = b + W;
            if (!(end > b)) return IDS_ZERO_DENOMINATOR;  // W too small to move on from b
            if (st.Count() == INT_MAX) return IDS_BUFFER_EXCEEDED;
            b = end;
            double piece;
            if constexpr (step) {
                piece = op_WeightedArea<true>(tp, vp, b, vp);
            } else {
                const double vb = (v - vp) / (t - tp) * (b - tp) + vp;
                piece = op_WeightedArea<false>(tp, vp, b, vb);
                vp = vb;
            }
            double mid = b - W * 0.5;
            double mean = (area + piece) / W;
            out.Put(mid, mean);
            st.AddInSeries(mean);
            KeepMean(res, mean);
            tp = b;
            area = 0.0;
        }
        if (t > tp) area += op_WeightedArea<step>(tp, vp, t, v);
        tp = t;
        vp = v;

        // The next record: from the run taken from the reader's block, a
        // new run, or through Next.
        if (at == got) {
            got = in.NextRun(times, values, kRun);
            at = 0;
        }
        if (at < got) {
            t = times[at];
            v = values[at];
            ++at;
            continue;
        }
        rec = in.Next(&t, &v);
        if (rec == RecordKind::Obs) continue;
        if (rec == RecordKind::Boundary && lumped) {
            do rec = in.Next(&t, &v);
            while (rec == RecordKind::Boundary);
            if (rec == RecordKind::Obs) {
                // A replication that starts before the open batch cannot join it.
                if (t < b) return 0;
                continue;
            }
        }
        if (rec == RecordKind::Error) return IDS_READ_ERROR;
        CopyEnd(p, rec, out, t, v);
        break;
    }

    res->trailingTime = tp - b;
    if (st.Count() > 0 && st.SumSqDev() > 0.0) {
        StoreEstimate(st, true, res);
        res->truncUsed = T;
        res->batchUsed = W;
    }
    return 0;
}

// Skips the initial stretch of a pass by observations. On return with have set,
// (t, v) is the first record after the truncation.
int TruncateForObs(CRecordReader& in, const FiltrParams& p, int rep, double* t, double* v, bool* have,
                   double* lastTime) {
    const bool lumped = p.treatment == REP_LUMPED;
    RecordKind rec = RecordKind::Obs;
    if (p.truncUnit == 1) {
        const int K = WholeInt(p.truncAmount);
        for (int k = 0; k < K;) {
            rec = in.Next(t, v);
            if (rec == RecordKind::Obs) {
                ++k;
                *lastTime = *t;
                continue;
            }
            if (rec == RecordKind::Boundary && lumped) continue;
            return rec == RecordKind::Error ? IDS_READ_ERROR : IDS_NO_OBSERVATIONS_FOUND;
        }
        return 0;
    }
    double r = p.truncAmount;
    if (rep > 1) {
        rec = in.Next(t, v);
        *have = true;
        if (rec == RecordKind::Obs) r = *t + p.truncAmount;
    }
    for (;;) {
        if (!*have) rec = in.Next(t, v);
        *have = false;
        if (rec == RecordKind::Obs) {
            if (*t > r) {
                *have = true;
                return 0;
            }
            *lastTime = *t;
            continue;
        }
        if (rec == RecordKind::Boundary && lumped) continue;
        return rec == RecordKind::Error ? IDS_READ_ERROR : IDS_NO_OBSERVATIONS_FOUND;
    }
}

int PassByObs(CRecordReader& in, const FiltrParams& p, int rep, COutputDataFile& out, FiltrResults* res) {
    const bool batching = p.batchUnit == 1;
    const int B = batching ? WholeInt(p.batchSize) : 0;
    if (batching && B < 1) return IDS_ZERO_DENOMINATOR;
    const bool lumped = p.treatment == REP_LUMPED;

    double firstT = 0.0;
    double firstV = 0.0;
    double truncatedTime = 0.0;
    bool have = false;
    if (p.truncAmount > 0.0)
        if (int rc = TruncateForObs(in, p, rep, &firstT, &firstV, &have, &truncatedTime)) return rc;
    const double truncUsed = p.truncUnit == 1 ? static_cast<double>(WholeInt(p.truncAmount)) : p.truncAmount;

    double lastTime = truncatedTime;
    CMoments st;
    int count = 0;
    double sumT = 0.0;
    double sumV = 0.0;
    double start = 0.0;
    // Records come in runs of observations from the reader's block; markers
    // and block ends one at a time through Next.
    double times[kRun], values[kRun];
    std::size_t got = 0;
    if (have) {
        times[0] = firstT;
        values[0] = firstV;
        got = 1;
    }
    for (;; got = 0) {
        if (got == 0) got = in.NextRun(times, values, kRun);
        if (got == 0) {
            double t, v;
            RecordKind rec = in.Next(&t, &v);
            if (rec != RecordKind::Obs) {
                if (rec == RecordKind::Boundary && lumped) {
                    do rec = in.Next(&t, &v);
                    while (rec == RecordKind::Boundary);
                    if (rec == RecordKind::Obs && t < lastTime) return IDS_LUMPED_NOT_ALLOWED;
                }
                if (rec == RecordKind::Error) return IDS_READ_ERROR;
                if (rec != RecordKind::Obs) {
                    CopyEnd(p, rec, out, t, v);
                    break;
                }
            }
            times[0] = t;
            values[0] = v;
            got = 1;
        }
        lastTime = times[got - 1];
        if (!batching) {
            for (std::size_t i = 0; i < got; ++i) out.Put(times[i], values[i]);
            continue;
        }
        // The run in stretches that end where a batch fills.
        for (std::size_t i = 0; i < got;) {
            if (count == 0) start = times[i];
            const std::size_t take = std::min(got - i, static_cast<std::size_t>(B - count));
            for (const std::size_t end = i + take; i < end; ++i) {
                sumT += times[i];
                sumV += values[i];
            }
            count += static_cast<int>(take);
            if (count < B) break;
            if (st.Count() == INT_MAX) return IDS_BUFFER_EXCEEDED;
            double meanT = sumT / B;
            double meanV = sumV / B;
            out.Put(meanT, meanV);
            st.AddInSeries(meanV);
            KeepMean(res, meanV);
            count = 0;
            sumT = sumV = 0.0;
        }
    }

    if (!batching) {
        res->truncUsed = truncUsed;
        return 0;
    }
    res->trailingObs = count;
    res->trailingTime = count > 0 ? lastTime - start : 0.0;
    if (st.Count() < 1) return 0;
    if (!(2.0 * st.SumSqDev() > 0.0)) return IDS_ZERO_DENOMINATOR;
    StoreEstimate(st, false, res);
    res->truncUsed = truncUsed;
    res->batchUsed = B;
    return 0;
}

}  // namespace

void filtr_SettleDefaults(CRecordReader& in, FiltrParams* p) {
    if (p->truncUnit == -1) p->truncUnit = op_IsTimePersistent(p->kind) ? 0 : 1;
    if (p->batchUnit == -1 || p->batchSize > 0.0) return;
    long count = 0;
    double first = 0.0;
    double last = 0.0;
    double times[kRun], values[kRun];
    for (;;) {
        std::size_t got = in.NextRun(times, values, kRun);
        if (got == 0) {
            if (in.Next(&times[0], &values[0]) != RecordKind::Obs) break;
            got = 1;
        }
        if (count == 0) first = times[0];
        last = times[got - 1];
        count += static_cast<long>(got);
    }
    p->batchSize = p->batchUnit == 0 ? (last - first) / 10.0 : static_cast<double>(count) / 10.0;
}

int filtr_RunPass(CRecordReader& in, const FiltrParams& p, int rep, COutputDataFile& out, FiltrResults* res) {
    if (p.batchUnit == 0)
        return op_StepWeighted(p.kind) ? PassByTime<true>(in, p, rep, out, res) : PassByTime<false>(in, p, rep, out, res);
    return PassByObs(in, p, rep, out, res);
}
