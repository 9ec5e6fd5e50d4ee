#include "series/Warmup.h"

#include <vector>

#include "datafile/FileGlobals.h"
#include "datafile/RecordReader.h"
#include "datafile/RepChecks.h"
#include "framework/Messages.h"
#include "series/WelchSeries.h"

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
    std::vector<double> y;
    if (int rc = series_Read(in, treatment, &y, &r->reps)) return rc;
    r->n = static_cast<long>(y.size());
    r->mser = mser_Five(y);
    return 0;
}
