#include "series/WelchSeries.h"

#include <algorithm>

#include "datafile/FileGlobals.h"
#include "datafile/RecordReader.h"
#include "framework/Messages.h"

int series_Read(CRecordReader& in, int treatment, std::vector<double>* y, int* reps) {
    y->clear();
    *reps = 1;
    double t = 0.0, v = 0.0;
    if (treatment == REP_LUMPED) {
        double last = 0.0;
        while (in.NextObs(&t, &v)) {
            if (t < last) return IDS_LUMPED_NOT_ALLOWED;
            last = t;
            y->push_back(v);
        }
    } else {
        while (in.NextObs(&t, &v)) y->push_back(v);
        if (in.PassEnd() == RecordKind::Error) return IDS_READ_ERROR;
        // Sums across the replications, cut to the shortest.
        while (treatment == REP_ALL && in.NextReplication()) {
            std::size_t i = 0;
            while (in.NextObs(&t, &v)) {
                if (i < y->size()) (*y)[i] += v;
                ++i;
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
