// The record reader's marker rules and treatments on small hand-made files,
// and its index on a file of several blocks read in different orders.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "TestFiles.h"
#include "datafile/RecordReader.h"
#include "framework/Messages.h"

namespace {

// What a pass gives: the observations' values, then how it ended.
struct Pass {
    std::vector<double> values;
    RecordKind end;
};

// Under "all" one pass per replication, otherwise the one pass.
std::vector<Pass> ReadPasses(CRecordReader& in, int treatment) {
    std::vector<Pass> passes;
    do {
        Pass p;
        double t = 0, v = 0;
        while (in.NextObs(&t, &v)) p.values.push_back(v);
        p.end = in.PassEnd();
        passes.push_back(p);
    } while (treatment == REP_ALL && passes.size() < 10 && in.NextReplication());
    return passes;
}

TEST(RecordReader, MarkerRulesUnderEachTreatment) {
    using K = RecordKind;
    // Replication 1 holds a skip marker; replication 2 ends the data.
    const std::vector<Rec> twoReps = {{1, 10}, {2, 11}, {-1, -2}, {3, 15}, {-1, 0}, {1, 20}, {-2, -1}};
    // The same without the end marker, and a third replication after a
    // boundary whose time lies between -1 and 0.
    const std::vector<Rec> cut = {{1, 10}, {-1, 0}, {1, 20}, {-0.5, 0}, {2, 30}};
    struct Case {
        const char* name;
        std::vector<Rec> recs;
        int treatment;
        int startRc;
        std::vector<Pass> passes;
    } cases[] = {
        {"first replication", twoReps, 1, 0, {{{10, 11, 15}, K::Boundary}}},
        {"second replication", twoReps, 2, 0, {{{20}, K::End}}},
        // The search counts the end marker too and finds nothing after it.
        {"no third replication", twoReps, 3, IDS_INVALID_REP_TREATMENT, {}},
        {"lumped", twoReps, REP_LUMPED, 0, {{{10, 11, 15, 20}, K::End}}},
        {"all", twoReps, REP_ALL, 0, {{{10, 11, 15}, K::Boundary}, {{20}, K::End}}},
        // Tally means: (10 + 11 + 15) / 3 and 20; the file's end closes the pass.
        {"replication means", twoReps, REP_REPMEANS, 0, {{{12, 20}, K::Eof}}},
        {"lumped without end marker", cut, REP_LUMPED, 0, {{{10, 20, 30}, K::Eof}}},
        {"all without end marker", cut, REP_ALL, 0, {{{10}, K::Boundary}, {{20}, K::Boundary}, {{30}, K::Eof}}},
    };
    TempDir dir;
    for (const Case& c : cases) {
        for (bool isDouble : {true, false}) {
            HeaderFields h;
            h.isDouble = isDouble;
            std::string path = dir.Path("f.dat");
            test_WriteDataFile(path, h, c.recs);
            CRecordReader in;
            ASSERT_EQ(in.Open(path), 0);
            ASSERT_EQ(in.Start(c.treatment), c.startRc) << c.name;
            if (c.startRc) continue;
            std::vector<Pass> got = ReadPasses(in, c.treatment);
            ASSERT_EQ(got.size(), c.passes.size()) << c.name;
            for (std::size_t i = 0; i < got.size(); ++i) {
                EXPECT_EQ(got[i].values, c.passes[i].values) << c.name << " pass " << i;
                EXPECT_EQ(got[i].end, c.passes[i].end) << c.name << " pass " << i;
            }
        }
    }
}

// Replication means: the step rule weighted by the value that ends each step
// for DSTAT and Counter, trapezoids for CSTAT, a plain mean for observations.
TEST(RecordReader, ReplicationMeansByKind) {
    struct Case {
        const char* name;
        int kind;
        std::vector<Rec> recs;
        std::vector<double> means;
    } cases[] = {
        // (2-0)*5 + (6-2)*1 = 14 over 6.
        {"DSTAT", 1, {{2, 5}, {6, 1}, {-1, 0}, {1, 4}, {-2, -1}}, {14.0 / 6.0, 4.0}},
        {"Counter", 6, {{2, 5}, {6, 1}, {-1, -1}}, {14.0 / 6.0}},
        // From (0,0): (2-0)*(0+4)/2 = 4; (6-2)*(4+0)/2 = 8; 12 over 6.
        {"CSTAT", 2, {{2, 4}, {6, 0}, {-1, -1}}, {2.0}},
        {"Tally", 3, {{7, 1}, {8, 2}, {9, 6}, {-1, 0}, {1, 10}, {-2, -1}}, {3.0, 10.0}},
    };
    TempDir dir;
    for (const Case& c : cases) {
        CRecordReader in;
        ASSERT_EQ(in.Open(dir.WriteRecords("m.dat", c.kind, c.recs)), 0);
        ASSERT_EQ(in.Start(REP_REPMEANS), 0);
        double t = 0, v = 0;
        for (double mean : c.means) {
            ASSERT_TRUE(in.NextObs(&t, &v)) << c.name;
            EXPECT_EQ(t, 1.0) << c.name;
            EXPECT_NEAR(v, mean, 1e-12) << c.name;
        }
        EXPECT_FALSE(in.NextObs(&t, &v)) << c.name;
    }
}

// SeekRep: a replication's first record (after the marker that closes the one
// before, skip markers not counting), -9999 the end marker, 0 past the last
// record, lumped where the reader stands; 15804 for a replication the file
// lacks or a treatment that names no position. Records are 16 bytes.
TEST(RecordReader, SeekRepPositions) {
    TempDir dir;
    const std::string path =
        dir.WriteRecords("r.dat", 3, {{1, 11}, {2, 12}, {-1, 0}, {1, 21}, {-1, -2}, {-2, 0}, {1, 31}, {-3, -1}});
    const std::int64_t first = static_cast<std::int64_t>(test_HeaderBytes({}).size());
    struct {
        int rep, rc;
        std::int64_t pos;
        double value;  // of the record there
    } const cases[] = {
        {1, 0, first, 11},           {2, 0, first + 3 * 16, 21},  {3, 0, first + 6 * 16, 31},
        {-9999, 0, first + 7 * 16, -1}, {0, 0, first + 8 * 16, -1}, {REP_LUMPED, 0, first, 11},
        {4, 15804, -1, 0},           {REP_ALL, 15804, -1, 0},     {REP_INVALID, 15804, -1, 0}, {-7, 15804, -1, 0},
    };
    for (const auto& c : cases) {
        CRecordReader in;
        ASSERT_EQ(in.Open(path), 0);
        ASSERT_EQ(in.SeekRep(c.rep), c.rc) << c.rep;
        if (c.rc) continue;
        EXPECT_EQ(in.Tell(), c.pos) << c.rep;
        double t = 0, v = 0;
        in.ReadRecord(&t, &v);
        EXPECT_EQ(v, c.value) << c.rep;
    }
    CRecordReader empty;
    ASSERT_EQ(empty.Open(dir.WriteRecords("e.dat", 3, {})), 0);
    EXPECT_EQ(empty.SeekRep(1), 15804);
}

// A file cut inside a record ends the data after its last whole record.
TEST(RecordReader, CutRecordEndsTheData) {
    TempDir dir;
    const std::string whole = test_HeaderBytes({}) + test_RecordBytes({{1, 10}, {2, 20}, {-1, -1}}, true);
    test_WriteBytes(dir.Path("cut.dat"), whole.substr(0, whole.size() - 7));
    CRecordReader in;
    ASSERT_EQ(in.Open(dir.Path("cut.dat")), 0);
    ASSERT_EQ(in.Start(REP_LUMPED), 0);
    std::vector<double> values;
    for (double t, v; in.NextObs(&t, &v);) values.push_back(v);
    EXPECT_EQ(values, (std::vector<double>{10, 20}));
}

TEST(RecordReader, OpenFailures) {
    TempDir dir;
    CRecordReader in;
    EXPECT_EQ(in.Open(dir.Path("none.dat")), IDS_NO_FILE_OPEN);
    test_WriteBytes(dir.Path("bad.dat"), "201 \r\nshort");
    EXPECT_EQ(in.Open(dir.Path("bad.dat")), IDS_INVALID_HEADER);
}

// A file of several 1 MiB blocks: 50000 + 1 + 70000 + 2 + 3 records, so that
// markers and records fall across block ends (records of 16 bytes start at
// the header's odd offset). Positions and counts follow from the layout.
class RecordReaderIndex : public ::testing::Test {
protected:
    void SetUp() override {
        std::vector<std::vector<Rec>> reps(3);
        for (int i = 0; i < 50000; ++i) reps[0].push_back({double(i), 1.0});
        for (int i = 0; i < 70000; ++i) reps[1].push_back({double(i), 2.0});
        reps[1].insert(reps[1].begin() + 30000, Rec{-1, -2});  // a skip marker: no observation
        reps[2] = {{0, 3.0}, {1, 3.0}, {2, 3.0}};
        test_WriteDataFile(path, h, test_Replications(reps));
        const long first = static_cast<long>(test_HeaderBytes(h).size());
        expected = {{first, 50000}, {first + 16 * 50001, 70000}, {first + 16 * 120003, 3}, {first + 16 * 120007, 0}};
    }
    void ExpectIndex(const CRecordReader& in) {
        ASSERT_TRUE(in.IndexComplete());
        ASSERT_EQ(in.Index().size(), expected.size());
        for (std::size_t r = 0; r < expected.size(); ++r) {
            EXPECT_EQ(in.Index()[r].pos, expected[r].pos) << r;
            EXPECT_EQ(in.Index()[r].obsCount, expected[r].obsCount) << r;
        }
    }

