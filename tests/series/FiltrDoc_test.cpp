// Batch/Truncate computation on small files whose batch means, trailing
// stretches and correlation estimates are worked out by hand beside each case.
#include "series/FiltrDoc.h"

#include <gtest/gtest.h>

#include <cmath>
#include <iterator>

#include "ExactSeries.h"
#include "datafile/FileGlobals.h"
#include "framework/Messages.h"
#include "series/FiltrFiles.h"

namespace {

using filtr_test::BatchArgs;
using filtr_test::Pair;
using filtr_test::ReadRecords;
using filtr_test::RunBatch;
using filtr_test::WriteDataFile;

// Records compared to within tol (0: exactly).
::testing::AssertionResult SameRecords(const std::vector<Pair>& got, const std::vector<Pair>& want, double tol = 0) {
    if (got.size() != want.size())
        return ::testing::AssertionFailure() << got.size() << " records, expected " << want.size();
    for (std::size_t i = 0; i < got.size(); ++i)
        if (!(std::fabs(got[i].t - want[i].t) <= tol && std::fabs(got[i].v - want[i].v) <= tol))
            return ::testing::AssertionFailure() << "record " << i << " is (" << got[i].t << ", " << got[i].v
                                                 << "), expected (" << want[i].t << ", " << want[i].v << ")";
    return ::testing::AssertionSuccess();
}

bool operator==(const Pair& a, const Pair& b) { return a.t == b.t && a.v == b.v; }

class Filtr : public ::testing::Test {
protected:
    std::string File(const std::string& name, int kind, const std::vector<Pair>& recs) {
        std::string path = m_dir.Path(name);
        WriteDataFile(path, kind, recs);
        return path;
    }
    std::string Out(const std::string& name) { return m_dir.Path(name); }

