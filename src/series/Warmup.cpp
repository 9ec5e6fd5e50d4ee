#include "series/Warmup.h"

#include <algorithm>
#include <vector>

#include "datafile/FileGlobals.h"
#include "datafile/RecordReader.h"
#include "datafile/RepChecks.h"
#include "framework/Messages.h"

namespace {

constexpr std::size_t kRun = 4096;

}  // namespace

int warmup_OfFile(const std::string& path, int treatment, WarmupResult* r) {
    *r = WarmupResult{};
    if (rep_CheckTreatment(treatment)) return IDS_INVALID_REP_TREATMENT;
    CRecordReader in;
    if (int rc = in.Open(path)) {
        if (rc == IDS_NO_FILE_OPEN) return IDS_FILE_NOT_FOUND;
        return rc == IDS_INVALID_HEADER ? IDS_INVALID_DATA_FILE : rc;
    }
    if (op_IsTimePersistent(in.Kind())) return IDS_TIME_PERSISTENT;
    if (treatment >= 1 && !in.CountReaches(treatment)) return IDS_NOT_ENOUGH_REPS;
    if (int rc = in.Start(treatment)) return rc;
    // MSER-5 needs only the batch means; those of Welch's series are the
    // means across replications of each replication's own, as far as the
    // shortest replication's whole batches reach.
    std::vector<double> sums;  // batch sums over the replications
    long shortest = -1;
    double times[kRun];
    double values[kRun];
    int reps = 0;
    do {
        ++reps;
        long n = 0;
        double batch = 0.0, last = 0.0;
        while (const std::size_t got = in.NextObsRun(times, values, kRun)) {
            for (std::size_t i = 0; i < got; ++i) {
                if (treatment == REP_LUMPED && times[i] < last) return IDS_LUMPED_NOT_ALLOWED;
                last = times[i];
                batch += values[i];
                if (++n % kMserBatch != 0) continue;
                const std::size_t j = static_cast<std::size_t>(n / kMserBatch - 1);
                if (reps == 1)
                    sums.push_back(batch);
                else if (j < sums.size())
                    sums[j] += batch;
                batch = 0.0;
            }
        }
        if (in.PassEnd() == RecordKind::Error) return IDS_READ_ERROR;
        if (shortest < 0 || n < shortest) shortest = n;
        sums.resize(std::min(sums.size(), static_cast<std::size_t>(shortest / kMserBatch)));
    } while (treatment == REP_ALL && in.NextReplication());
    if (shortest <= 0) return IDS_NO_OBSERVATIONS;
    for (double& z : sums) z /= static_cast<double>(kMserBatch) * reps;
    r->n = shortest;
    r->reps = reps;
    r->mser = mser_FromBatchMeans(std::move(sums));
    return 0;
}
