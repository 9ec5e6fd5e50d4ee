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

// The count is "%1ld" below 10, "%2ld" to 99, "%4ld" from 100; a run cut short
// has no end-of-data marker, and the count's error id 15836 (a positive
// number) stands where the count would.
TEST_F(DGItemTest, DescriptionLines) {
    struct {
        int kind, reps;
        const char* title;
        bool ended;
        const char* line;
    } const cases[] = {
        {KIND_TALLY, 1, "Waits", true, ", 1, Tally, Waits"},  {KIND_TALLY, 9, "W", true, ", 9, Tally, W"},
        {KIND_TALLY, 10, "W", true, ", 10, Tally, W"},        {KIND_TALLY, 99, "W", true, ", 99, Tally, W"},
        {KIND_TALLY, 100, "W", true, ",  100, Tally, W"},     {KIND_TALLY, 1234, "W", true, ", 1234, Tally, W"},
        {1, 2, "T", true, ", 2, DSTAT, T"},                   {2, 2, "T", true, ", 2, CSTAT, T"},
        {4, 2, "T", true, ", 2, Output, T"},                  {5, 2, "T", true, ", 2, Filtered, T"},
        {6, 2, "T", true, ", 2, Counter, T"},                 {7, 2, "T", true, ", 2, Frequency, T"},
        {KIND_DSTAT, 5, "", true, ", 5, DSTAT"},  // no title, no trailing separator
        {KIND_TALLY, 2, "Cut", false, ", 15836, Tally, Cut"},
    };
    int n = 0;
    for (const auto& c : cases) {
        std::string path = m_dir.Path("d" + std::to_string(++n) + ".dat");
        grp_test_WriteDataFile(path, c.kind, c.reps, c.title, c.ended);
        EXPECT_EQ(CDGItem(path).m_strDescription, path + c.line);
    }
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

}  // namespace
