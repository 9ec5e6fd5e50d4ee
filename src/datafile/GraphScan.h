// Reading data files for graphs: the range scan that fills the bounds a user
// left open, and the record reader that follows replications.
#pragma once

#include <string>
#include <cmath>
#include <vector>

#include "datafile/RecordReader.h"

// Bounds in the order of a graph document's range: first time, last time,
// lowest value, highest value. A flag of +1 keeps the given bound; -1 takes it
// from the data.
enum { RANGE_TMIN = 0, RANGE_TMAX = 1, RANGE_VMIN = 2, RANGE_VMAX = 3 };

struct RangeScan {
    double bounds[4] = {0.0, 0.0, 0.0, 0.0};
    int flags[4] = {1, 1, 1, 1};
    // Extremes seen so far, from the layer's starting bounds.
    double timeLow = 0.0, timeHigh = 0.0, valueLow = 0.0, valueHigh = 0.0;
};

void op_RangeScanBegin(RangeScan* scan, const double* bounds, const int* flags);
// Scans the observations of one treatment from the reader's position: one
// replication for a replication number, to the end of the data under lumped
// and all. Values count only at times inside the given time bounds, so that
// an open value bound fits what the time window shows. Returns 0 or 15834.
int op_RangeScanRecords(RangeScan* scan, CRecordReader& in, int treatment);
// Writes the bounds, open ones replaced by the extremes found (the starting
// bounds 1e20 and -1e20 when there were no observations).
void op_RangeScanEnd(const RangeScan* scan, double* bounds);

struct RangeSource {
    std::string path;
    int treatment = 1;
};
// The scan over several files, each under its own treatment. Returns 0 or the
// data layer's id for a file that cannot be opened, read or positioned. When
// firstOpen is given, the first file is read through it (already open on
// that file), so that its replications are found on the way.
int op_ScanRangeFiles(const std::vector<RangeSource>& files, double* bounds, const int* flags,
                      CRecordReader* firstOpen = nullptr);

// Reads the next record for a graph. At end of file the record is the end
// marker (-1, -1). *rep follows the replication the stream is in: a boundary
// marker moves it to the replication after the one the marker closes; under
// lumped and all the data is one stream and *rep stays the treatment.
// Inline: graphs read every record through it.
inline void op_ReadGraphRecord(CRecordReader& in, int treatment, int* rep, double* time, double* value) {
    // The end of the file reads as the end marker (-1, -1).
    if (!in.ReadRecord(time, value)) return;
    if (*time >= 0.0 || *value == MARK_SKIP || *value == MARK_END) return;
    if (treatment == REP_LUMPED || treatment == REP_ALL)
        *rep = treatment;
    else
        *rep = static_cast<int>(std::fmin(-*time, 2e9)) + 1;
}
