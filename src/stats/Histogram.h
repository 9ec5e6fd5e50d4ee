// Histogram of one data file: counts of observations per cell or, for a
// time-persistent quantity, the time spent in each cell, with the statistics
// printed beside them. A value that moves linearly between two records
// (CSTAT) is split among the cells it crosses in proportion to the time it
// spends in each, so a queue length or a workload gets the distribution an
// observer sampling at random times would see.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

class CRecordReader;

// Cells [start + k width, start + (k + 1) width), k = 0 .. count - 1.
struct HistogramEdges {
    double start = 0.0;
    double width = 1.0;
    int count = 1;

    double Edge(int k) const { return start + k * width; }
};

// What a user gave; NaN (or a count of 0) leaves that part to the data.
struct HistogramParams {
    double start;
    double width;
    int count = 0;
    HistogramParams();
};

struct HistogramCell {
    double lower = 0.0;
    double upper = 0.0;
    double count = 0.0;  // observations, or time
    double relative = 0.0;
    double cumulative = 0.0;  // share below the cell's upper bound, underflow included
};

struct HistogramResult {
    bool timeWeighted = false;
    double n = 0.0;  // observations, or the total time
    double mean = 0.0;
    double sd = 0.0;  // sample (n - 1) for observations; over the time for time-weighted data
    double min = 0.0;
    double max = 0.0;
    HistogramEdges edges;
    std::vector<HistogramCell> cells;
    double below = 0.0;  // observations (or time) below the first cell
    double above = 0.0;  // at or above the last cell's upper bound
    double belowRelative = 0.0;
    double aboveRelative = 0.0;
};

// Counts (or times) per cell and outside the cells.
class CHistogramBins {
public:
    explicit CHistogramBins(const HistogramEdges& edges);

    // The cell of a value: -1 below the first, count at or above the last's upper bound.
    int Cell(double v) const;
    // One observation, or a value held for a time (weight). Inline: called
    // per value. Well inside a cell the scaled value decides alone; near an
    // edge (or outside the cells) Cell compares with the edge itself.
    void Add(double v, double weight = 1.0) {
        const double x = (v - m_edges.start) * m_scale;
        if (x >= 0.0 && x < m_cellCount) {
            const int k = static_cast<int>(x);
            const double f = x - k;
            if (f > 1e-9 && f < 1.0 - 1e-9) {
                m_counts[static_cast<std::size_t>(k)] += weight;
                return;
            }
        }
        AddAt(Cell(v), weight);
    }
    // Observations, each counted once. Consecutive values of simulation
    // output mostly fall into the same cell, and one count updated value
    // after value waits for its own previous store: four sets of whole-number
    // counts, taken in turn, keep four updates in flight.
    void AddAll(const double* v, std::size_t n);
    // A value moving linearly from a to b over the time dt.
    void AddLinear(double a, double b, double dt);

    // Per cell: the weights added and the observations counted.
    std::vector<double> Counts() const;
    double Below() const { return m_below; }
    double Above() const { return m_above; }

private:
    void AddAt(int cell, double weight);

    HistogramEdges m_edges;
    double m_scale;  // 1 / width
    double m_cellCount;
    std::vector<double> m_counts;
    std::vector<std::uint64_t> m_lanes;  // 4 per cell, cell-major
    double m_below = 0.0;
    double m_above = 0.0;
};

// The nearest of 1, 2 and 5 times a power of ten (nearest on a log scale);
// above is true for the smallest such value at or above x. x must be positive.
double hist_NiceWidth(double x, bool above = false);
// Quantile p of values by linear interpolation between order statistics
// (Hyndman and Fan's definition 7); reorders values.
double hist_Quantile(std::vector<double>& values, double p);
// The cells for what a user left open: width by the Freedman-Diaconis rule
// 2 IQR n^(-1/3) (the range over Sturges' count when the IQR is 0), made nice
// and at least 1 for whole-number data; start at a multiple of the width at
// or below the minimum; enough cells to reach the maximum, at most kMaxCells
// (the width grows when it would take more).
inline constexpr int kHistMaxCells = 200;
HistogramEdges hist_DefaultEdges(const HistogramParams& given, double q1, double q3, double n, double min, double max,
                                 bool wholeValues);

// Reads the observations under the treatment (all replications pooled under
// "All"; time weights never span a replication's end there) and fills
// result: one read when the cells are given, two when the data choose them.
// The file's kind chooses the weighting: observations, step (1, 6, 7) or
// linear (2). 0, the reader's positioning and read errors, or 15901 when
// there is nothing to count.
int hist_Compute(CRecordReader& in, int treatment, const HistogramParams& given, HistogramResult* result);
