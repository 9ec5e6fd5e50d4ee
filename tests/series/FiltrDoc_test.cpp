// Batch/Truncate computation on small files whose batch means, trailing
// stretches and correlation estimates are worked out by hand beside each case.
#include "series/FiltrDoc.h"

#include <gtest/gtest.h>

#include <cmath>

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
        std::string path = m_dir / name;
        WriteDataFile(path, kind, recs);
        return path;
    }
    std::string Out(const std::string& name) { return m_dir / name; }

    filtr_test::ScratchDir m_dir;
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

TEST_F(Filtr, TruncationZeroByTimeSkipsTimeZeroRecords) {
    // DSTAT, W = 2, T = 0. Both time-0 records are truncated; the last one's 5
    // is in force from 0. Batch [0,2]: 5 over [0,1] + 2 over [1,2] = 7, mean 3.5.
    // Batch [2,4]: 2 over [2,3] + 4 over [3,4] = 6, mean 3; the record at 4 lies
    // on the batch end and only the record at 6 closes it. Trailing: 6 - 4 = 2.
    // Means 3.5, 3: S = 0.125, D = 0.25, estimate 1 - 0.25 / 0.25 = 0.
    std::string src = File("q.dat", KIND_DSTAT, {{0, 9}, {0, 5}, {1, 2}, {3, 4}, {4, 0}, {6, 1}, {-1, -1}});
    CFiltrDoc doc;
    ASSERT_EQ(RunBatch(doc, {src, "", "", "", "Time", "2", Out("q.flt")}), 0);
    EXPECT_EQ(doc.truncUnit, 0);  // DSTAT truncates by time by default
    EXPECT_EQ(doc.Results().numBatches, 2);
    EXPECT_EQ(doc.Results().truncUsed, 0.0);
    EXPECT_EQ(doc.Results().batchUsed, 2.0);
    EXPECT_EQ(doc.Results().trailingTime, 2.0);
    EXPECT_EQ(doc.Results().trailingObs, -1);
    EXPECT_EQ(doc.Results().covEstimate, 0.0);
    EXPECT_TRUE(SameRecords(ReadRecords(Out("q.flt")), {{1.0, 3.5}, {3.0, 3.0}, {-1.0, -1.0}}));
}

TEST_F(Filtr, LinearWeightingInterpolatesAtBatchEnds) {
    // CSTAT, W = 2. [0,2]: trapezoid 2 * (2 + 6) / 2 = 8, mean 4. The record at 5
    // closes [2,4]: the line from (2,6) to (5,1) is 8/3 at 4, so the area is
    // 2 * (6 + 8/3) / 2 = 26/3, mean 13/3. [4,6] is still open at the end.
    // Two means always give the estimate 0 (D = 2S).
    std::string src = File("w.dat", KIND_CSTAT, {{0, 2}, {2, 6}, {5, 1}, {6, 3}, {-1, -1}});
    CFiltrDoc doc;
    ASSERT_EQ(RunBatch(doc, {src, "", "", "", "T", "2", Out("w.flt")}), 0);
    EXPECT_EQ(doc.Results().numBatches, 2);
    EXPECT_EQ(doc.Results().trailingTime, 2.0);
    EXPECT_NEAR(doc.Results().covEstimate, 0.0, 1e-14);
    EXPECT_TRUE(SameRecords(ReadRecords(Out("w.flt")), {{1.0, 4.0}, {3.0, 13.0 / 3.0}, {-1.0, -1.0}}, 1e-12));
}

