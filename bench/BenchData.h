// Large data files for the benchmarks, made once per process in a temporary folder.
#pragma once

#include <string>

// A Tally file of `records` observations in `reps` replications (8-byte
// records), values an autocorrelated series around 10; made on first use.
const std::string& bench_TallyFile(long records, int reps = 1);
// The same for a DSTAT (time-persistent) file.
const std::string& bench_DstatFile(long records, int reps = 1);
