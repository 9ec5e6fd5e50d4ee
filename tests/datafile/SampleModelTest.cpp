#include <gtest/gtest.h>

#include "TestFiles.h"
#include "datafile/DataFile.h"
#include "datafile/SampleModel.h"
#include "datafile/SingleDoc.h"

namespace {

TEST(SampleModel, WritesEveryKindWithTheRequestedReplications) {
    TempDir dir;
    SampleOptions o;
    o.reps = 3;
    o.horizon = 300;
    ASSERT_EQ(sample_Write(dir.Dir().string(), o), 0);
    struct Expect {
        const char* name;
        int kind;
    } files[] = {{"waits.dat", 3}, {"queue.dat", 1}, {"workload.dat", 2}, {"served.dat", 6}, {"meanwait.dat", 4}};
    for (const Expect& e : files) {
        std::string path = dir.Path(e.name);
        EXPECT_EQ(op_GetFileKind(path.c_str()), e.kind) << e.name;
        EXPECT_EQ(op_CountReps(path.c_str()), 3) << e.name;
        EXPECT_EQ(op_GetFileReinit(path.c_str()), 1) << e.name;
    }
    CSingleDoc mean;
    ASSERT_TRUE(mean.OnOpenDocument(dir.Path("meanwait.dat").c_str()));
    for (int r = 1; r <= 3; ++r) EXPECT_EQ(mean.RepInfo(r).m_nObsCount, 1);
    // Every waiting time is a time-stamped, non-negative observation, stamps
    // non-decreasing within a replication and inside the horizon.
    CSingleDoc waits;
    ASSERT_TRUE(waits.OnOpenDocument(dir.Path("waits.dat").c_str()));
    double t = 0, v = 0, last = 0;
    ASSERT_EQ(waits.Reader().Start(1), 0);
    while (waits.Reader().NextObs(&t, &v)) {
        EXPECT_GE(v, 0.0);
        EXPECT_GE(t, last);
        EXPECT_LE(t, 300.0);
        last = t;
    }
}

TEST(SampleModel, TheSameSeedGivesTheSameBytes) {
    TempDir a, b, c;
    SampleOptions o;
    o.reps = 2;
    o.horizon = 200;
    ASSERT_EQ(sample_Write(a.Dir().string(), o), 0);
    ASSERT_EQ(sample_Write(b.Dir().string(), o), 0);
    o.seed += 1;
    ASSERT_EQ(sample_Write(c.Dir().string(), o), 0);
    for (const SampleFile& f : sample_Files()) {
        EXPECT_EQ(test_ReadBytes(a.Path(f.name)), test_ReadBytes(b.Path(f.name))) << f.name;
        EXPECT_NE(test_ReadBytes(a.Path(f.name)), test_ReadBytes(c.Path(f.name))) << f.name;
    }
}

TEST(SampleModel, AnUnwritableFolderLeavesNothing) {
    TempDir dir;
    test_WriteBytes(dir.Path("file"), "x");
    SampleOptions o;
    EXPECT_NE(sample_Write(dir.Path("file"), o), 0);  // a file where the folder should be
}

}  // namespace