TEST_F(Filtr, RecordAtTheBatchEndDoesNotCloseIt) {
    // W = 2: the record at 2 is accumulated into [0,2], which stays open until a
    // later record. With none, no batch is formed and 2 time units trail.
    CFiltrDoc open;
    ASSERT_EQ(RunBatch(open, {File("a.dat", KIND_DSTAT, {{0, 1}, {2, 3}, {-1, -1}}), "", "", "", "T", "2",
                              Out("a.flt")}),
              0);
    EXPECT_EQ(open.Results().trailingTime, 2.0);
    EXPECT_EQ(open.Results().numBatches, -1);
    EXPECT_TRUE(SameRecords(ReadRecords(Out("a.flt")), {{-1.0, -1.0}}));

    // A record at 2.5 closes [0,2] with mean (2 * 1) / 2 = 1 at its midpoint 1;
    // one mean has S = 0, so no estimate is stored. 0.5 trails.
    CFiltrDoc closed;
    ASSERT_EQ(RunBatch(closed, {File("b.dat", KIND_DSTAT, {{0, 1}, {2, 3}, {2.5, 0}, {-1, -1}}), "", "", "", "T",
                                "2", Out("b.flt")}),
              0);
    EXPECT_EQ(closed.Results().trailingTime, 0.5);
    EXPECT_EQ(closed.Results().numBatches, -1);
    EXPECT_EQ(closed.Results().covEstimate, -1.0);
    EXPECT_TRUE(SameRecords(ReadRecords(Out("b.flt")), {{1.0, 1.0}, {-1.0, -1.0}}));
}

TEST_F(Filtr, SevenBatchesEstimateOnlyEightAlsoTest) {
    // Batches of one observation: the means are the values.
    // 1..7: mean 4, S = 28, D = 6, estimate 1 - 6/56 = 25/28; no test below 8.
    // 1..8: S = 42, D = 7, estimate 1 - 7/84 = 11/12;
    //       z = (11/12) / sqrt(6/63) = 2.970 > 1.645.
    const struct {
        int n;
        double estimate;
        int reject;
    } cases[] = {{7, 25.0 / 28.0, 0}, {8, 11.0 / 12.0, 1}};
    for (const auto& c : cases) {
        std::vector<double> values;
        for (int i = 1; i <= c.n; ++i) values.push_back(i);
        CFiltrDoc doc;
        ASSERT_EQ(RunBatch(doc, {File("t.dat", KIND_TALLY, TallyRecords(values)), "", "", "", "O", "1"}), 0);
        EXPECT_EQ(doc.Results().numBatches, c.n);
        EXPECT_NEAR(doc.Results().covEstimate, c.estimate, 1e-15);
        EXPECT_EQ(doc.Results().rejectPositive, c.reject);
        EXPECT_EQ(doc.Results().rejectNonZero, 0);
        EXPECT_EQ(doc.Results().trailingObs, 0);
    }
}

TEST_F(Filtr, LargeZWithdrawsTheRejectionOnlyWhenBatchingByTime) {
    // Means 1..8: z = 2.970 (above). Means 1,2,3,4,5,6,3,4: sum 28, mean 3.5,
    // sum of squares 116, S = 116 - 98 = 18, D = 1+1+1+1+1+9+1 = 15, estimate
    // 1 - 15/36 = 7/12, z = (7/12) / 0.3086 = 1.890, between 1.645 and 1.96.
    const std::vector<double> steady{1, 2, 3, 4, 5, 6, 7, 8};
    const std::vector<double> moderate{1, 2, 3, 4, 5, 6, 3, 4};
    const struct {
        const std::vector<double>* means;
        double estimate;
        int byTime, byObs;
    } cases[] = {{&steady, 11.0 / 12.0, 0, 1}, {&moderate, 7.0 / 12.0, 1, 1}};
    for (const auto& c : cases) {
        CFiltrDoc time;
        ASSERT_EQ(RunBatch(time, {File("s.dat", KIND_DSTAT, StepRecords(*c.means)), "", "", "", "Time", "1"}), 0);
        EXPECT_EQ(time.Results().numBatches, 8);
        EXPECT_NEAR(time.Results().covEstimate, c.estimate, 1e-15);
        EXPECT_EQ(time.Results().rejectPositive, c.byTime);

        CFiltrDoc obs;
        ASSERT_EQ(RunBatch(obs, {File("o.dat", KIND_TALLY, TallyRecords(*c.means)), "", "", "", "Obs", "1"}), 0);
        EXPECT_NEAR(obs.Results().covEstimate, c.estimate, 1e-15);
        EXPECT_EQ(obs.Results().rejectPositive, c.byObs);
        EXPECT_EQ(time.Results().rejectNonZero + obs.Results().rejectNonZero, 0);
    }
}

