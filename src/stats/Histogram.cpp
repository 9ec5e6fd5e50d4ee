#include "stats/Histogram.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "datafile/DataFile.h"
#include "datafile/RecordReader.h"
#include "framework/Messages.h"
#include "stats/Moments.h"

namespace {

constexpr std::size_t kChunk = 4096;

// A stretch of time-persistent data: the value moves from a to b over dt
// (a == b for step weighting).
struct Piece {
    double a;
    double b;
    double dt;
};

// Integrals of v and v^2 over time, relative to the first value so that a
// quantity on a large offset keeps its spread.
struct TimeSums {
    bool hasRef = false;
    double ref = 0.0;
    double time = 0.0;
    double s1 = 0.0;
    double s2 = 0.0;

    void Add(const Piece& p) {
        const double a = p.a - ref;
        const double b = p.b - ref;
        time += p.dt;
        s1 += 0.5 * (a + b) * p.dt;
        s2 += (a * a + a * b + b * b) / 3.0 * p.dt;
    }
};

// The last cell whose lower edge is at or below v, counted from start.
int LastEdgeAtOrBelow(double v, double start, double width) {
    double k = std::floor((v - start) / width);
    if (start + (k + 1.0) * width <= v) k += 1.0;
    if (start + k * width > v) k -= 1.0;
    return k > kHistMaxCells ? kHistMaxCells + 1 : static_cast<int>(k);
}

// Cells from start that reach max, at least one.
int CellsToReach(double start, double width, double max) {
    if (!(max >= start)) return 1;
    return LastEdgeAtOrBelow(max, start, width) + 1;
}

double StartAtOrBelow(double min, double width) {
    double start = std::floor(min / width) * width;
    if (start > min) start -= width;
    return start;
}

}  // namespace

HistogramParams::HistogramParams()
    : start(std::numeric_limits<double>::quiet_NaN()), width(std::numeric_limits<double>::quiet_NaN()) {}

CHistogramBins::CHistogramBins(const HistogramEdges& edges)
    : m_edges(edges),
      m_scale(1.0 / edges.width),
      m_cellCount(edges.count),
      m_counts(static_cast<std::size_t>(std::max(edges.count, 0)), 0.0) {}

int CHistogramBins::Cell(double v) const {
    const int n = m_edges.count;
    if (std::isnan(v)) return n;
    if (v < m_edges.start) return -1;
    const double x = (v - m_edges.start) * m_scale;
    if (!(x < n + 1.0)) return n;
    int k = static_cast<int>(x);
    // The product can land one cell off an edge written as start + k width.
    if (k > 0 && v < m_edges.Edge(k))
        --k;
    else if (v >= m_edges.Edge(k + 1))
        ++k;
    return std::min(k, n);
}

void CHistogramBins::AddAll(const double* v, std::size_t n) {
    if (m_lanes.empty()) m_lanes.assign(4 * m_counts.size(), 0);
    std::uint64_t* lanes = m_lanes.data();
    const double start = m_edges.start, scale = m_scale, cells = m_cellCount;
    for (std::size_t i = 0; i < n; ++i) {
        const double x = (v[i] - start) * scale;
        if (x >= 0.0 && x < cells) {
            const int k = static_cast<int>(x);
            const double f = x - k;
            // x of exactly 0 is a value exactly at the start (waits of 0 are common).
            if ((f > 1e-9 && f < 1.0 - 1e-9) || x == 0.0) {
                ++lanes[4 * static_cast<std::size_t>(k) + (i & 3)];
                continue;
            }
        }
        AddAt(Cell(v[i]), 1.0);
    }
}

std::vector<double> CHistogramBins::Counts() const {
    std::vector<double> c = m_counts;
    for (std::size_t k = 0; k < c.size() && !m_lanes.empty(); ++k)
        c[k] += static_cast<double>(m_lanes[4 * k] + m_lanes[4 * k + 1] + m_lanes[4 * k + 2] + m_lanes[4 * k + 3]);
    return c;
}

void CHistogramBins::AddAt(int k, double weight) {
    if (k < 0)
        m_below += weight;
    else if (k >= m_edges.count)
        m_above += weight;
    else
        m_counts[static_cast<std::size_t>(k)] += weight;
}

