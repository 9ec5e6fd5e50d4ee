// The result record of the interval analyses (the classical, standard
// deviation and standardized time series intervals): what their reports,
// their charts and any other writer of results read.
#pragma once

#include <string>
#include <vector>

// One data file of the list, or one replication of it under "All".
struct IntervalRow {
    std::string ident;       // the entry's identifier, followed by "@N" under "All"
    int treatment = 1;       // the replication (N under "All") or the entry's treatment
    double average = 0.0;    // the estimate of the mean
    double stdDev = 0.0;     // the standard deviation (sqrt(V) for standardized time series)
    double halfWidth = 0.0;  // of the interval on the mean
    double lower = 0.0;      // the interval's limits: on the mean, or on the standard deviation
    double upper = 0.0;
    double min = 0.0;        // smallest and largest value read
    double max = 0.0;
    double range = 0.0;      // max - min (standard deviation intervals)
    long numObs = 0;
    bool computed = false;   // false: no observations, the row holds no results
    int entry = 0;           // the dialog entry it comes from, from 0
    long batches = 0;        // batches formed (standardized time series)
};

struct IntervalResults {
    std::vector<IntervalRow> rows;  // in list order
    // The charts' value range: every computed row's limits (and, where shown,
    // its minimum and maximum).
    double graphLow = 1e20;
    double graphHigh = -1e20;
};