TEST_F(Filtr, FractionalBatchSizeIsCutNotRounded) {
    // 2.9 observations: batches of 2. (1,1),(2,3) -> (1.5, 2); (3,5),(4,7) ->
    // (3.5, 6); (5,9) trails, one observation spanning 5 - 5 = 0.
    // S = (6 - 2)^2 / 2 = 8, D = 16, estimate 0.
    std::string src = File("f.dat", KIND_TALLY, {{1, 1}, {2, 3}, {3, 5}, {4, 7}, {5, 9}, {-1, -1}});
    CFiltrDoc doc;
    ASSERT_EQ(RunBatch(doc, {src, "", "", "", "O", "2.9", Out("f.flt")}), 0);
    EXPECT_EQ(doc.Results().batchUsed, 2.0);
    EXPECT_EQ(doc.Results().numBatches, 2);
    EXPECT_EQ(doc.Results().trailingObs, 1);
    EXPECT_EQ(doc.Results().trailingTime, 0.0);
    EXPECT_EQ(doc.Results().covEstimate, 0.0);
    EXPECT_TRUE(SameRecords(ReadRecords(Out("f.flt")), {{1.5, 2.0}, {3.5, 6.0}, {-1.0, -1.0}}));
}

TEST_F(Filtr, DefaultBatchSizeFormsTenBatchesOfTheFirstReplication) {
    auto values = [](int n) {
        std::vector<double> v;
        for (int i = 0; i < n; ++i) v.push_back(i % 7);
        return v;
    };
    // 30 observations: 30 / 10 = 3 per batch, ten batches, none trailing.
    // 25 observations: 2.5 is cut to 2: twelve batches and one trailing.
    const struct {
        int n;
        double perBatch;
        int batches, trailing;
    } byObs[] = {{30, 3.0, 10, 0}, {25, 2.0, 12, 1}};
    for (const auto& c : byObs) {
        CFiltrDoc doc;
        ASSERT_EQ(RunBatch(doc, {File("d.dat", KIND_TALLY, TallyRecords(values(c.n))), "", "", "", "O", ""}), 0);
        EXPECT_EQ(doc.Results().batchUsed, c.perBatch);
        EXPECT_EQ(doc.Results().numBatches, c.batches);
        EXPECT_EQ(doc.Results().trailingObs, c.trailing);
    }
    // By time, records at 0..20 span 20: W = 2. The record at 20 sits on the end
    // of [18,20], which never closes: nine batches, 2 time units trailing.
    std::vector<Pair> recs;
    for (int i = 0; i <= 20; ++i) recs.push_back({static_cast<double>(i), static_cast<double>(i % 3)});
    recs.push_back({-1, -1});
    CFiltrDoc doc;
    ASSERT_EQ(RunBatch(doc, {File("e.dat", KIND_DSTAT, recs), "", "", "", "T", "0"}), 0);
    EXPECT_EQ(doc.Results().batchUsed, 2.0);
    EXPECT_EQ(doc.Results().numBatches, 9);
    EXPECT_EQ(doc.Results().trailingTime, 2.0);
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

TEST_F(Filtr, LaterReplicationTruncatesFromItsOwnStart) {
    // T = 1, W = 1. Replication 1: r = 1; 10 and 20 are truncated, [1,2] holds
    // 20, closed by the record at 3: (1.5, 20). Replication 2 starts at 100, so
    // r = 101: [101,102] holds 2, closed at 103: (101.5, 2).
    std::string src = File("r.dat", KIND_DSTAT,
                           {{0, 10}, {1, 20}, {2, 30}, {3, 40}, {-1, 0}, {100, 1}, {101, 2}, {102, 3}, {103, 4},
                            {-2, -1}});
    CFiltrDoc all;
    ASSERT_EQ(RunBatch(all, {src, "All", "", "1", "T", "1", Out("r.flt")}), 0);
    EXPECT_TRUE(SameRecords(ReadRecords(Out("r.flt")), {{1.5, 20.0}, {-1.0, 0.0},
                                                                  {101.5, 2.0}, {-2.0, -1.0}}));
    EXPECT_EQ(all.Results().trailingTime, 1.0);
    EXPECT_EQ(all.Results().numBatches, -1);  // one mean per pass: S = 0

    // The same holds for replication 2 chosen alone, which ends with the closing record.
    CFiltrDoc one;
    ASSERT_EQ(RunBatch(one, {src, "2", "", "1", "T", "1", Out("r2.flt")}), 0);
    EXPECT_TRUE(SameRecords(ReadRecords(Out("r2.flt")), {{101.5, 2.0}, {-1.0, -1.0}}));
}

TEST_F(Filtr, LumpedByTimeGoesOnOnlyWhileTimeDoesNotRunBack) {
    // W = 1. Continuing times: [0,1] holds 1 -> (0.5, 1); [1,2] holds 2 ->
    // (1.5, 2) once 2.5 arrives after the boundary; [2,3]: 3 over [2,2.5] + 4
    // over [2.5,3] = 3.5 -> (2.5, 3.5); 1 trails. Means 1, 2, 3.5: S = 17.25 -
    // 6.5^2/3 = 19/6, D = 1 + 2.25 = 3.25, estimate 1 - 3.25 / (19/3) = 37/76.
    std::string on = File("on.dat", KIND_DSTAT,
                          {{0, 1}, {1, 2}, {2, 3}, {-1, 0}, {2.5, 4}, {3, 5}, {4, 6}, {-2, -1}});
    CFiltrDoc doc;
    ASSERT_EQ(RunBatch(doc, {on, "Lumped", "", "", "T", "1", Out("on.flt")}), 0);
    EXPECT_EQ(doc.Results().numBatches, 3);
    EXPECT_NEAR(doc.Results().covEstimate, 37.0 / 76.0, 1e-15);
    EXPECT_EQ(doc.Results().trailingTime, 1.0);
    EXPECT_TRUE(SameRecords(ReadRecords(Out("on.flt")), {{0.5, 1.0}, {1.5, 2.0},
                                                                   {2.5, 3.5}, {-1.0, -1.0}}));

    // Replication 2 starting at 0.5, before the open batch [1,2]: the pass ends,
    // nothing is stored, the batch already written stays.
    std::string back = File("back.dat", KIND_DSTAT, {{0, 1}, {1, 2}, {2, 3}, {-1, 0}, {0.5, 4}, {3, 5}, {-2, -1}});
    CFiltrDoc stop;
    ASSERT_EQ(RunBatch(stop, {back, "Lumped", "", "", "T", "1", Out("back.flt")}), 0);
    EXPECT_EQ(stop.Results().numBatches, -1);
    EXPECT_EQ(stop.Results().trailingTime, -1.0);
    EXPECT_TRUE(SameRecords(ReadRecords(Out("back.flt")), {{0.5, 1.0}, {-1.0, -1.0}}));
}

TEST_F(Filtr, LumpedByObservationsRefusesTimeRunningBack) {
    // B = 2 across the boundary: (1.5, 1.5), (3.5, 3.5); (5, 5) trails.
    std::string on = File("on.dat", KIND_TALLY, {{1, 1}, {2, 2}, {3, 3}, {-1, 0}, {4, 4}, {5, 5}, {-2, -1}});
    CFiltrDoc doc;
    ASSERT_EQ(RunBatch(doc, {on, "Lumped", "", "", "O", "2", Out("on.flt")}), 0);
    EXPECT_EQ(doc.Results().numBatches, 2);
    EXPECT_EQ(doc.Results().trailingObs, 1);
    EXPECT_TRUE(SameRecords(ReadRecords(Out("on.flt")), {{1.5, 1.5}, {3.5, 3.5}, {-1.0, -1.0}}));

    // A later replication starting before the last time read, at any boundary.
    std::string back = File("back.dat", KIND_TALLY,
                            {{1, 1}, {2, 2}, {-1, 0}, {3, 3}, {-2, 0}, {2.5, 4}, {-3, -1}});
    { std::ofstream(Out("kept.flt")) << "an earlier result"; }
    CFiltrDoc refused;
    EXPECT_EQ(RunBatch(refused, {back, "Lumped", "", "", "O", "2", Out("kept.flt")}), IDS_LUMPED_NOT_ALLOWED);
    EXPECT_EQ(filtr_test::ReadBytes(Out("kept.flt")), "an earlier result");
    // on.dat, on.flt, back.dat and kept.flt: no temporary file is left beside them.
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(m_dir.path()), {}), 4);
}