void CHistogramBins::AddLinear(double a, double b, double dt) {
    if (a == b || !std::isfinite(a) || !std::isfinite(b)) {
        Add(a, dt);
        return;
    }
    const double lo = std::min(a, b);
    const double hi = std::max(a, b);
    const double rate = dt / (hi - lo);  // time per unit of value
    const double first = m_edges.start;
    const double last = m_edges.Edge(m_edges.count);
    if (lo < first) m_below += (std::min(hi, first) - lo) * rate;
    if (hi > last) m_above += (hi - std::max(lo, last)) * rate;
    if (hi <= first || lo >= last) return;
    const int k0 = std::max(Cell(lo), 0);
    const int k1 = std::min(Cell(hi), m_edges.count - 1);
    for (int k = k0; k <= k1; ++k) {
        const double overlap = std::min(hi, m_edges.Edge(k + 1)) - std::max(lo, m_edges.Edge(k));
        if (overlap > 0.0) m_counts[static_cast<std::size_t>(k)] += overlap * rate;
    }
}

double hist_NiceWidth(double x, bool above) {
    const double decade = std::pow(10.0, std::floor(std::log10(x)));
    const double f = x / decade;
    if (above) {
        // A hair of tolerance: x that is already nice stays as it is.
        for (double m : {1.0, 2.0, 5.0})
            if (f <= m * (1.0 + 1e-12)) return m * decade;
        return 10.0 * decade;
    }
    // Midpoints on a log scale: sqrt(2), sqrt(10), sqrt(50).
    if (f < 1.4142135623730951) return decade;
    if (f < 3.1622776601683795) return 2.0 * decade;
    if (f < 7.0710678118654755) return 5.0 * decade;
    return 10.0 * decade;
}

double hist_Quantile(std::vector<double>& values, double p) {
    if (values.empty()) return 0.0;
    const double h = (static_cast<double>(values.size()) - 1.0) * p;
    const std::size_t lo = static_cast<std::size_t>(std::floor(h));
    auto at = values.begin() + static_cast<std::ptrdiff_t>(lo);
    std::nth_element(values.begin(), at, values.end());
    const double x = *at;
    if (lo + 1 >= values.size()) return x;
    const double next = *std::min_element(at + 1, values.end());
    return x + (h - static_cast<double>(lo)) * (next - x);
}

HistogramEdges hist_DefaultEdges(const HistogramParams& given, double q1, double q3, double n, double min, double max,
                                 bool wholeValues) {
    HistogramEdges e;
    const bool startGiven = !std::isnan(given.start);
    const bool widthGiven = given.width > 0.0;
    double width = given.width;
    if (!widthGiven) {
        const double from = startGiven ? given.start : min;
        double raw = 0.0;
        if (given.count > 0) {
            // A given count asks for cells that hold the data.
            raw = (max - from) / given.count;
            if (raw > 0.0) raw = hist_NiceWidth(raw, true);
        } else {
            raw = 2.0 * (q3 - q1) / std::cbrt(n);
            if (!(raw > 0.0)) raw = (max - min) / std::ceil(std::log2(n) + 1.0);
            if (raw > 0.0) raw = hist_NiceWidth(raw);
        }
        width = raw > 0.0 && std::isfinite(raw) ? raw : 1.0;
        // Whole-number data (a queue length) would leave every other cell empty.
        if (wholeValues && width < 1.0) width = 1.0;
    }
    for (;;) {
        e.width = width;
        e.start = startGiven ? given.start : StartAtOrBelow(min, width);
        e.count = given.count > 0 ? given.count : CellsToReach(e.start, width, max);
        if (e.count <= kHistMaxCells) break;
        if (widthGiven) {
            e.count = kHistMaxCells;
            break;
        }
        width = hist_NiceWidth(width * 1.5, true);
    }
    return e;
}

namespace {

// Every stride-th value seen, the stride doubling whenever the sample fills:
// the quartiles that choose a cell width need no more than a sample, and the
// sample is the whole data up to kSampleMax values.
constexpr std::size_t kSampleMax = std::size_t{1} << 17;

struct StridedSample {
    std::vector<double> values;
    std::size_t stride = 1;
    std::size_t seen = 0;

