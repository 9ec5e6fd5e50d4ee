// The result record of the pair analyses (comparison of means and of
// variances): what their reports, their charts and any other writer of
// results read.
#pragma once

#include <string>
#include <vector>

// What one file of a pair gave: its extremes and the observations counted
// (the number of pairs for paired-t).
struct PairSide {
    double min = 0.0;
    double max = 0.0;
    long numObs = 0;
    double mean = 0.0;      // of the observations counted
    double variance = 0.0;  // the sample variance (two-sample-t, variances)
};

// One computed pair; "All" pairs are one row per replication.
struct PairRow {
    std::string ident;       // file A's identifier, followed by "@i" under "All"
    double estimate = 0.0;   // difference of the means, or ratio of the variances
    double stdDev = 0.0;     // of the differences (paired-t), the standard error (two-sample-t)
    double halfWidth = 0.0;  // of the interval on the difference
    double lower = 0.0;      // the interval's limits
    double upper = 0.0;
    PairSide a;
    PairSide b;
    bool computed = false;
    int df = 0;  // of the t quantile; the F quantile's are the sides' counts less one
};

struct PairResults {
    std::vector<PairRow> rows;
    // The chart's value range over all intervals, the value the test compares
    // with (0 or 1) always in it.
    double low = 1e20;
    double high = -1e20;
};
