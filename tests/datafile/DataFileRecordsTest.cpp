#include <gtest/gtest.h>

#include <cstdio>

#include "TestFiles.h"
#include "datafile/DataFile.h"
#include "framework/Config.h"

namespace {

// An open data file positioned after its header, closed with the object.
struct Open {
    explicit Open(const std::string& path) {
        int err = 0;
        f = op_OpenDataFile(&err, path.c_str(), 2, true);
        if (f) op_ReadFileHdr(f, false, &h);
    }
    ~Open() {
        if (f) std::fclose(f);
    }
    FILE* f = nullptr;
    DataFileHeader h;
};

std::vector<Rec> ReadAllObs(const std::string& path, int treatment) {
    Open o(path);
    std::vector<Rec> out;
    for (int guard = 0; guard < 1000; ++guard) {
        Rec r{};
        op_ReadObs(o.f, o.h.isDouble, treatment, o.h.kind, &r.time, &r.value);
        out.push_back(r);
        if (r.time == -1.0 && r.value == -1.0) break;
    }
    return out;
}

TEST(DataFileRecords, FloatAndDoubleFilesReadBackTheSameObservations) {
    TempDir dir;
    std::vector<Rec> recs = test_Replications({{{0.5, 1.25}, {1.0, -3.5}, {2.75, 1e6}}});
    HeaderFields d, s;
    s.isDouble = false;
    test_WriteDataFile(dir.Path("d.dat"), d, recs);
    test_WriteDataFile(dir.Path("s.dat"), s, recs);
    std::vector<Rec> a = ReadAllObs(dir.Path("d.dat"), 1);
    std::vector<Rec> b = ReadAllObs(dir.Path("s.dat"), 1);
    ASSERT_EQ(a.size(), b.size());
    for (std::size_t i = 0; i < a.size(); ++i) {
        EXPECT_FLOAT_EQ(a[i].time, b[i].time);
        EXPECT_FLOAT_EQ(a[i].value, b[i].value);
    }
    EXPECT_EQ(a[3].time, -1.0);  // the end marker comes back as a record
}

TEST(DataFileRecords, WriterFollowsTheCurrentSetting) {
    TempDir dir;
    int saved = cfg_GetDoublePrecOutput();
    struct Case {
        int setting;
        std::size_t bytes;
    } cases[] = {{1, 16}, {0, 8}, {2, 16}};
    for (const Case& c : cases) {
        cfg_SetDoublePrecOutput(c.setting);
        std::string path = dir.Path("w.dat");
        int err = 0;
        FILE* f = op_OpenDataFile(&err, path.c_str(), 4, false);
        double t = 1.5, v = 0.1;
        EXPECT_EQ(op_WritePair(f, &t, &v), 0);
        std::fclose(f);
        std::string bytes = test_ReadBytes(path);
        ASSERT_EQ(bytes.size(), c.bytes);
        EXPECT_EQ(bytes, test_RecordBytes({{1.5, 0.1}}, c.bytes == 16));
    }
    cfg_SetDoublePrecOutput(saved);
    EXPECT_EQ(op_WritePair(nullptr, nullptr, nullptr), 0);
}

TEST(DataFileRecords, CountsReplications) {
    TempDir dir;
    std::vector<Rec> three = test_Replications({{{1, 1}}, {{1, 2}, {2, 2}}, {{1, 3}}});
    std::vector<Rec> cut(three.begin(), three.end() - 1);
    std::vector<Rec> withSkips = {{1, 1}, {-1, -2}, {2, 1}, {-1, 0}, {-1, -2}, {3, 2}, {-2, -1}};
    HeaderFields tally, filtered;
    filtered.kind = 5;
    filtered.type = "Filtered";
    struct Case {
        const char* name;
        HeaderFields h;
        std::vector<Rec> recs;
        int expected;
    } cases[] = {
        {"three replications", tally, three, 3},
        {"no end marker", tally, cut, 15836},
        {"no records", tally, {}, 15836},
        {"kind 5 without any marker", filtered, {{1, 1}, {2, 2}}, 1},
        {"kind 5 cut after two replications", filtered, cut, 2},
        {"skip markers do not count", tally, withSkips, 2},
        {"records after the end marker are not read", tally, test_Replications({{{1, 1}}, {{2, 2}}}), 2},
    };
    for (const Case& c : cases) {
        std::string path = dir.Path("c.dat");
        test_WriteDataFile(path, c.h, c.recs);
        EXPECT_EQ(op_CountReps(path.c_str()), c.expected) << c.name;
    }
    EXPECT_EQ(op_CountReps(dir.Path("none.dat").c_str()), 15832);
    test_WriteBytes(dir.Path("bad.dat"), "not a data file");
    EXPECT_EQ(op_CountReps(dir.Path("bad.dat").c_str()), 15834);
}

// Skip markers are never returned; the end marker, and the end of a file cut
// in the middle of a record, read as (-1, -1).
TEST(DataFileRecords, ObservationsAsRead) {
    TempDir dir;
    const std::string header = test_HeaderBytes(HeaderFields{});
    const std::string whole = header + test_RecordBytes({{1, 10}, {2, 20}, {-1, -1}}, true);
    struct {
        const char* name;
        std::string bytes;
        std::vector<double> values;
    } const cases[] = {
        {"skip marker", header + test_RecordBytes({{1, 5}, {-1, -2}, {2, 6}, {-1, -1}}, true), {5, 6, -1}},
        {"cut record", whole.substr(0, whole.size() - 7), {10, 20, -1}},
    };
    for (const auto& c : cases) {
        test_WriteBytes(dir.Path("o.dat"), c.bytes);
        std::vector<double> values;
        for (const Rec& r : ReadAllObs(dir.Path("o.dat"), 1)) values.push_back(r.value);
        EXPECT_EQ(values, c.values) << c.name;
    }
    EXPECT_EQ(ReadAllObs(dir.Path("o.dat"), 1).back().time, -1.0);
    EXPECT_EQ(op_CountReps(dir.Path("o.dat").c_str()), 15836);
}

// Replication means: step rule weighted by the value that ends each step for
// DSTAT and Counter, trapezoids for CSTAT, a plain mean for observations.
TEST(DataFileRecords, ReplicationMeans) {
    TempDir dir;
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
    for (const Case& c : cases) {
        HeaderFields h;
        h.kind = c.kind;
        std::string path = dir.Path("m.dat");
        test_WriteDataFile(path, h, c.recs);
        Open o(path);
        for (double mean : c.means) {
            double t = 0, v = 0;
            op_ReadObs(o.f, 1, REP_REPMEANS, c.kind, &t, &v);
            EXPECT_EQ(t, 1.0) << c.name;
            EXPECT_NEAR(v, mean, 1e-12) << c.name;
        }
        double t = 0, v = 0;
        op_ReadObs(o.f, 1, REP_REPMEANS, c.kind, &t, &v);
        EXPECT_EQ(t, -1.0) << c.name;
    }
}

TEST(DataFileRecords, SeekToAReplication) {
    TempDir dir;
    std::string path = dir.Path("r.dat");
    test_WriteDataFile(path, {}, test_Replications({{{1, 11}, {2, 12}}, {{1, 21}, {-1, -2}}, {{1, 31}}}));
    struct Case {
        int rep;
        int rc;
        int found;
        double firstValue;
    } cases[] = {{1, 0, 1, 11}, {2, 0, 2, 21}, {3, 0, 3, 31}, {4, 15804, 0, 0}, {REP_ALL, 15804, 0, 0},
                 {REP_INVALID, 15804, 0, 0}, {-7, 15804, 0, 0}, {REP_LUMPED, 0, REP_LUMPED, 11}};
    for (const Case& c : cases) {
        Open o(path);
        int found = -99;
        EXPECT_EQ(op_SeekRep(o.f, 1, c.rep, &found, true), c.rc) << c.rep;
        EXPECT_EQ(found, c.found) << c.rep;
        if (c.rc == 0) {
            double t = 0, v = 0;
            op_ReadObs(o.f, 1, c.rep, 3, &t, &v);
            EXPECT_EQ(v, c.firstValue) << c.rep;
        }
    }
    test_WriteDataFile(dir.Path("e.dat"), {}, {});
    Open o(dir.Path("e.dat"));
    int found = -1;
    EXPECT_EQ(op_SeekRep(o.f, 1, 1, &found, true), 15804);
    EXPECT_EQ(found, 0);
}

TEST(DataFileRecords, SeekToTheEndMarkerForAppending) {
    TempDir dir;
    std::string path = dir.Path("a.dat");
    HeaderFields h;
    std::vector<Rec> recs = test_Replications({{{1, 1}}, {{2, 2}}});
    test_WriteDataFile(path, h, recs);
    std::size_t header = test_HeaderBytes(h).size();
    {
        int err = 0;
        FILE* f = op_OpenDataFile(&err, path.c_str(), 2, false);  // existing file: r+b
        DataFileHeader dh;
        op_ReadFileHdr(f, false, &dh);
        int found = 0;
        EXPECT_EQ(op_SeekRep(f, 1, -9999, &found, true), 0);
        EXPECT_EQ(std::ftell(f), static_cast<long>(header + 3 * 16));
        EXPECT_EQ(op_SeekRep(f, 1, 0, &found, true), 0);
        EXPECT_EQ(std::ftell(f), static_cast<long>(header + 4 * 16));
        std::fclose(f);
    }
}

TEST(DataFileRecords, TextRecordsAndSeekInTextMode) {
    TempDir dir;
    std::string path = dir.Path("t.txt");
    test_WriteBytes(path, "1 10\n2 20\n-1 0\n3 30\n-2 -1\n");
    int err = 0;
    FILE* f = op_OpenDataFile(&err, path.c_str(), 0, true);
    int found = 0;
    ASSERT_EQ(op_SeekRep(f, 0, 2, &found, false), 0);
    char line[80];
    ASSERT_NE(std::fgets(line, sizeof line, f), nullptr);
    double t = 0, v = 0;
    op_ReadTextPair(line, &t, &v);
    EXPECT_EQ(t, 3.0);
    EXPECT_EQ(v, 30.0);
    std::fclose(f);
}

TEST(DataFileRecords, PositioningReadIsANoOpWhileResyncIsOff) {
    TempDir dir;
    test_WriteDataFile(dir.Path("p.dat"), {}, {{1, 1}, {-1, -2}, {2, 2}, {-1, -1}});
    Open o(dir.Path("p.dat"));
    long before = std::ftell(o.f);
    double t = 5, v = 5;
    op_ReadObs(o.f, 1, 1, KIND_NONE, &t, &v);
    EXPECT_EQ(std::ftell(o.f), before);
    EXPECT_EQ(t, 5.0);
    // With the skip on, the read moves past the next skip marker.
    NO_RESYNC = 0;
    op_ReadObs(o.f, 1, 1, KIND_NONE, &t, &v);
    NO_RESYNC = 1;
    EXPECT_EQ(std::ftell(o.f), before + 32);
}

TEST(DataFileRecords, OpenModes) {
    TempDir dir;
    int err = -1;
    EXPECT_EQ(op_OpenDataFile(&err, dir.Path("x").c_str(), 3, false), nullptr);
    EXPECT_EQ(err, 0);
    EXPECT_EQ(op_OpenDataFile(&err, dir.Path("missing").c_str(), 2, true), nullptr);
    EXPECT_EQ(err, 23);
    EXPECT_EQ(op_OpenDataFile(&err, (dir.Path("no/such/folder/f.dat")).c_str(), 4, false), nullptr);
    EXPECT_EQ(err, 15832);
    // An existing file opened in mode 2 without mustExist keeps its contents.
    test_WriteBytes(dir.Path("keep.dat"), "abc");
    FILE* f = op_OpenDataFile(&err, dir.Path("keep.dat").c_str(), 2, false);
    ASSERT_NE(f, nullptr);
    std::fclose(f);
    EXPECT_EQ(test_ReadBytes(dir.Path("keep.dat")), "abc");
    // Mode 4 always creates afresh.
    f = op_OpenDataFile(&err, dir.Path("keep.dat").c_str(), 4, false);
    std::fclose(f);
    EXPECT_EQ(test_ReadBytes(dir.Path("keep.dat")), "");
}

TEST(DataFileRecords, SeekLastRecord) {
    TempDir dir;
    test_WriteDataFile(dir.Path("l.dat"), {}, {{1, 1}, {2, 2}, {-1, -1}});
    Open o(dir.Path("l.dat"));
    op_SeekLastRecord(o.f, true);
    double t = 0, v = 0;
    op_ReadPair(o.f, 1, &t, &v);
    EXPECT_EQ(t, -1.0);
    EXPECT_EQ(v, -1.0);
}

}  // namespace