TEST_F(Filtr, DataEndingBeforeTheTruncationPoint) {
    // By time the pass stores nothing and the file holds its header and the
    // closing record; by observations it is an error and no file is left.
    std::string src = File("short.dat", KIND_DSTAT, {{0, 1}, {1, 2}, {-1, -1}});
    CFiltrDoc time;
    ASSERT_EQ(RunBatch(time, {src, "", "", "5", "T", "1", Out("short.flt")}), 0);
    EXPECT_EQ(time.Results().truncUsed, -1.0);
    EXPECT_EQ(time.Results().numBatches, -1);
    EXPECT_EQ(time.Results().trailingTime, -1.0);
    EXPECT_EQ(time.Results().covEstimate, -1.0);
    EXPECT_TRUE(SameRecords(ReadRecords(Out("short.flt")), {{-1.0, -1.0}}));

    CFiltrDoc obs;
    EXPECT_EQ(RunBatch(obs, {src, "", "O", "3", "O", "1", Out("none.flt")}), IDS_NO_OBSERVATIONS_FOUND);
    EXPECT_EQ(RunBatch(obs, {src, "", "T", "5", "O", "1", Out("none.flt")}), IDS_NO_OBSERVATIONS_FOUND);
    EXPECT_FALSE(std::filesystem::exists(Out("none.flt")));
}

