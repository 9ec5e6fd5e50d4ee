// The series that the moving average and the warm-up rule look at: one
// replication as read; under "All" Welch's series, the i-th observation
// averaged across the replications, as long as the shortest replication; or
// under "Lumped" every replication in turn as one series, which needs times
// that never go back across a boundary (as batching by observations does).
#pragma once

#include <vector>

class CRecordReader;

// Reads from a reader positioned by CRecordReader::Start(treatment). *reps
// receives the number of replications averaged (1 but under "All"). 0, 15834
// on a read error, 15932 when lumped times go back, or 15901 when there are
// no observations.
// reserve: room to take first, for example the file's record count, so that
// a long series is not copied as it grows (untouched room costs no memory).
int series_Read(CRecordReader& in, int treatment, std::vector<double>* y, int* reps, std::size_t reserve = 0);
