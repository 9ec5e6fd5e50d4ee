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

void op_RangeScanRun(RangeScan* scan, const double* times, const double* values, std::size_t count) {
    // A copy the run's arrays cannot alias stays in registers.
    RangeScan s = *scan;
    for (std::size_t i = 0; i < count; ++i) op_RangeScanTake(&s, times[i], values[i]);
    *scan = s;
}

int op_RangeScanRecords(RangeScan* scan, CRecordReader& in, int treatment) {
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
        op_RangeScanTake(scan, t, v);
    }
    return 0;
}

int op_ReadGraphSeries(CRecordReader& in, int treatment, RangeScan* scan, double stopAbove, std::size_t room,
                       GraphArray* times, GraphArray* values, std::size_t* count) {
    const bool whole = WholeData(treatment);
    const bool stops = stopAbove < BIG_VALUE;
    bool scanning = scan != nullptr;
    bool loading = true;
    std::size_t n = 0;
    // Past the count the arrays are room the reader writes runs into; once
    // the load has ended and the scan goes on, they are only that.
    times->resize(room > 1024 ? room : 1024);
    values->resize(times->size());
    for (;;) {
        if (n == times->size()) {
            times->resize(2 * n);
            values->resize(2 * n);
        }
        double* ts = times->data() + n;
        double* vs = values->data() + n;
        if (const std::size_t got = in.NextRun(ts, vs, times->size() - n)) {
            if (scanning) op_RangeScanRun(scan, ts, vs, got);
            std::size_t keep = loading ? got : 0;
            if (loading && stops)
                for (std::size_t i = 0; i < got; ++i)
                    if (ts[i] > stopAbove) {
                        keep = i;
                        loading = false;
                        break;
                    }
            n += keep;
            if (!loading && !scanning) break;
            continue;
        }
        // One record: a marker, a time that is not a number, or a record the
        // block's end cut in two.
        double t = 0.0, v = 0.0;
        if (!in.ReadRecord(&t, &v)) {
            if (scanning && in.Failed()) return IDS_READ_ERROR;
            break;
        }
        if (scanning) {
            if (!(t < 0.0))
                op_RangeScanTake(scan, t, v);  // the scan takes a time that is not a number too
            else if (v != MARK_SKIP && (v == MARK_END || !whole))
                scanning = false;
        }
        if (loading) {
            if (t >= 0.0) {
                if (stops && t > stopAbove) {
                    loading = false;
                } else {
                    (*times)[n] = t;
                    (*values)[n] = v;
                    ++n;
                }
            } else if (v != MARK_SKIP) {
                // The replication the marker leads into, as op_ReadGraphRecord follows it.
                const int rep = whole ? treatment : static_cast<int>(std::fmin(-t, 2e9)) + 1;
                if (v == MARK_END || rep != treatment) loading = false;
            }
        }
        if (scan && !scanning && loading) scan->loadBeyond = true;
        if (!loading && !scanning) break;
    }
    *count = n;
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

