// The range scan for graphs and the replication-following record reader.
#include <gtest/gtest.h>

#include "TestFiles.h"
#include "datafile/DataFile.h"
#include "datafile/FileGlobals.h"
#include "datafile/GraphScan.h"
#include "datafile/RecordReader.h"
#include "framework/Messages.h"

namespace {

const int kAllOpen[4] = {-1, -1, -1, -1};

class GraphScanTest : public ::testing::Test {
protected:
    void SetUp() override {
        a = dir.Path("a.dat");
        b = dir.Path("b.dat");
        test_WriteDataFile(a, HeaderFields{}, test_Replications({{{1, 4}, {2, -3}}, {{0.5, 8}, {7, 2}}}));
        test_WriteDataFile(b, HeaderFields{}, test_Replications({{{3, 100}, {-1, -2}, {9, -50}}}));
    }
    TempDir dir;
    std::string a, b;
};

// Bounds of one replication, the whole file, several files (the skip marker
// does not end b); with times given as 1..5 only values inside them count and
// the given bounds stay.
TEST_F(GraphScanTest, BoundsOfReplicationsAndFiles) {
    const int times[4] = {1, 1, -1, -1};
    struct Case {
        std::vector<RangeSource> files;
        const int* flags;
        double given[4];
        double bounds[4];
    } const cases[] = {
        {{{a, 1}}, kAllOpen, {}, {1, 2, -3, 4}},
        {{{a, 2}}, kAllOpen, {}, {0.5, 7, 2, 8}},
        {{{a, REP_LUMPED}}, kAllOpen, {}, {0.5, 7, -3, 8}},
        {{{a, REP_ALL}, {b, 1}}, kAllOpen, {}, {0.5, 9, -50, 100}},
        {{{a, REP_ALL}, {b, 1}}, times, {1, 5, 0, 0}, {1, 5, -3, 100}},
    };
    for (const Case& c : cases) {
        double bounds[4] = {c.given[0], c.given[1], c.given[2], c.given[3]};
        ASSERT_EQ(op_ScanRangeFiles(c.files, bounds, c.flags), 0);
        for (int i = 0; i < 4; ++i) EXPECT_EQ(bounds[i], c.bounds[i]) << "case " << &c - cases << " bound " << i;
    }
}

TEST_F(GraphScanTest, FilesThatCannotBeReadGiveTheLayersMessages) {
    double bounds[4] = {0, 0, 0, 0};
    EXPECT_EQ(op_ScanRangeFiles({{dir.Path("none.dat"), 1}}, bounds, kAllOpen), IDS_FILE_NOT_FOUND);
    EXPECT_EQ(op_ScanRangeFiles({{a, 3}}, bounds, kAllOpen), IDS_INVALID_REP_TREATMENT);
    test_WriteBytes(dir.Path("bad.dat"), "garbage");
    EXPECT_EQ(op_ScanRangeFiles({{dir.Path("bad.dat"), 1}}, bounds, kAllOpen), IDS_INVALID_HEADER);
}

TEST_F(GraphScanTest, TheReaderFollowsReplications) {
    CRecordReader in;
    ASSERT_EQ(in.Open(a), 0);
    int rep = 1;
    double t = 0, v = 0;
    op_ReadGraphRecord(in, 1, &rep, &t, &v);
    op_ReadGraphRecord(in, 1, &rep, &t, &v);
    op_ReadGraphRecord(in, 1, &rep, &t, &v);  // (-1, 0) closes replication 1
    EXPECT_EQ(t, -1.0);
    EXPECT_EQ(rep, 2);
    for (int i = 0; i < 3; ++i) op_ReadGraphRecord(in, 1, &rep, &t, &v);
    EXPECT_EQ(t, -2.0);  // (-2, -1) ends the data; rep stays
    EXPECT_EQ(v, -1.0);
    op_ReadGraphRecord(in, 1, &rep, &t, &v);
    EXPECT_EQ(t, -1.0);  // end of file reads as the end mark
    EXPECT_EQ(v, -1.0);
    in.Seek(in.FirstRecord());
    rep = REP_LUMPED;
    for (int i = 0; i < 3; ++i) op_ReadGraphRecord(in, REP_LUMPED, &rep, &t, &v);
    EXPECT_EQ(rep, REP_LUMPED);
}

}  // namespace
