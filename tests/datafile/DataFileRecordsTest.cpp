// The stream functions of the data-file layer that the product calls: the
// record writer, the replication count, opening and the last record. Records
// are read through the record reader (RecordReaderTest).
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