    TempDir m_dir;
    filtr_test::ScopedPrecision m_precision{1};
};

// Means of a step (DSTAT) file with records at times 0, 1, ..., n + 1: the
// batch [k, k + 1] of width 1 holds the value set at time k, and it closes
// when the record at k + 2 arrives, so values a0..a(n-1) become n batch means.
std::vector<Pair> StepRecords(const std::vector<double>& means) {
    std::vector<Pair> recs;
    for (std::size_t i = 0; i < means.size(); ++i) recs.push_back({static_cast<double>(i), means[i]});
    recs.push_back({static_cast<double>(means.size()), 0.0});
    recs.push_back({static_cast<double>(means.size() + 1), 0.0});
    recs.push_back({-1, -1});
    return recs;
}

std::vector<Pair> TallyRecords(const std::vector<double>& values) {
    std::vector<Pair> recs;
    for (std::size_t i = 0; i < values.size(); ++i) recs.push_back({static_cast<double>(i + 1), values[i]});
    recs.push_back({-1, -1});
    return recs;
}

std::vector<double> Cycle(int n, int m) {
    std::vector<double> v;
    for (int i = 0; i < n; ++i) v.push_back(i % m);
    return v;
}

constexpr int kAny = -99;  // a result the case leaves unchecked

struct Expect {
    int truncUnit = kAny;
    double truncUsed = kAny, batchUsed = kAny;
    int batches = kAny, trailObs = kAny;
    double trailTime = kAny, cov = kAny;
    int rejectPositive = kAny, rejectNonZero = kAny;
};

struct Case {
    const char* what;
    int kind;
    std::vector<Pair> recs;
    BatchArgs args;         // the test names the file and the output
    Expect r;
    std::vector<Pair> out;  // the output file's records; empty: no output file
};

TEST_F(Filtr, ResultsAndBatchedRecords) {
    // Replication 2 of later.dat starts at time 100.
    const std::vector<Pair> later{{0, 10}, {1, 20}, {2, 30}, {3, 40}, {-1, 0},
                                  {100, 1}, {101, 2}, {102, 3}, {103, 4}, {-2, -1}};
    const std::vector<Pair> noMarker{{1, 1}, {2, 2}, {3, 3}, {4, 4}};
    std::vector<Pair> span20;  // records at 0..20
    for (int i = 0; i <= 20; ++i) span20.push_back({static_cast<double>(i), static_cast<double>(i % 3)});
    span20.push_back({-1, -1});
    const std::vector<Pair> truncTally{{0, 1}, {1, 2}, {2, 3}, {3, 4}, {4, 5}, {-1, -1}};
    const Case cases[] = {
        // DSTAT, W = 2, T = 0. Both time-0 records are truncated; the last one's 5
        // is in force from 0. Batch [0,2]: 5 over [0,1] + 2 over [1,2] = 7, mean 3.5.
        // Batch [2,4]: 2 over [2,3] + 4 over [3,4] = 6, mean 3; the record at 4 lies
        // on the batch end and only the record at 6 closes it. Trailing: 6 - 4 = 2.
        // Means 3.5, 3: S = 0.125, D = 0.25, estimate 1 - 0.25 / 0.25 = 0. DSTAT
        // truncates by time by default.
        {"zero truncation by time", KIND_DSTAT, {{0, 9}, {0, 5}, {1, 2}, {3, 4}, {4, 0}, {6, 1}, {-1, -1}},
         {"", "", "", "", "Time", "2"},
         {.truncUnit = 0, .truncUsed = 0, .batchUsed = 2, .batches = 2, .trailObs = -1, .trailTime = 2, .cov = 0},
         {{1, 3.5}, {3, 3}, {-1, -1}}},
        // CSTAT, W = 2. [0,2]: trapezoid 2 * (2 + 6) / 2 = 8, mean 4. The record at 5
        // closes [2,4]: the line from (2,6) to (5,1) is 8/3 at 4, so the area is
        // 2 * (6 + 8/3) / 2 = 26/3, mean 13/3. [4,6] is still open at the end.
        // Two means always give the estimate 0 (D = 2S).
        {"linear weighting", KIND_CSTAT, {{0, 2}, {2, 6}, {5, 1}, {6, 3}, {-1, -1}}, {"", "", "", "", "T", "2"},
         {.batches = 2, .trailTime = 2, .cov = 0}, {{1, 4}, {3, 13.0 / 3.0}, {-1, -1}}},
        // W = 2: the record at 2 is accumulated into [0,2], which stays open until a
        // later record. With none, no batch is formed and 2 time units trail.
        {"record at the batch end", KIND_DSTAT, {{0, 1}, {2, 3}, {-1, -1}}, {"", "", "", "", "T", "2"},
         {.batches = -1, .trailTime = 2}, {{-1, -1}}},
        // A record at 2.5 closes [0,2] with mean (2 * 1) / 2 = 1 at its midpoint 1;
        // one mean has S = 0, so no estimate is stored. 0.5 trails.
        {"record after the batch end", KIND_DSTAT, {{0, 1}, {2, 3}, {2.5, 0}, {-1, -1}}, {"", "", "", "", "T", "2"},
         {.batches = -1, .trailTime = 0.5, .cov = -1}, {{1, 1}, {-1, -1}}},
        // Batches of one observation: the means are the values.
        // 1..7: mean 4, S = 28, D = 6, estimate 1 - 6/56 = 25/28; no test below 8.
        // 1..8: S = 42, D = 7, estimate 1 - 7/84 = 11/12;
        //       z = (11/12) / sqrt(6/63) = 2.970 > 1.645.
        {"seven batches", KIND_TALLY, TallyRecords({1, 2, 3, 4, 5, 6, 7}), {"", "", "", "", "O", "1"},
         {.batches = 7, .trailObs = 0, .cov = 25.0 / 28.0, .rejectPositive = 0, .rejectNonZero = 0}, {}},
        {"eight batches", KIND_TALLY, TallyRecords({1, 2, 3, 4, 5, 6, 7, 8}), {"", "", "", "", "O", "1"},
         {.batches = 8, .trailObs = 0, .cov = 11.0 / 12.0, .rejectPositive = 1, .rejectNonZero = 0}, {}},
        // A z above 1.96 withdraws the rejection only when batching by time.
        // Means 1,2,3,4,5,6,3,4: sum 28, mean 3.5, sum of squares 116, S = 116 - 98
        // = 18, D = 1+1+1+1+1+9+1 = 15, estimate 1 - 15/36 = 7/12, z = (7/12) /
        // 0.3086 = 1.890, between 1.645 and 1.96.
        {"large z by time", KIND_DSTAT, StepRecords({1, 2, 3, 4, 5, 6, 7, 8}), {"", "", "", "", "Time", "1"},
         {.batches = 8, .cov = 11.0 / 12.0, .rejectPositive = 0, .rejectNonZero = 0}, {}},
        {"moderate z by time", KIND_DSTAT, StepRecords({1, 2, 3, 4, 5, 6, 3, 4}), {"", "", "", "", "Time", "1"},
         {.batches = 8, .cov = 7.0 / 12.0, .rejectPositive = 1, .rejectNonZero = 0}, {}},
        {"moderate z by observations", KIND_TALLY, TallyRecords({1, 2, 3, 4, 5, 6, 3, 4}),
         {"", "", "", "", "Obs", "1"}, {.cov = 7.0 / 12.0, .rejectPositive = 1, .rejectNonZero = 0}, {}},
        // 2.9 observations: batches of 2. (1,1),(2,3) -> (1.5, 2); (3,5),(4,7) ->
        // (3.5, 6); (5,9) trails, one observation spanning 5 - 5 = 0.
        // S = (6 - 2)^2 / 2 = 8, D = 16, estimate 0.
        {"fractional batch size is cut", KIND_TALLY, {{1, 1}, {2, 3}, {3, 5}, {4, 7}, {5, 9}, {-1, -1}},
         {"", "", "", "", "O", "2.9"}, {.batchUsed = 2, .batches = 2, .trailObs = 1, .trailTime = 0, .cov = 0},
         {{1.5, 2}, {3.5, 6}, {-1, -1}}},
        // The default batch forms ten batches of the first replication. 30
        // observations: 3 per batch, none trailing. 25: 2.5 is cut to 2, twelve
        // batches and one trailing. By time, records at 0..20 span 20: W = 2; the
        // record at 20 sits on the end of [18,20], which never closes: nine
        // batches, 2 time units trailing.
        {"default of 30 observations", KIND_TALLY, TallyRecords(Cycle(30, 7)), {"", "", "", "", "O", ""},
         {.batchUsed = 3, .batches = 10, .trailObs = 0}, {}},
        {"default of 25 observations", KIND_TALLY, TallyRecords(Cycle(25, 7)), {"", "", "", "", "O", ""},
         {.batchUsed = 2, .batches = 12, .trailObs = 1}, {}},
        {"default of a span of 20", KIND_DSTAT, span20, {"", "", "", "", "T", "0"},
         {.batchUsed = 2, .batches = 9, .trailTime = 2}, {}},
        // T = 1, W = 1. Replication 1: r = 1; 10 and 20 are truncated, [1,2] holds
        // 20, closed by the record at 3: (1.5, 20). Replication 2 starts at 100, so
        // r = 101: [101,102] holds 2, closed at 103: (101.5, 2). One mean per pass:
        // S = 0. Chosen alone, replication 2 ends with the closing record.
        {"later replications truncate from their own start", KIND_DSTAT, later, {"", "All", "", "1", "T", "1"},
         {.batches = -1, .trailTime = 1}, {{1.5, 20}, {-1, 0}, {101.5, 2}, {-2, -1}}},
        {"replication 2 alone", KIND_DSTAT, later, {"", "2", "", "1", "T", "1"}, {}, {{101.5, 2}, {-1, -1}}},
        // W = 1. Continuing times: [0,1] holds 1 -> (0.5, 1); [1,2] holds 2 ->
        // (1.5, 2) once 2.5 arrives after the boundary; [2,3]: 3 over [2,2.5] + 4
        // over [2.5,3] = 3.5 -> (2.5, 3.5); 1 trails. Means 1, 2, 3.5: S = 17.25 -
        // 6.5^2/3 = 19/6, D = 1 + 2.25 = 3.25, estimate 1 - 3.25 / (19/3) = 37/76.
        {"lumped by time", KIND_DSTAT, {{0, 1}, {1, 2}, {2, 3}, {-1, 0}, {2.5, 4}, {3, 5}, {4, 6}, {-2, -1}},
         {"", "Lumped", "", "", "T", "1"}, {.batches = 3, .trailTime = 1, .cov = 37.0 / 76.0},
         {{0.5, 1}, {1.5, 2}, {2.5, 3.5}, {-1, -1}}},
        // Replication 2 starting at 0.5, before the open batch [1,2]: the pass ends,
        // nothing is stored, the batch already written stays.
        {"lumped by time running back", KIND_DSTAT, {{0, 1}, {1, 2}, {2, 3}, {-1, 0}, {0.5, 4}, {3, 5}, {-2, -1}},
         {"", "Lumped", "", "", "T", "1"}, {.batches = -1, .trailTime = -1}, {{0.5, 1}, {-1, -1}}},
        // B = 2 across the boundary: (1.5, 1.5), (3.5, 3.5); (5, 5) trails.
        {"lumped by observations", KIND_TALLY, {{1, 1}, {2, 2}, {3, 3}, {-1, 0}, {4, 4}, {5, 5}, {-2, -1}},
         {"", "Lumped", "", "", "O", "2"}, {.batches = 2, .trailObs = 1}, {{1.5, 1.5}, {3.5, 3.5}, {-1, -1}}},
        // By time, data ending before the truncation point store nothing: the
        // file holds its header and the closing record.
        {"data ending before the truncation", KIND_DSTAT, {{0, 1}, {1, 2}, {-1, -1}}, {"", "", "", "5", "T", "1"},
         {.truncUsed = -1, .batches = -1, .trailTime = -1, .cov = -1}, {{-1, -1}}},
        // One observation truncated; the skip marker is read over, not copied.
        {"no batching", KIND_TALLY, {{1, 1}, {-1, -2}, {2, 2}, {3, 3}, {-1, -1}}, {"", "", "", "1", "", ""},
         {.truncUsed = 1, .batches = -1, .trailObs = -1, .cov = -1}, {{2, 2}, {3, 3}, {-1, -1}}},
        // Truncation by time 1 drops (0,1) and (1,2); batches of one: 3, 4, 5.
        // S = 2, D = 2, estimate 1 - 2/4 = 0.5. A truncation of 0 drops nothing
        // here (unlike batching by time): means 1..5, S = 10, D = 4, estimate 0.8.
        // 0.5 drops (0,1): means 2..5, S = 5, D = 3, estimate 0.7.
        {"observations truncated by time 1", KIND_TALLY, truncTally, {"", "", "Time", "1", "O", "1"},
         {.truncUsed = 1, .batches = 3, .cov = 0.5}, {}},
        {"observations truncated by time 0", KIND_TALLY, truncTally, {"", "", "Time", "", "O", "1"},
         {.truncUsed = 0, .batches = 5, .cov = 0.8}, {}},
        {"observations truncated by time 0.5", KIND_TALLY, truncTally, {"", "", "Time", "0.5", "O", "1"},
         {.truncUsed = 0.5, .batches = 4, .cov = 0.7}, {}},
        // Observation unit, amount 1: batching by time still drops the records up
        // to time 1. Values 1,2,3,4,0,0 at 0..5: [1,2] = 2, [2,3] = 3, [3,4] = 4.
        {"batching by time truncates by time", KIND_DSTAT, StepRecords({1, 2, 3, 4}),
         {"", "", "Observation", "1", "Time", "1"}, {.truncUnit = 1, .truncUsed = 1},
         {{1.5, 2}, {2.5, 3}, {3.5, 4}, {-1, -1}}},
        // Kind 5 may end without a marker. B = 2: (1.5, 1.5), (3.5, 3.5) and, lumped
        // or a single replication, the closing record.
        {"no end marker", KIND_FILTERED, noMarker, {"", "", "", "", "O", "2"}, {}, {{1.5, 1.5}, {3.5, 3.5}, {-1, -1}}},
        {"no end marker, lumped", KIND_FILTERED, noMarker, {"", "Lumped", "", "", "O", "2"}, {},
         {{1.5, 1.5}, {3.5, 3.5}, {-1, -1}}},
        {"no end marker, all", KIND_FILTERED, noMarker, {"", "All", "", "", "O", "2"}, {}, {{1.5, 1.5}, {3.5, 3.5}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        BatchArgs args = c.args;
        args.file = File("in.dat", c.kind, c.recs);
        if (!c.out.empty()) args.out = Out("out.flt");
        CFiltrDoc doc;
        ASSERT_EQ(RunBatch(doc, args), 0);
        const BatchResults& r = doc.Results();
        auto check = [](const char* name, double got, double want) {
            if (want != kAny) {
                EXPECT_NEAR(got, want, 1e-12) << name;
            }
        };
        check("truncation unit", doc.truncUnit, c.r.truncUnit);
        check("truncation", r.truncUsed, c.r.truncUsed);
        check("batch size", r.batchUsed, c.r.batchUsed);
        check("batches", r.numBatches, c.r.batches);
        check("trailing observations", r.trailingObs, c.r.trailObs);
        check("trailing time", r.trailingTime, c.r.trailTime);
        check("estimate", r.covEstimate, c.r.cov);
        check("rejects positive", r.rejectPositive, c.r.rejectPositive);
        check("rejects non-zero", r.rejectNonZero, c.r.rejectNonZero);
        if (!c.out.empty()) {
            EXPECT_TRUE(SameRecords(ReadRecords(args.out), c.out, 1e-12));
        }
    }
}

TEST_F(Filtr, AllKeepsTheFirstDefaultAndCopiesReplicationEnds) {
    // Replication 1 spans 0..20 (W = 2, nine batches), replication 2 spans
    // 0..40 and is batched with the same W: batches [0,2]..[36,38], nineteen.
    std::vector<Pair> recs;
    for (int i = 0; i <= 20; ++i) recs.push_back({static_cast<double>(i), static_cast<double>(i % 4)});
    recs.push_back({-1, 0});
    for (int i = 0; i <= 40; ++i) recs.push_back({static_cast<double>(i), static_cast<double>(i % 5)});
    recs.push_back({-2, -1});
    CFiltrDoc doc;
    ASSERT_EQ(RunBatch(doc, {File("all.dat", KIND_DSTAT, recs), "All", "", "", "T", "", Out("all.flt")}), 0);
    EXPECT_EQ(doc.Results().batchUsed, 2.0);
    EXPECT_EQ(doc.Results().numBatches, 19);  // the last replication's
    std::vector<Pair> out = ReadRecords(Out("all.flt"));
    ASSERT_EQ(out.size(), 9u + 1u + 19u + 1u);
    EXPECT_TRUE(out[9] == (Pair{-1.0, 0.0}));
    EXPECT_TRUE(out[10] == (Pair{1.0, 0.5}));  // [0,2] of replication 2: values 0 and 1
    EXPECT_TRUE(out.back() == (Pair{-2.0, -1.0}));
}

// A failed run leaves an earlier output file as it was and no temporary file.
TEST_F(Filtr, FailuresLeaveTheOutputAlone) {
    const std::vector<Pair> shortData{{0, 1}, {1, 2}, {-1, -1}};
    const struct {
        const char* what;
        int kind;
        std::vector<Pair> recs;
        BatchArgs args;
        int id;
    } cases[] = {
        // A later replication starting before the last time read, at any boundary.
        {"lumped by observations running back", KIND_TALLY,
         {{1, 1}, {2, 2}, {-1, 0}, {3, 3}, {-2, 0}, {2.5, 4}, {-3, -1}}, {"", "Lumped", "", "", "O", "2"},
         IDS_LUMPED_NOT_ALLOWED},
        // By observations, data ending before the truncation point are an error.
        {"truncated by observations", KIND_DSTAT, shortData, {"", "", "O", "3", "O", "1"}, IDS_NO_OBSERVATIONS_FOUND},
        {"truncated by time", KIND_DSTAT, shortData, {"", "", "T", "5", "O", "1"}, IDS_NO_OBSERVATIONS_FOUND},
        // All records at one time: the default span is 0. One batch by observations
        // has S = 0. Fewer than ten observations make a default batch of 0.
        {"one time", KIND_DSTAT, {{5, 1}, {5, 2}, {5, 3}, {-1, -1}}, {"", "", "", "", "T", ""}, IDS_ZERO_DENOMINATOR},
        {"one batch", KIND_TALLY, {{1, 1}, {2, 2}, {3, 3}, {-1, -1}}, {"", "", "", "", "O", "3"}, IDS_ZERO_DENOMINATOR},
        {"default of no observations", KIND_TALLY, {{1, 1}, {2, 2}, {-1, -1}}, {"", "", "", "", "O", ""},
         IDS_ZERO_DENOMINATOR},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        test_WriteBytes(Out("kept.flt"), "an earlier result");
        BatchArgs args = c.args;
        args.file = File("in.dat", c.kind, c.recs);
        args.out = Out("kept.flt");
        CFiltrDoc doc;
        EXPECT_EQ(RunBatch(doc, args), c.id);
        EXPECT_EQ(test_ReadBytes(Out("kept.flt")), "an earlier result");
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(m_dir.Dir()), {}), 2);
    }
}

// The estimate on the batch means as written, against exact arithmetic: the
// means near 10^9 are integers q in units of 2^-23 about it, and
// 1 - D / (2 S) = 1 - nb sum (q_j - q_j-1)^2 / (2 (nb sum q^2 - (sum q)^2)).
TEST_F(Filtr, EstimateIsExactOnMeansWithALargeOffset) {
    std::vector<double> steps, noisy;
    for (int i = 1; i <= 8; ++i) steps.push_back(1e9 + i);
    for (std::int64_t k : test_IntNoise(400, 15)) noisy.push_back(1e9 + static_cast<double>(k) * test_Ulp(23));
    const struct {
        const char* name;
        std::vector<double> values;
        const char* batch;
    } cases[] = {
        {"means 10^9 + 1 .. 8 (11/12 by hand)", steps, "1"},
        {"10^9 + noise of 2e-6 in batches of 20", noisy, "20"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        CFiltrDoc doc;
        ASSERT_EQ(RunBatch(doc, {File("big.dat", KIND_TALLY, TallyRecords(c.values)), "", "", "", "O", c.batch,
                                 Out("big.flt")}),
                  0);
        std::vector<std::int64_t> q;
        for (const Pair& p : ReadRecords(Out("big.flt"))) {
            if (p.t < 0) continue;
            const double units = (p.v - 1e9) / test_Ulp(23);
            ASSERT_EQ(units, std::floor(units));
            q.push_back(static_cast<std::int64_t>(units));
        }
        const i128 nb = static_cast<i128>(q.size());
        i128 sum = 0, squares = 0, d = 0;
        for (std::size_t j = 0; j < q.size(); ++j) {
            sum += q[j];
            squares += static_cast<i128>(q[j]) * q[j];
            if (j > 0) d += static_cast<i128>(q[j] - q[j - 1]) * (q[j] - q[j - 1]);
        }
        const long double exact = 1.0L - static_cast<long double>(nb * d) / (2.0L * static_cast<long double>(nb * squares - sum * sum));
        EXPECT_NEAR(doc.Results().covEstimate, static_cast<double>(exact), 1e-13);
    }
}

}  // namespace

namespace {

std::string Doubles(std::initializer_list<double> values) {
    std::string bytes;
    for (double d : values) bytes.append(reinterpret_cast<const char*>(&d), sizeof d);
    return bytes;
}

std::string Floats(std::initializer_list<float> values) {
    std::string bytes;
    for (float f : values) bytes.append(reinterpret_cast<const char*>(&f), sizeof f);
    return bytes;
}

TEST_F(Filtr, OutputFileBytes) {
    // Header of kind 205 "Filtered": identifier "QUEUE" padded to 24, the writer
    // name padded to 24, the analysis title, type text padded to 10, the
    // source's reinitialisation flag, the precision flag, five blanks and the
    // count 1 right-aligned in 7, then the version line and Ctrl-Z.
    auto header = [](char reinit, char precision) {
        return std::string("205 \r\n") + "Output file for:QUEUE" + std::string(19, ' ') + " by:QUILLSTAT VIEWR" +
               std::string(9, ' ') + " \r\n" + "Data for:Batched\r\n" + "Run date:Filtered  " + reinit + precision +
               "     " + "      1\r\n" + "File Version: \x07QUILLSTATFMT\r\n\x1a";
    };
    const std::vector<Pair> recs{{0, 9}, {0, 5}, {1, 2}, {3, 4}, {4, 0}, {6, 1}, {-1, -1}};
    {
        std::string src = m_dir.Path("n.dat");
        WriteDataFile(src, KIND_DSTAT, recs, "QUEUE", "Source title", 0);
        CFiltrDoc doc;
        ASSERT_EQ(RunBatch(doc, {src, "", "", "", "T", "2", Out("d.flt"), "Batched"}), 0);
        EXPECT_EQ(test_ReadBytes(Out("d.flt")),
                  header('N', 'D') + Doubles({1.0, 3.5, 3.0, 3.0, -1.0, -1.0}));
    }
    {
        // The writer follows the configuration, not the source's precision.
        std::string src = m_dir.Path("y.dat");
        WriteDataFile(src, KIND_DSTAT, recs, "QUEUE", "Source title", 1);
        filtr_test::ScopedPrecision single(0);
        CFiltrDoc doc;
        ASSERT_EQ(RunBatch(doc, {src, "", "", "", "T", "2", Out("s.flt"), "Batched"}), 0);
        EXPECT_EQ(test_ReadBytes(Out("s.flt")),
                  header('Y', 'S') + Floats({1.0f, 3.5f, 3.0f, 3.0f, -1.0f, -1.0f}));
    }
}

}  // namespace
