// The warm-up suggestion of one data file on its own: the series a moving
// average would smooth (Welch's series under "All") and MSER-5 on it.
#pragma once

#include <string>

#include "series/Mser.h"

struct WarmupResult {
    long n = 0;    // observations in the series
    int reps = 1;  // replications averaged
    MserResult mser;
};

// 0 or the message id: a file that cannot be read (15811 when there is
// none), a treatment the file does not have, time-persistent data (15810) or
// the reading's own failures.
int warmup_OfFile(const std::string& path, int treatment, WarmupResult* result);