    TempDir dir;
    std::string path = dir.Path("big.dat");
    HeaderFields h;
    std::vector<RepSpan> expected;
};

TEST_F(RecordReaderIndex, ALumpedPassFindsTheReplicationsOnTheWay) {
    CRecordReader in;
    ASSERT_EQ(in.Open(path), 0);
    ASSERT_EQ(in.Start(REP_LUMPED), 0);
    double t = 0, v = 0, sum = 0;
    while (in.NextObs(&t, &v)) sum += v;
    EXPECT_EQ(sum, 50000 * 1.0 + 70000 * 2.0 + 3 * 3.0);
    ExpectIndex(in);
    EXPECT_EQ(in.CountReps(), 3);
}

TEST_F(RecordReaderIndex, ReadingOutOfOrderStillGivesTheIndex) {
    CRecordReader in;
    ASSERT_EQ(in.Open(path), 0);
    // Replication 2 first (its search takes in replication 1), then 3, then
    // replication 1 again twice over; the index completes from where it stood.
    ASSERT_EQ(in.Start(2), 0);
    in.SkipPass();
    in.RewindPass();
    long n = 0;
    double t = 0, v = 0;
    while (in.NextObs(&t, &v)) ++n;
    EXPECT_EQ(n, 70000);
    EXPECT_FALSE(in.IndexComplete());
    ASSERT_EQ(in.Start(1), 0);
    in.SkipPass();
    EXPECT_EQ(in.CountReps(), 3);
    ExpectIndex(in);
    ASSERT_EQ(in.Start(3), 0);
    n = 0;
    while (in.NextObs(&t, &v)) ++n;
    EXPECT_EQ(n, 3);
}

// Runs taken in bulk stop where the record-by-record rules would: at a skip
// marker, a boundary, a NaN time (an observation, read singly) and -0 (an
// observation), wherever they fall among the records taken four at a time.
TEST(RecordReader, RunsKeepTheMarkerRules) {
    TempDir dir;
    for (bool isDouble : {true, false}) {
        std::vector<Rec> recs;
        std::vector<double> want;
        for (int i = 0; i < 70; ++i) {
            double t = i;
            if (i == 21) t = -0.0;
            if (i == 30) t = std::nan("");
            if (i == 45) {
                recs.push_back({-1, -2});  // skip marker
                continue;
            }
            recs.push_back({t, 100.0 + i});
            want.push_back(100.0 + i);
        }
        recs.push_back({-1, -1});
        HeaderFields h;
        h.isDouble = isDouble;
        const std::string path = dir.Path("runs.dat");
        test_WriteDataFile(path, h, recs);
        CRecordReader in;
        ASSERT_EQ(in.Open(path), 0);
        ASSERT_EQ(in.Start(1), 0);
        std::vector<double> got;
        double times[64], values[64];
        while (const std::size_t n = in.NextObsRun(times, values, 64)) got.insert(got.end(), values, values + n);
        EXPECT_EQ(got, want) << (isDouble ? "doubles" : "floats");
        EXPECT_EQ(in.PassEnd(), RecordKind::End);
    }
}

}  // namespace