TEST_F(Filtr, ZeroSpansEndWithZeroDenominator) {
    // All records at one time: the default span is 0. One batch by observations
    // has S = 0. Fewer than ten observations make a default batch of 0.
    const struct {
        const char* what;
        int kind;
        std::vector<Pair> recs;
        const char* unit;
    } cases[] = {
        {"one time", KIND_DSTAT, {{5, 1}, {5, 2}, {5, 3}, {-1, -1}}, "T"},
        {"one batch", KIND_TALLY, {{1, 1}, {2, 2}, {3, 3}, {-1, -1}}, "O"},
        {"default of no observations", KIND_TALLY, {{1, 1}, {2, 2}, {-1, -1}}, "O"},
    };
    for (const auto& c : cases) {
        CFiltrDoc doc;
        std::string size = std::string(c.what) == "one batch" ? "3" : "";
        EXPECT_EQ(RunBatch(doc, {File("z.dat", c.kind, c.recs), "", "", "", c.unit, size, Out("z.flt")}),
                  IDS_ZERO_DENOMINATOR)
            << c.what;
        EXPECT_FALSE(std::filesystem::exists(Out("z.flt")));
    }
}

TEST_F(Filtr, NoBatchingCopiesWhatFollowsTheTruncation) {
    // One observation truncated; the skip marker is read over, not copied.
    std::string src = File("n.dat", KIND_TALLY, {{1, 1}, {-1, -2}, {2, 2}, {3, 3}, {-1, -1}});
    CFiltrDoc doc;
    ASSERT_EQ(RunBatch(doc, {src, "", "", "1", "", "", Out("n.flt")}), 0);
    EXPECT_EQ(doc.Results().truncUsed, 1.0);
    EXPECT_EQ(doc.Results().numBatches, -1);
    EXPECT_EQ(doc.Results().trailingObs, -1);
    EXPECT_EQ(doc.Results().covEstimate, -1.0);
    EXPECT_TRUE(SameRecords(ReadRecords(Out("n.flt")), {{2.0, 2.0}, {3.0, 3.0}, {-1.0, -1.0}}));
}

