// The histogram: counts against numpy.histogram on the same edges, the
// default cells from the Freedman-Diaconis rule, and time-weighted
// proportions of a step and a linear series worked out by hand.
#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

#include "TestFiles.h"
#include "datafile/FileGlobals.h"
#include "datafile/RecordReader.h"
#include "stats/Histogram.h"

namespace {

HistogramParams Given(double start, double width, int count) {
    HistogramParams p;
    p.start = start;
    p.width = width;
    p.count = count;
    return p;
}

std::vector<Rec> Observations(const std::vector<double>& values) {
    std::vector<Rec> recs;
    for (double v : values) recs.push_back({static_cast<double>(recs.size()), v});
    recs.push_back({-1.0, -1.0});
    return recs;
}

HistogramResult Histogram(const std::string& path, int treatment, const HistogramParams& p) {
    CRecordReader in;
    EXPECT_EQ(in.Open(path), 0);
    HistogramResult r;
    EXPECT_EQ(hist_Compute(in, treatment, p, &r), 0);
    return r;
}

std::vector<double> Counts(const HistogramResult& r) {
    std::vector<double> c;
    for (const HistogramCell& cell : r.cells) c.push_back(cell.count);
    return c;
}

double TotalShare(const HistogramResult& r) {
    double s = r.belowRelative + r.aboveRelative;
    for (const HistogramCell& c : r.cells) s += c.relative;
    return s;
}

// Values at and beside the edges, below the first and at the last upper bound.
const std::vector<double> kValues = {0.2,  1.0, 1.1, 1.4,  1.7, 2.5,  2.6, 2.9, 3.3,  3.99,
                                     -0.5, 4.0, 4.7, 0.0, 0.49, 0.5, 1.99, 2.0, 2.24, 3.75};

TEST(HistogramTest, ObservationCounts) {
    TempDir dir;
    test_WriteDataFile(dir.Path("x.dat"), {}, Observations(kValues));
    struct Case {
        HistogramParams given;
        std::vector<double> counts;
        double below, above;
        HistogramEdges edges;
    };
    // numpy 1.24: np.histogram(x, bins=np.arange(0, 4.01, 0.5)) gives
    // [3, 1, 3, 2, 2, 3, 1, 3]; numpy closes its last bin, so 4.0 counts there
    // and here lies at the last upper bound (above). Defaults: np.percentile(x,
    // [25, 75]) = 0.875, 3.0; 2 * 2.125 / 20^(1/3) = 1.566, made 2; start -2,
    // four cells to reach 4.7; counts by hand.
    const Case cases[] = {
        {Given(0.0, 0.5, 8), {3, 1, 3, 2, 2, 3, 1, 2}, 1, 2, {0.0, 0.5, 8}},
        {HistogramParams{}, {1, 9, 8, 2}, 0, 0, {-2.0, 2.0, 4}},
    };
    for (const Case& c : cases) {
        HistogramResult r = Histogram(dir.Path("x.dat"), REP_FIRST, c.given);
        EXPECT_FALSE(r.timeWeighted);
        EXPECT_EQ(Counts(r), c.counts);
        EXPECT_EQ(r.below, c.below);
        EXPECT_EQ(r.above, c.above);
        EXPECT_EQ(r.edges.start, c.edges.start);
        EXPECT_EQ(r.edges.width, c.edges.width);
        EXPECT_EQ(r.edges.count, c.edges.count);
        EXPECT_NEAR(TotalShare(r), 1.0, 1e-12);
        EXPECT_NEAR(r.cells.back().cumulative + r.aboveRelative, 1.0, 1e-12);
    }
    // numpy: x.mean() = 1.993, x.std(ddof=1) = 1.4825195481093378.
    HistogramResult r = Histogram(dir.Path("x.dat"), REP_FIRST, HistogramParams{});
    EXPECT_EQ(r.n, 20.0);
    EXPECT_NEAR(r.mean, 1.993, 1e-12);
    EXPECT_NEAR(r.sd, 1.4825195481093378, 1e-12);
    EXPECT_EQ(r.min, -0.5);
    EXPECT_EQ(r.max, 4.7);
}

TEST(HistogramTest, TimeWeighted) {
    TempDir dir;
    struct Case {
        int kind;
        std::vector<std::vector<Rec>> reps;
        HistogramParams given;
        std::vector<double> times;
        double below, above, total, mean, sd;
    };
    // Step (DSTAT): 0 for 2, 1 for 1, 3 for 4, 1 for 3; the last value holds no
    // time. Mean 16 / 10, E[v^2] = 40 / 10, sd sqrt(4 - 2.56) = 1.2.
    // Linear (CSTAT): 0 -> 4 over 4 (one time unit per unit of value), 4 -> 0
    // over 2 (half a unit); cells from 0.5 wide 1: each gets 1 + 0.5; below
    // 0.5 + 0.25, above 3.5 likewise. Mean (8 + 4) / 6 = 2; E[v^2] =
    // (64/3 + 32/3) / 6 = 16/3, sd sqrt(4/3).
    // Under All a value's time ends with its replication: 5 for 2 in the
    // first, 7 for 1 and 8 for 3 in the second.
    const Case cases[] = {
        {KIND_DSTAT, {{{0, 0}, {2, 1}, {3, 3}, {7, 1}, {10, 2}}}, Given(0, 1, 4), {2, 4, 0, 4}, 0, 0, 10, 1.6, 1.2},
        {KIND_CSTAT, {{{0, 0}, {4, 4}, {6, 0}}}, Given(0.5, 1, 3), {1.5, 1.5, 1.5}, 0.75, 0.75, 6, 2.0,
         std::sqrt(4.0 / 3.0)},
        {KIND_DSTAT, {{{0, 5}, {2, 6}}, {{0, 7}, {1, 8}, {4, 1}}}, Given(5, 1, 4), {2, 0, 1, 3}, 0, 0, 6,
         (10 + 7 + 24) / 6.0, std::sqrt((50 + 49 + 192) / 6.0 - std::pow(41 / 6.0, 2))},
    };
    for (const Case& c : cases) {
        HeaderFields h;
        h.kind = c.kind;
        test_WriteDataFile(dir.Path("tp.dat"), h, test_Replications(c.reps));
        HistogramResult r = Histogram(dir.Path("tp.dat"), c.reps.size() > 1 ? REP_ALL : REP_FIRST, c.given);
        EXPECT_TRUE(r.timeWeighted);
        ASSERT_EQ(r.cells.size(), c.times.size());
        for (std::size_t k = 0; k < c.times.size(); ++k) {
            EXPECT_NEAR(r.cells[k].count, c.times[k], 1e-12) << "cell " << k;
            EXPECT_NEAR(r.cells[k].relative, c.times[k] / c.total, 1e-12) << "cell " << k;
        }
        EXPECT_NEAR(r.below, c.below, 1e-12);
        EXPECT_NEAR(r.above, c.above, 1e-12);
        EXPECT_EQ(r.n, c.total);
        EXPECT_NEAR(r.mean, c.mean, 1e-12);
        EXPECT_NEAR(r.sd, c.sd, 1e-12);
        EXPECT_NEAR(TotalShare(r), 1.0, 1e-12);
    }
}

TEST(HistogramTest, DefaultCells) {
    struct Case {
        double raw;
        bool above;
        double nice;
    };
    // Nearest on a log scale: the midpoints are sqrt(2), sqrt(10), sqrt(50).
    const Case nice[] = {{0.756, false, 1.0},  {1.5, false, 2.0}, {3.2, false, 5.0}, {7.2, false, 10.0},
                         {0.0013, false, 0.001}, {1.2, true, 2.0}, {2.0, true, 2.0},  {5.01, true, 10.0}};
    for (const Case& c : nice) EXPECT_DOUBLE_EQ(hist_NiceWidth(c.raw, c.above), c.nice) << c.raw;

    // Whole-number data keep cells at least 1 wide; more than 200 cells
    // widen the cells: FD width 2 * 2 / 1000^(1/3) = 0.4 -> 1; 0..999 would
    // take 1000 cells of 1, so the width steps to 2 and then 5 (200 cells).
    HistogramEdges e = hist_DefaultEdges(HistogramParams{}, 1.0, 3.0, 1000.0, 0.0, 999.0, true);
    EXPECT_EQ(e.width, 5.0);
    EXPECT_EQ(e.start, 0.0);
    EXPECT_EQ(e.count, 200);
    // A given count takes the nice width at or above range / count.
    HistogramParams cells;
    cells.count = 4;
    e = hist_DefaultEdges(cells, 0.0, 0.0, 10.0, 0.3, 7.7, false);
    EXPECT_EQ(e.width, 2.0);
    EXPECT_EQ(e.start, 0.0);
    // Constant data: cells 1 wide, one cell.
    e = hist_DefaultEdges(HistogramParams{}, 4.0, 4.0, 3.0, 4.0, 4.0, false);
    EXPECT_EQ(e.width, 1.0);
    EXPECT_EQ(e.start, 4.0);
    EXPECT_EQ(e.count, 1);
}

}  // namespace
