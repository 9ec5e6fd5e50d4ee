// MSER-5 warm-up detection (White 1997, "An effective truncation heuristic
// for bias reduction in simulation output", Simulation 69(6); Franklin and
// White 2008, WSC): batch means of 5 observations Z(1) .. Z(m), and for
// d = 0 .. floor(m/2)
//
//     MSER(d) = sum over j > d of (Z(j) - mean of Z(d+1..m))^2 / (m - d)^2;
//
// the d that minimises it (the first, on ties) suggests truncating 5d
// observations. The sums of squares are built from the end of the series
// backwards with Welford's update, one batch at a time, so every d costs O(1)
// and no difference of large sums is taken.
#pragma once

#include <vector>

inline constexpr int kMserBatch = 5;

struct MserResult {
    long batches = 0;             // m; leftover observations after the last full batch are not used
    long bestD = -1;              // -1: too few observations (fewer than two batches)
    long truncation = -1;         // 5 * bestD observations, or -1
    std::vector<double> curve;    // MSER(d), d = 0 .. floor(m/2)
};

MserResult mser_Five(const std::vector<double>& y);
// The same from the batch means Z(1) .. Z(m) themselves.
MserResult mser_FromBatchMeans(std::vector<double> z);
