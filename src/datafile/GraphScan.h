// Reading data files for graphs: the range scan that fills the bounds a user
// left open, and the record reader that follows replications.
#pragma once

#include <cmath>
#include <memory>
#include <string>
#include <utility>
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
    // A value that is not a number was seen; a load made with the scan read
    // on after it ended. Either leaves points outside the extremes.
    bool nanValue = false;
    bool loadBeyond = false;
};

void op_RangeScanBegin(RangeScan* scan, const double* bounds, const int* flags);
// Takes one observation into the extremes.
inline void op_RangeScanTake(RangeScan* scan, double t, double v) {
    if (t < scan->timeLow) scan->timeLow = t;
    if (t > scan->timeHigh) scan->timeHigh = t;
    if (v != v) scan->nanValue = true;
    // An open time bound is the data's own extreme, which every record lies within.
    if ((scan->flags[RANGE_TMIN] > 0 && t < scan->bounds[RANGE_TMIN]) ||
        (scan->flags[RANGE_TMAX] > 0 && t > scan->bounds[RANGE_TMAX]))
        return;
    if (v < scan->valueLow) scan->valueLow = v;
    if (v > scan->valueHigh) scan->valueHigh = v;
}
// op_RangeScanTake over a run of observations.
void op_RangeScanRun(RangeScan* scan, const double* times, const double* values, std::size_t count);
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

// Arrays that grow without setting their new elements: a graph's points are
// written once, by the reader, and zeroing 10^7 of them first would cost
// about what reading them does.
template <typename T>
struct UninitAllocator : std::allocator<T> {
    template <typename U>
    struct rebind {
        using other = UninitAllocator<U>;
    };
    UninitAllocator() = default;
    template <typename U>
    UninitAllocator(const UninitAllocator<U>&) noexcept {}
    template <typename U>
    void construct(U* p) noexcept {
        ::new (static_cast<void*>(p)) U;
    }
    template <typename U, typename... Args>
    void construct(U* p, Args&&... args) {
        ::new (static_cast<void*>(p)) U(std::forward<Args>(args)...);
    }
};
using GraphArray = std::vector<double, UninitAllocator<double>>;

// The observations of one treatment as a graph loads them, read in one pass
// from the reader's position (the treatment's first record): runs of them go
// straight from the reader's block into times and values, whose first count
// elements they become. The load ends at the -1.0 marker, at a closing marker
// whose number leaves the treatment's replication, at the end of the file, or
// before the first time above stopAbove. With scan, the range scan of
// op_RangeScanRecords is made on the way, ending where that scan ends (at the
// first closing marker of a replication, which the load reads past when the
// marker's number names the same replication again). room: the observations
// to make room for at once (more are made room for as they come). Returns 0,
// or 15834 when a read error cuts the scan short (the load alone stops there).
int op_ReadGraphSeries(CRecordReader& in, int treatment, RangeScan* scan, double stopAbove, std::size_t room,
                       GraphArray* times, GraphArray* values, std::size_t* count);

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
