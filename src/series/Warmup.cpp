#include "series/Warmup.h"

#include <algorithm>
#include <filesystem>
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
    // Counting the replications first would read replication 1 twice: the
    // count is asked for only to name why a replication was not found.
    if (int rc = in.Start(treatment)) return treatment >= 1 && !in.CountReaches(treatment) ? IDS_NOT_ENOUGH_REPS : rc;
    // MSER-5 needs only the batch means; those of Welch's series are the
    // means across replications of each replication's own, as far as the
    // shortest replication's whole batches reach.
    std::vector<double> sums;  // batch sums over the replications
    std::error_code ec;
    const std::uintmax_t bytes = std::filesystem::file_size(path, ec);
    if (!ec) sums.reserve(static_cast<std::size_t>(bytes / (in.IsDouble() ? 16 : 8) / kMserBatch));
    long shortest = -1;
    double times[kRun];
    double values[kRun];
    const bool lumped = treatment == REP_LUMPED;
    int reps = 0;
    do {
        ++reps;
        long n = 0;
        std::size_t j = 0;  // the batch being summed
        double batch = 0.0, last = 0.0;
        int held = 0;  // its observations so far
        auto store = [&](double sum) {
            if (reps == 1)
                sums.push_back(sum);
            else if (j < sums.size())
                sums[j] += sum;
            ++j;
        };
        while (const std::size_t got = in.NextObsRun(lumped ? times : nullptr, values, kRun)) {
            for (std::size_t i = 0; lumped && i < got; ++i) {
                if (times[i] < last) return IDS_LUMPED_NOT_ALLOWED;
                last = times[i];
            }
            n += static_cast<long>(got);
            // A batch begun in the last run, whole batches, the start of the next.
            std::size_t i = 0;
            for (; i < got && held > 0; ++i) {
                batch += values[i];
                if (++held == kMserBatch) {
                    store(batch);
                    batch = 0.0;
                    held = 0;
                }
            }
            for (; i + kMserBatch <= got; i += kMserBatch) {
                double sum = 0.0;
                for (int k = 0; k < kMserBatch; ++k) sum += values[i + static_cast<std::size_t>(k)];
                store(sum);
            }
            for (; i < got; ++i, ++held) batch += values[i];
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