TEST_F(Filtr, BatchingByObservationsTruncatedByTime) {
    // Truncation by time 1 drops (0,1) and (1,2); batches of one: 3, 4, 5.
    // S = 2, D = 2, estimate 1 - 2/4 = 0.5. A truncation of 0 drops nothing
    // here (unlike batching by time): means 1..5, S = 10, D = 4, estimate 0.8.
    std::string src = File("bt.dat", KIND_TALLY, {{0, 1}, {1, 2}, {2, 3}, {3, 4}, {4, 5}, {-1, -1}});
    const struct {
        const char* trunc;
        int batches;
        double truncUsed, estimate;
    } cases[] = {{"1", 3, 1.0, 0.5}, {"", 5, 0.0, 0.8}, {"0.5", 4, 0.5, 1.0 - 3.0 / 10.0}};
    for (const auto& c : cases) {
        CFiltrDoc doc;
        ASSERT_EQ(RunBatch(doc, {src, "", "Time", c.trunc, "O", "1"}), 0) << c.trunc;
        EXPECT_EQ(doc.Results().numBatches, c.batches) << c.trunc;
        EXPECT_EQ(doc.Results().truncUsed, c.truncUsed) << c.trunc;
        EXPECT_NEAR(doc.Results().covEstimate, c.estimate, 1e-15) << c.trunc;
    }
}

TEST_F(Filtr, BatchingByTimeAlwaysTruncatesByTime) {
    // Observation unit, amount 1: still the records up to time 1 are dropped.
    // Same file and means as the zero-truncation case shifted by one batch.
    std::string src = File("u.dat", KIND_DSTAT, StepRecords({1, 2, 3, 4}));
    CFiltrDoc doc;
    ASSERT_EQ(RunBatch(doc, {src, "", "Observation", "1", "Time", "1", Out("u.flt")}), 0);
    EXPECT_EQ(doc.truncUnit, 1);
    EXPECT_EQ(doc.Results().truncUsed, 1.0);
    // Records at 0..5 with values 1,2,3,4,0,0: [1,2] = 2, [2,3] = 3, [3,4] = 4.
    EXPECT_TRUE(SameRecords(ReadRecords(Out("u.flt")), {{1.5, 2.0}, {2.5, 3.0},
                                                                  {3.5, 4.0}, {-1.0, -1.0}}));
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

TEST_F(Filtr, FileWithoutEndMarkerIsBatchedToItsEnd) {
    // Kind 5 may end without a marker. B = 2: (1.5, 1.5), (3.5, 3.5) and, lumped
    // or a single replication, the closing record.
    std::string src = File("cut.dat", KIND_FILTERED, {{1, 1}, {2, 2}, {3, 3}, {4, 4}});
    for (const char* reps : {"", "Lumped", "All"}) {
        CFiltrDoc doc;
        ASSERT_EQ(RunBatch(doc, {src, reps, "", "", "O", "2", Out("cut.flt")}), 0) << reps;
        std::vector<Pair> out = ReadRecords(Out("cut.flt"));
        ASSERT_GE(out.size(), 2u);
        EXPECT_TRUE(out[1] == (Pair{3.5, 3.5}));
        EXPECT_EQ(out.size(), std::string(reps) == "All" ? 2u : 3u) << reps;
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
        std::string src = m_dir / "n.dat";
        WriteDataFile(src, KIND_DSTAT, recs, "QUEUE", "Source title", 0);
        CFiltrDoc doc;
        ASSERT_EQ(RunBatch(doc, {src, "", "", "", "T", "2", Out("d.flt"), "Batched"}), 0);
        EXPECT_EQ(filtr_test::ReadBytes(Out("d.flt")),
                  header('N', 'D') + Doubles({1.0, 3.5, 3.0, 3.0, -1.0, -1.0}));
    }
    {
        // The writer follows the configuration, not the source's precision.
        std::string src = m_dir / "y.dat";
        WriteDataFile(src, KIND_DSTAT, recs, "QUEUE", "Source title", 1);
        filtr_test::ScopedPrecision single(0);
        CFiltrDoc doc;
        ASSERT_EQ(RunBatch(doc, {src, "", "", "", "T", "2", Out("s.flt"), "Batched"}), 0);
        EXPECT_EQ(filtr_test::ReadBytes(Out("s.flt")),
                  header('Y', 'S') + Floats({1.0f, 3.5f, 3.0f, 3.0f, -1.0f, -1.0f}));
    }
}

}  // namespace
