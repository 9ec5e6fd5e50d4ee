// The points a graph of a long series needs, gathered as the series streams
// by: consecutive points are grouped in runs, and each run is kept as its
// lowest and highest point in their order, which draw the same pixels as the
// whole run once a run is no wider than a pixel column. The run length
// doubles (neighbouring runs merging) whenever kMaxRuns runs are full, so
// between kMaxRuns / 2 and kMaxRuns runs cover any length, more than any plot
// area has columns, without knowing the length beforehand.
#pragma once

#include <cstddef>
#include <vector>

class CPointReducer {
public:
    static constexpr std::size_t kMaxRuns = 16384;

    // The first point takes the x value first; each next one x + 1.
    explicit CPointReducer(double first = 1.0) : m_first(first) {}

    void Add(const double* v, std::size_t n);
    // The points kept, in order; the lowest and highest values of the series
    // (NaN when there were none).
    void Points(std::vector<double>* xs, std::vector<double>* ys) const;
    double Low() const;
    double High() const;

private:
    struct Run {
        double low, high;
        long lowAt, highAt;  // first points with those values
    };
    void Close();

    double m_first;
    std::vector<Run> m_runs;
    Run m_cur{};
    long m_length = 1;  // points per run
    long m_in = 0;      // points in m_cur
    long m_next = 0;    // index of the next point
};
