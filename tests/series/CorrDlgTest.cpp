#include "series/CorrDlg.h"

#include <gtest/gtest.h>

#include "TestFiles.h"

namespace {

class CorrDlgChecks : public ::testing::Test {
protected:
    void SetUp() override {
        test_WriteDataFile(P("tally.dat"), {}, test_Replications({{{1, 1}, {2, 2}}, {{1, 3}}}));
        HeaderFields dstat;
        dstat.kind = 2;
        dstat.type = "CSTAT";
        test_WriteDataFile(P("cstat.dat"), dstat, test_Replications({{{0, 1}}}));
        HeaderFields output;
        output.kind = 4;
        output.type = "Output";
        test_WriteDataFile(P("output.dat"), output, test_Replications({{{9, 1}}}));
        test_WriteBytes(P("bad.dat"), "garbage, not a data file");
    }
    std::string P(const std::string& name) const { return name.empty() ? "" : dir.Path(name); }

    TempDir dir;
};

struct Case {
    const char* file;
    const char* reps;
    int lags;
    const char* out;
    int id;
    DlgControl focus;
};

// Each check in its place: a case fails only the check it names and those
// after it, so moving a check changes the result.
TEST_F(CorrDlgChecks, OrderMessagesAndFocus) {
    using enum DlgControl;
    const Case cases[] = {
        {"tally.dat", "", 5, "", 0, None},
        {"", "x", 0, "", 15803, DataFile},
        {"none.dat", "x", 0, "none.dat", 15811, DataFile},
        {"tally.dat", "x", 0, "tally.dat", 15925, OutputFile},
        {"tally.dat", "", 3, "./tally.dat", 15925, OutputFile},  // the source named another way
        {"bad.dat", "x", 0, "", 15821, DataFile},
        {"tally.dat", "x", 0, "", 15804, Replications},
        {"cstat.dat", "9", 0, "", 15809, MaxLags},
        {"cstat.dat", "9", 5, "", 15940, Replications},
        {"cstat.dat", "All", 5, "", 15810, DataFile},
        {"tally.dat", "2", 5, "", 0, None},
        {"tally.dat", "3", 5, "", 15940, Replications},
        {"tally.dat", "Lumped", 9999, "out.cor", 0, None},
        // Unlike the mean analyses the correlogram takes Output data as it is.
        {"output.dat", "1", 1, "", 0, None},
    };
    for (const Case& c : cases) {
        CCorrDlg dlg;
        dlg.m_strFile = P(c.file);
        dlg.m_strReps = c.reps;
        dlg.m_nMaxLags = c.lags;
        dlg.m_strOutFile = P(c.out);
        EXPECT_EQ(dlg.Validate(nullptr), c.id) << c.file << " " << c.reps << " " << c.lags << " " << c.out;
        EXPECT_EQ(dlg.FocusControl(), c.focus) << c.file << " " << c.reps << " " << c.lags;
    }
}

TEST_F(CorrDlgChecks, MaximumLagsFieldComesFirst) {
    CCorrDlg dlg;
    dlg.m_strFile = P("tally.dat");
    std::string message;
    dlg.m_strMaxLags = "ten";
    EXPECT_FALSE(dlg.ExchangeFields(&message));
    EXPECT_EQ(message, "Please enter an integer.");
    EXPECT_EQ(dlg.FocusControl(), DlgControl::MaxLags);
    dlg.m_strMaxLags = "10000";
    EXPECT_FALSE(dlg.ExchangeFields(&message));
    EXPECT_EQ(message, "Please enter an integer between 0 and 9999.");
    // 0 passes the field and is refused by the dialog's own check.
    dlg.m_strMaxLags = "0";
    ASSERT_TRUE(dlg.ExchangeFields(&message));
    EXPECT_EQ(dlg.Validate(nullptr), 15809);
    dlg.m_strMaxLags = " 12 ";
    ASSERT_TRUE(dlg.ExchangeFields(&message));
    EXPECT_EQ(dlg.m_nMaxLags, 12);
    EXPECT_EQ(dlg.Validate(nullptr), 0);
}

}  // namespace
