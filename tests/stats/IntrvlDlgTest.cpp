// Validation order, message ids, failing row and focus of the interval dialogs.
#include <gtest/gtest.h>

#include "TestFiles.h"
#include "datafile/FileGlobals.h"
#include "series/StdInDlg.h"
#include "stats/IntrvlDlg.h"

namespace {

struct Entry {
    const char* file;  // name in the test folder; "" for none
    const char* reps;
};

struct Case {
    const char* what;
    std::vector<Entry> entries;
    const char* level;
    int id;
    int index;  // failing index after the call; -7 when it is not written
    DlgControl focus;
    int selected;
};

void PrintTo(const Case& c, std::ostream* os) { *os << c.what; }

class IntrvlDlgTest : public ::testing::TestWithParam<Case> {
protected:
    static void SetUpTestSuite() {
        s_dir = new TempDir;
        s_dir->WriteReps("tally.dat", KIND_TALLY, {{1, 2}, {3}});
        s_dir->WriteReps("dstat.dat", KIND_DSTAT, {{1, 2}});
        s_dir->WriteReps("freq.dat", KIND_FREQUENCY, {{1, 2}});
        s_dir->WriteReps("output.dat", KIND_OUTPUT, {{4}, {5}});
        s_dir->WriteReps("filtered.dat", KIND_FILTERED, {{4}});
        test_WriteBytes(s_dir->Path("junk.dat"), "hello, this is not a data file\r\n");
    }
    static void TearDownTestSuite() {
        delete s_dir;
        s_dir = nullptr;
    }
    static TempDir* s_dir;
};
TempDir* IntrvlDlgTest::s_dir = nullptr;

TEST_P(IntrvlDlgTest, ChecksInOrder) {
    const Case& c = GetParam();
    CIntrvlDlg dlg;
    for (const Entry& e : c.entries) dlg.AddFile(s_dir->Path(e.file), e.reps);
    dlg.m_strLevel = c.level;
    int index = -7;
    EXPECT_EQ(dlg.Validate(&index), c.id) << c.what;
    EXPECT_EQ(index, c.index) << c.what;
    EXPECT_EQ(dlg.FocusControl(), c.focus) << c.what;
    EXPECT_EQ(dlg.SelectedRow(), c.selected) << c.what;
}

constexpr DlgControl kList = DlgControl::FileList;
constexpr DlgControl kLevel = DlgControl::Level;
constexpr DlgControl kNone = DlgControl::None;

INSTANTIATE_TEST_SUITE_P(
    Validation, IntrvlDlgTest,
    ::testing::Values(
        Case{"no file", {}, "0.95", 15814, -7, kNone, -1},
        Case{"no file beats a bad level", {}, "abc", 15814, -7, kNone, -1},
        Case{"level not a number", {{"tally.dat", ""}}, "abc", 15813, -7, kLevel, -1},
        Case{"level below 0", {{"tally.dat", ""}}, "-1", 15813, -7, kLevel, -1},
        Case{"level above 100", {{"tally.dat", ""}}, "100.5", 15813, -7, kLevel, -1},
        Case{"trailing blank", {{"tally.dat", ""}}, "95 ", 15813, -7, kLevel, -1},
        Case{"level 0 accepted", {{"tally.dat", ""}}, "0", 0, 0, kNone, -1},
        Case{"level 100 accepted", {{"tally.dat", ""}}, "100", 0, 0, kNone, -1},
        Case{"level 1.5 accepted", {{"tally.dat", ""}}, "1.5", 0, 0, kNone, -1},
        Case{"empty level parses as 0", {{"tally.dat", ""}}, "", 0, 0, kNone, -1},
        Case{"missing second file", {{"tally.dat", ""}, {"missing.dat", ""}}, "95", 15811, 1, kList, 1},
        Case{"existence before treatment", {{"missing.dat", "x"}}, "95", 15811, 0, kList, 0},
        Case{"treatment 0", {{"tally.dat", "0"}}, "95", 15804, 0, kList, 0},
        Case{"treatment before header", {{"junk.dat", "-1"}}, "95", 15804, 0, kList, 0},
        Case{"bad header, no focus", {{"tally.dat", ""}, {"junk.dat", ""}}, "95", 15821, 1, kNone, -1},
        Case{"DSTAT", {{"dstat.dat", ""}}, "95", 15810, 0, kList, 0},
        Case{"Frequency", {{"tally.dat", ""}, {"freq.dat", "1"}}, "95", 15810, 1, kList, 1},
        Case{"first failing file wins", {{"dstat.dat", ""}, {"missing.dat", ""}}, "95", 15810, 0, kList, 0},
        Case{"Output data by replication", {{"output.dat", "1"}}, "0.90", 0, 0, kNone, -1},
        Case{"every treatment passes", {{"tally.dat", "All"}, {"tally.dat", "lumped"}, {"filtered.dat", ""}},
             "0.99", 0, 2, kNone, -1},
        // Replication numbers are checked when the file is read.
        Case{"replication beyond the file", {{"tally.dat", "9"}}, "95", 0, 0, kNone, -1}));

TEST(IntrvlDlg, DerivedDialogsValidateAlikeAndKeepTheirCaption) {
    TempDir dir;
    dir.WriteReps("d.dat", KIND_DSTAT, {{1}});
    CSdIntDlg sd;
    CStdInDlg std;
    for (CIntrvlDlg* dlg : {static_cast<CIntrvlDlg*>(&sd), static_cast<CIntrvlDlg*>(&std)}) {
        dlg->AddFile(dir.Path("d.dat"), "");
        int index = -1;
        EXPECT_EQ(dlg->Validate(&index), 15810);
        EXPECT_EQ(index, 0);
        EXPECT_EQ(dlg->FocusControl(), kList);
    }
    EXPECT_EQ(std.CaptionId(), 15918);
    EXPECT_EQ(sd.CaptionId(), 0);
}

TEST(IntrvlDlg, AFailureIsClearedByTheNextValidation) {
    TempDir dir;
    dir.WriteReps("t.dat", KIND_TALLY, {{1}});
    CIntrvlDlg dlg;
    dlg.AddFile(dir.Path("t.dat"), "0");
    EXPECT_EQ(dlg.Validate(nullptr), 15804);
    dlg.m_items[0].m_strReps = "Lumped";
    EXPECT_EQ(dlg.Validate(nullptr), 0);
    EXPECT_EQ(dlg.FocusControl(), kNone);
    EXPECT_EQ(dlg.SelectedRow(), -1);
}

TEST(IntrvlDlg, EditNeedsASelectedRow) {
    CIntrvlDlg dlg;
    EXPECT_EQ(dlg.OnChange(0), 15841);
    dlg.AddFile("a.dat", "");
    dlg.AddFile("b.dat", "");
    EXPECT_EQ(dlg.OnChange(-1), 15841);
    EXPECT_EQ(dlg.OnChange(1), 0);
    EXPECT_EQ(dlg.OnChange(2), 15841);
}

}  // namespace
