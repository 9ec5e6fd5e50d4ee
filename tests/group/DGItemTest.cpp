// Description lines of data group items and their refresh.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>

#include "datafile/FileGlobals.h"
#include "group/DGItem.h"
#include "group/GroupTestFiles.h"

namespace fs = std::filesystem;
using namespace std::chrono;

namespace {

void SetFileTime(const std::string& path, long long secondsSince1970) {
    fs::last_write_time(path, file_clock::from_sys(sys_seconds(seconds(secondsSince1970))));
}

class DGItemTest : public ::testing::Test {
protected:
    void SetUp() override { op_InitFileGlobals(); }
    TempDir m_dir;
};

TEST_F(DGItemTest, ReplicationCountWidthGrowsInSteps) {
    struct Case {
        int reps;
        const char* count;  // "%1ld" below 10, "%2ld" to 99, "%4ld" from 100
    };
    const Case cases[] = {{1, "1"}, {9, "9"}, {10, "10"}, {99, "99"}, {100, " 100"}, {123, " 123"}, {1234, "1234"}};
    for (const Case& c : cases) {
        std::string path = m_dir.Path("r" + std::to_string(c.reps) + ".dat");
        grp_test_WriteDataFile(path, KIND_TALLY, c.reps, "Waits");
        CDGItem item(path);
        EXPECT_EQ(item.m_strDescription, path + ", " + c.count + ", Tally, Waits") << c.reps;
    }
}

TEST_F(DGItemTest, TypeTextFollowsTheDataKind) {
    const char* const texts[] = {"DSTAT", "CSTAT", "Tally", "Output", "Filtered", "Counter", "Frequency"};
    for (int kind = 1; kind <= 7; ++kind) {
        std::string path = m_dir.Path("k" + std::to_string(kind) + ".dat");
        grp_test_WriteDataFile(path, kind, 2, "T");
        EXPECT_EQ(CDGItem(path).m_strDescription, path + ", 2, " + texts[kind - 1] + ", T");
    }
}

TEST_F(DGItemTest, NoTitleMeansNoTrailingSeparator) {
    std::string path = m_dir.Path("q.dat");
    grp_test_WriteDataFile(path, KIND_DSTAT, 5, "");
    CDGItem item(path);
    EXPECT_EQ(item.m_strDescription, path + ", 5, DSTAT");
}

TEST_F(DGItemTest, ConstructionKeepsTheTimeOnlyWhenDescribed) {
    std::string good = m_dir.Path("good.dat");
    grp_test_WriteDataFile(good, KIND_TALLY, 1, "T");
    SetFileTime(good, 1000000000);
    EXPECT_EQ(CDGItem(good).m_time, 1000000000);

    std::string junk = m_dir.Path("junk.dat");
    std::ofstream(junk) << "not a data file\n";
    CDGItem bad(junk);
    EXPECT_EQ(bad.m_time, CDGItem::kUnknownTime);
    EXPECT_EQ(bad.m_strDescription, junk + ", <error accessing file>");
}

TEST_F(DGItemTest, UnchangedFileIsNotReadAgain) {
    std::string path = m_dir.Path("w.dat");
    grp_test_WriteDataFile(path, KIND_TALLY, 3, "Before");
    SetFileTime(path, 1200000000);
    CDGItem item(path);
    const std::string before = item.m_strDescription;
    ASSERT_EQ(before, path + ", 3, Tally, Before");

    // New contents under the old time: the line must stay as it was.
    grp_test_WriteDataFile(path, KIND_DSTAT, 7, "After");
    SetFileTime(path, 1200000000);
    EXPECT_EQ(item.Describe(true), 0);
    EXPECT_EQ(item.m_strDescription, before);

    // A new time: read again, and the new time is kept.
    SetFileTime(path, 1200000060);
    EXPECT_EQ(item.Describe(true), 0);
    EXPECT_EQ(item.m_strDescription, path + ", 7, DSTAT, After");
    EXPECT_EQ(item.m_time, 1200000060);
}

TEST_F(DGItemTest, FailuresLeaveTheErrorLine) {
    std::string path = m_dir.Path("gone.dat");
    grp_test_WriteDataFile(path, KIND_TALLY, 2, "T");
    CDGItem item(path);
    fs::remove(path);
    EXPECT_EQ(item.Describe(true), 15811);
    EXPECT_EQ(item.m_strDescription, path + ", <error accessing file>");

    std::string junk = m_dir.Path("junk.dat");
    std::ofstream(junk) << "201 \r\nshort";
    CDGItem damaged(junk);
    EXPECT_NE(damaged.Describe(false), 0);
    EXPECT_EQ(damaged.m_strDescription, junk + ", <error accessing file>");
}

TEST_F(DGItemTest, CountErrorShowsAsTheCount) {
    // A run cut short has no end-of-data marker; the count's error id 15836
    // is a positive number and stands where the count would.
    std::string path = m_dir.Path("cut.dat");
    grp_test_WriteDataFile(path, KIND_TALLY, 2, "Cut", false);
    CDGItem item(path);
    EXPECT_EQ(item.m_strDescription, path + ", 15836, Tally, Cut");
}

}  // namespace
