// Validation of the Plot dialog: the order of the checks, the crossed range
// messages and where the focus goes.
#include <gtest/gtest.h>

#include "TestFiles.h"
#include "framework/Messages.h"
#include "graph/PlotDlg.h"

namespace {

class PlotDlgTest : public ::testing::Test {
protected:
    void SetUp() override {
        good = dir.Path("good.dat");
        test_WriteDataFile(good, HeaderFields{}, test_Replications({{{1, 1}}}));
        bad = dir.Path("bad.dat");
        test_WriteBytes(bad, "not a data file\r\n");
    }
    TempDir dir;
    std::string good, bad;
};

TEST_F(PlotDlgTest, ChecksInOrderWithTheirFocus) {
    struct Case {
        const char* what;
        std::vector<std::string> files;
        const char *from, *to, *min, *max;
        int id;
        DlgControl focus;
        int index;
    };
    const std::string none = dir.Path("none.dat");
    using enum DlgControl;
    const Case cases[] = {
        {"no files", {}, "x", "", "", "", IDS_NO_FILES, FileList, -1},
        {"missing second file", {good, none}, "x", "", "", "", IDS_FILE_NOT_FOUND, FileList, 1},
        {"bad header", {bad}, "x", "", "", "", IDS_INVALID_DATA_FILE, None, 0},
        {"negative beginning", {good}, "-1", "x", "", "", 15817, BeginTime, 0},
        {"text beginning", {good}, "abc", "", "", "", 15817, BeginTime, 0},
        {"negative ending", {good}, "", "-0.5", "x", "", 15818, EndTime, 0},
        {"minimum not a number", {good}, "", "", "1e", "x", 15819, MinValue, 0},
        {"maximum not a number", {good}, "", "", "", "5 ", 15820, MaxValue, 0},
        // Time check: the message speaks of values, the focus follows it.
        {"equal times", {good}, "5", "5", "", "", 15829, MaxValue, 0},
        {"reversed times", {good}, "6", "5", "", "", 15829, MaxValue, 0},
        // Value check: the message speaks of time.
        {"equal values", {good}, "", "", "5", "5", IDS_ENDING_TIME, EndTime, 0},
        {"reversed values", {good}, "1", "2", "3", "-3", IDS_ENDING_TIME, EndTime, 0},
        {"beginning at zero", {good}, "0", "10", "", "", 0, None, 0},
        {"only one bound of each", {good}, "3", "", "", "-2", 0, None, 0},
    };
    for (const Case& c : cases) {
        CPlotDlg dlg;
        for (const std::string& f : c.files) dlg.AddFile(f, "");
        dlg.m_strBeginTime = c.from;
        dlg.m_strEndTime = c.to;
        dlg.m_strMinValue = c.min;
        dlg.m_strMaxValue = c.max;
        int index = -1;
        EXPECT_EQ(dlg.Validate(&index), c.id) << c.what;
        EXPECT_EQ(dlg.FocusControl(), c.focus) << c.what;
        if (c.id == IDS_FILE_NOT_FOUND || c.id == IDS_INVALID_DATA_FILE) {
            EXPECT_EQ(index, c.index) << c.what;
        }
    }
}

TEST_F(PlotDlgTest, ParsedBoundsWithEmptyTimesAsMinusOneAndLabels) {
    CPlotDlg dlg;
    EXPECT_EQ(dlg.m_strXLabel, "Time");
    EXPECT_EQ(dlg.m_strYLabel, "Value");
    dlg.AddFile(good, "");
    dlg.m_strEndTime = "12.5";
    dlg.m_strMinValue = "-3";
    ASSERT_EQ(dlg.Validate(nullptr), 0);
    EXPECT_EQ(dlg.m_dBeginTime, -1.0);
    EXPECT_EQ(dlg.m_dEndTime, 12.5);
    EXPECT_EQ(dlg.m_dMinValue, -3.0);
    EXPECT_EQ(dlg.m_dMaxValue, 0.0);
    // Labels longer than the edit control holds are cut.
    dlg.m_strXLabel = std::string(200, 'x');
    ASSERT_EQ(dlg.Validate(nullptr), 0);
    EXPECT_EQ(dlg.m_strXLabel.size(), 128u);
}

}  // namespace
