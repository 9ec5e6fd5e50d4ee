#include "series/WelchSeries.h"

#include <algorithm>

#include "datafile/FileGlobals.h"
#include "datafile/RecordReader.h"
#include "framework/Messages.h"

namespace {

constexpr std::size_t kRun = 4096;

}  // namespace

int series_Read(CRecordReader& in, int treatment, std::vector<double>* y, int* reps, std::size_t reserve) {
    y->clear();
    y->reserve(reserve);
    *reps = 1;
    double times[kRun];
    double values[kRun];
    if (treatment == REP_LUMPED) {
        double last = 0.0;
        while (const std::size_t got = in.NextObsRun(times, values, kRun)) {
            for (std::size_t i = 0; i < got; ++i) {
                if (times[i] < last) return IDS_LUMPED_NOT_ALLOWED;
                last = times[i];
            }
            y->insert(y->end(), values, values + got);
        }
    } else {
        while (const std::size_t got = in.NextObsRun(nullptr, values, kRun)) y->insert(y->end(), values, values + got);
        if (in.PassEnd() == RecordKind::Error) return IDS_READ_ERROR;
        // Sums across the replications, cut to the shortest.
        while (treatment == REP_ALL && in.NextReplication()) {
            std::size_t i = 0;
            while (const std::size_t got = in.NextObsRun(nullptr, values, kRun)) {
                for (std::size_t k = 0; k < got && i + k < y->size(); ++k) (*y)[i + k] += values[k];
                i += got;
            }
            if (in.PassEnd() == RecordKind::Error) return IDS_READ_ERROR;
            if (i < y->size()) y->resize(i);
            ++*reps;
        }
        if (*reps > 1) {
            const double k = *reps;
            for (double& x : *y) x /= k;
        }
    }
    if (in.PassEnd() == RecordKind::Error) return IDS_READ_ERROR;
    return y->empty() ? IDS_NO_OBSERVATIONS : 0;
}
