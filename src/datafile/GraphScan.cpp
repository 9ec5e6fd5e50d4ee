#include "datafile/GraphScan.h"

#include <cmath>

#include "datafile/DataFile.h"
#include "datafile/RecordReader.h"
#include "framework/Messages.h"

namespace {

bool WholeData(int treatment) { return treatment == REP_LUMPED || treatment == REP_ALL; }

}  // namespace

void op_RangeScanBegin(RangeScan* scan, const double* bounds, const int* flags) {
    for (int i = 0; i < 4; ++i) {
        scan->bounds[i] = bounds[i];
        scan->flags[i] = flags[i];
    }
    scan->timeLow = BIG_VALUE;
    scan->timeHigh = -BIG_VALUE;
    scan->valueLow = BIG_VALUE;
    scan->valueHigh = -BIG_VALUE;
}

int op_RangeScanRecords(RangeScan* scan, CRecordReader& in, int treatment) {
    const bool fromTime = scan->flags[RANGE_TMIN] > 0;
    const bool toTime = scan->flags[RANGE_TMAX] > 0;
    const double from = scan->bounds[RANGE_TMIN];
    const double to = scan->bounds[RANGE_TMAX];
    for (;;) {
        double t = 0.0, v = 0.0;
        if (!in.ReadRecord(&t, &v)) {
            if (in.Failed()) return IDS_READ_ERROR;
            break;
        }
        if (t < 0.0) {
            if (v == MARK_SKIP) continue;
            if (v == MARK_END || !WholeData(treatment)) break;
            continue;
        }
        if (t < scan->timeLow) scan->timeLow = t;
        if (t > scan->timeHigh) scan->timeHigh = t;
        // An open time bound is the data's own extreme, which every record lies within.
        if ((fromTime && t < from) || (toTime && t > to)) continue;
        if (v < scan->valueLow) scan->valueLow = v;
        if (v > scan->valueHigh) scan->valueHigh = v;
    }
    return 0;
}

void op_RangeScanEnd(const RangeScan* scan, double* bounds) {
    const double found[4] = {scan->timeLow, scan->timeHigh, scan->valueLow, scan->valueHigh};
    for (int i = 0; i < 4; ++i) bounds[i] = scan->flags[i] > 0 ? scan->bounds[i] : found[i];
}

int op_ScanRangeFiles(const std::vector<RangeSource>& files, double* bounds, const int* flags,
                      CRecordReader* firstOpen) {
    if (flags[0] > 0 && flags[1] > 0 && flags[2] > 0 && flags[3] > 0) return 0;  // nothing left open
    RangeScan scan;
    op_RangeScanBegin(&scan, bounds, flags);
    for (const RangeSource& src : files) {
        CRecordReader own;
        const bool given = firstOpen && &src == &files.front();
        CRecordReader& in = given ? *firstOpen : own;
        int rc = given ? (in.Seek(in.FirstRecord()) ? 0 : IDS_READ_ERROR) : in.Open(src.path);
        if (rc == IDS_NO_FILE_OPEN) return IDS_FILE_NOT_FOUND;
        if (!rc && !WholeData(src.treatment)) rc = in.SeekRep(src.treatment);
        if (!rc) rc = op_RangeScanRecords(&scan, in, src.treatment);
        if (rc) return rc;
    }
    op_RangeScanEnd(&scan, bounds);
    return 0;
}