    void Add(const double* v, std::size_t n) {
        for (std::size_t i = 0; i < n; ++i, ++seen) {
            if (seen % stride != 0) continue;
            values.push_back(v[i]);
            if (values.size() == kSampleMax) {
                for (std::size_t k = 0; 2 * k < values.size(); ++k) values[k] = values[2 * k];
                values.resize(kSampleMax / 2);
                stride *= 2;
            }
        }
    }
};

// One read of the treatment's observations: runs of values go to onValues;
// for time-persistent data the records' values go there too, and each
// stretch of time between two records to onPiece. Under "All" a value's time
// ends with its replication; a record not after the previous adds no time.
template <class OnValues, class OnPiece>
int ReadPass(CRecordReader& in, int treatment, bool timeWeighted, bool linear, OnValues onValues, OnPiece onPiece) {
    if (int rc = in.Start(treatment)) return rc;
    double times[kChunk];
    double values[kChunk];
    do {
        bool started = false;
        double tp = 0.0, vp = 0.0;
        while (const std::size_t got = in.NextObsRun(timeWeighted ? times : nullptr, values, kChunk)) {
            onValues(values, got);
            if (!timeWeighted) continue;
            for (std::size_t i = 0; i < got; ++i) {
                const double t = times[i], v = values[i];
                if (started && t > tp) onPiece(Piece{vp, linear ? v : vp, t - tp});
                started = true;
                tp = t;
                vp = v;
            }
        }
        if (in.PassEnd() == RecordKind::Error) return IDS_READ_ERROR;
    } while (treatment == REP_ALL && in.NextReplication());
    return 0;
}

void AddPiece(CHistogramBins& bins, const Piece& p, bool linear) {
    if (linear)
        bins.AddLinear(p.a, p.b, p.dt);
    else
        bins.Add(p.a, p.dt);
}

}  // namespace

int hist_Compute(CRecordReader& in, int treatment, const HistogramParams& given, HistogramResult* r) {
    *r = HistogramResult{};
    const int kind = in.Kind();
    const bool timeWeighted = op_IsTimePersistent(kind);
    const bool linear = kind == KIND_CSTAT;
    const bool settled = !std::isnan(given.start) && given.width > 0.0 && given.count > 0;

    // Cells given: one pass counts and sums. Cells to choose: the first pass
    // sums and samples, a second counts; a second read of the file costs
    // less than holding every value.
    std::optional<CHistogramBins> bins;
    if (settled) bins.emplace(HistogramEdges{given.start, given.width, given.count});
    StridedSample sample;
    CMoments moments;
    TimeSums sums;
    int rc = ReadPass(
        in, treatment, timeWeighted, linear,
        [&](const double* v, std::size_t n) {
            moments.AddAll(v, n);
            if (!settled) sample.Add(v, n);
            if (bins && !timeWeighted) bins->AddAll(v, n);
        },
        [&](const Piece& p) {
            if (!sums.hasRef && std::isfinite(p.a)) {
                sums.hasRef = true;
                sums.ref = p.a;
            }
            sums.Add(p);
            if (bins) AddPiece(*bins, p, linear);
        });
    if (rc) return rc;

    r->timeWeighted = timeWeighted;
    r->min = moments.Min();
    r->max = moments.Max();
    if (timeWeighted) {
        if (!(sums.time > 0.0)) return IDS_NO_OBSERVATIONS;
        const double m1 = sums.s1 / sums.time;
        r->n = sums.time;
        r->mean = sums.ref + m1;
        r->sd = std::sqrt(std::max(0.0, sums.s2 / sums.time - m1 * m1));
    } else {
        if (moments.Count() == 0) return IDS_NO_OBSERVATIONS;
        r->n = static_cast<double>(moments.Count());
        r->mean = moments.Mean();
        r->sd = std::sqrt(moments.Variance());
    }

    if (settled) {
        r->edges = HistogramEdges{given.start, given.width, given.count};
    } else {
        std::vector<double>& values = sample.values;
        const bool whole = std::all_of(values.begin(), values.end(), [](double x) { return x == std::floor(x); });
        const double q1 = hist_Quantile(values, 0.25);
        const double q3 = hist_Quantile(values, 0.75);
        r->edges = hist_DefaultEdges(given, q1, q3, static_cast<double>(moments.Count()), r->min, r->max, whole);
        bins.emplace(r->edges);
        rc = ReadPass(
            in, treatment, timeWeighted, linear,
            [&](const double* v, std::size_t n) {
                if (!timeWeighted) bins->AddAll(v, n);
            },
            [&](const Piece& p) { AddPiece(*bins, p, linear); });
        if (rc) return rc;
    }

    const double total = r->n;
    r->below = bins->Below();
    r->above = bins->Above();
    r->belowRelative = r->below / total;
    r->aboveRelative = r->above / total;
    double cumulative = r->below;
    const std::vector<double> counts = bins->Counts();
    for (int k = 0; k < r->edges.count; ++k) {
        HistogramCell c;
        c.lower = r->edges.Edge(k);
        c.upper = r->edges.Edge(k + 1);
        c.count = counts[static_cast<std::size_t>(k)];
        cumulative += c.count;
        c.relative = c.count / total;
        c.cumulative = cumulative / total;
        r->cells.push_back(c);
    }
    return 0;
}
