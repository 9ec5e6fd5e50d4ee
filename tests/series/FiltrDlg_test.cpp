// Batch/Truncate dialog: the field exchange, the order of the checks and the
// control each failure sends the focus to, and the transfer rules.
#include "series/FiltrDlg.h"

#include <gtest/gtest.h>

#include "datafile/FileGlobals.h"
#include "framework/Messages.h"
#include "series/FiltrFiles.h"

namespace {

using filtr_test::Pair;

TEST(FiltrDlgTransfer, UnitTextsAreReadByTheirFirstLetter) {
    const struct {
        const char* text;
        int code;
    } cases[] = {
        {"", -1},          {"Time", 0},     {"time", 0},  {"T", 0},         {"tea", 0},
        {"Observation", 1}, {"obs", 1},     {"O", 1},     {"o", 1},         {"x", -1},
        {" Time", -1},     {"0", -1},       {"1", -1},    {"Lumped", -1},   {"-Time", -1},
    };
    for (const auto& c : cases) EXPECT_EQ(CFiltrDlg::UnitCode(c.text), c.code) << '"' << c.text << '"';
}

TEST(FiltrDlgTransfer, BatchSizeTakenOnlyWhenPositive) {
    EXPECT_EQ(CFiltrDlg::BatchSizeTaken(2.9), 2.9);
    EXPECT_EQ(CFiltrDlg::BatchSizeTaken(1e-9), 1e-9);
    EXPECT_EQ(CFiltrDlg::BatchSizeTaken(0.0), -1.0);
    EXPECT_EQ(CFiltrDlg::BatchSizeTaken(-0.0), -1.0);
}

class FiltrDlgChecks : public ::testing::Test {
protected:
    void SetUp() override {
        filtr_test::WriteDataFile(m_good, KIND_TALLY, {{1, 1}, {2, 2}, {-1, 0}, {3, 3}, {-2, -1}});
        test_WriteBytes(m_bad, "not a data file\r\n");
    }
    CFiltrDlg Dialog(const std::string& file) {
        CFiltrDlg d;
        d.m_strFile = file;
        return d;
    }
    TempDir m_dir;
    std::string m_good = m_dir.Path("two.dat");  // two replications
    std::string m_bad = m_dir.Path("bad.dat");
};

TEST_F(FiltrDlgChecks, FirstFailingCheckWinsAndNamesItsControl) {
    const std::string missing = m_dir.Path("missing.dat");
    using enum DlgControl;
    struct Case {
        const char* what;
        std::string file, reps, trunc, size, out;
        int id;
        DlgControl focus;
    } cases[] = {
        // The field exchange runs before every other check, in tab order.
        {"unreadable truncation", "", "x", "abc", "y", "", IDS_INVALID_NUMBER, Truncation},
        {"negative zero is refused", m_good, "", "-0", "", "", IDS_INVALID_NUMBER, Truncation},
        {"trailing blank", m_good, "", "5 ", "", "", IDS_INVALID_NUMBER, Truncation},
        {"truncation above range", "", "", "1000000", "y", "", IDP_REAL_RANGE_0_999999, Truncation},
        {"truncation below range", m_good, "", "-1", "", "", IDP_REAL_RANGE_0_999999, Truncation},
        {"unreadable batch size", "", "x", "999999", "2,5", "", IDS_INVALID_NUMBER, BatchSize},
        {"batch size above range", "", "", "0", "999999.5", "", IDP_REAL_RANGE_0_999999, BatchSize},
        {"no source", "", "x", "999999", "999999", m_good, IDS_SOURCE_NOT_SPECIFIED, DataFile},
        {"source missing", missing, "x", "", "", missing, IDS_FILE_NOT_FOUND, DataFile},
        {"output is the source", m_bad, "x", "", "", m_dir.Path("sub/../bad.dat"), IDS_SAME_OUTPUT_FILE,
         OutputFile},
        {"not a data file", m_bad, "x", "", "", "", IDS_INVALID_DATA_FILE, DataFile},
        {"treatment words", m_good, "xyz", "", "", "", IDS_INVALID_REP_TREATMENT, Replications},
        {"too few replications", m_good, "3", "", "", "", IDS_NOT_ENOUGH_REPS, Replications},
        {"last replication", m_good, "2", "", "", m_dir.Path("out.flt"), 0, None},
        {"all", m_good, "All", "0", "0", "", 0, None},
        {"lumped", m_good, "lumped", "999999", "999999", "", 0, None},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        CFiltrDlg d = Dialog(c.file);
        d.m_strReps = c.reps;
        d.m_strTrunc = c.trunc;
        d.m_strBatchSize = c.size;
        d.m_strOutFile = c.out;
        int index = 7;
        EXPECT_EQ(d.Validate(&index), c.id);
        EXPECT_EQ(d.FocusControl(), c.focus);
    }
}

TEST_F(FiltrDlgChecks, OutputComparedAsFileNames) {
    std::filesystem::create_directory(m_dir.Path("sub"));
    std::filesystem::create_symlink(m_good, m_dir.Path("link.dat"));
    const std::string same[] = {m_good, m_dir.Path("sub/../two.dat"), m_dir.Path("link.dat")};
    for (const std::string& out : same) {
        CFiltrDlg d = Dialog(m_good);
        d.m_strOutFile = out;
        EXPECT_EQ(d.Validate(nullptr), IDS_SAME_OUTPUT_FILE) << out;
    }
    const std::string other[] = {m_dir.Path("two.flt"), m_dir.Path("sub/two.dat"), ""};
    for (const std::string& out : other) {
        CFiltrDlg d = Dialog(m_good);
        d.m_strOutFile = out;
        EXPECT_EQ(d.Validate(nullptr), 0) << out;
    }
}

TEST_F(FiltrDlgChecks, ExchangeReadsNumbersAndTreatment) {
    const struct {
        const char* trunc;
        const char* size;
        const char* reps;
        double truncValue, sizeValue;
        int treatment;
    } cases[] = {
        {"", "", "", 0.0, 0.0, 1},
        {" 12.5", "2.9", "2", 12.5, 2.9, 2},
        {"1e3", "0.5", "All", 1000.0, 0.5, REP_ALL},
        {"999999", "999999", "Lumped", 999999.0, 999999.0, REP_LUMPED},
    };
    for (const auto& c : cases) {
        CFiltrDlg d = Dialog(m_good);
        d.m_strTrunc = c.trunc;
        d.m_strBatchSize = c.size;
        d.m_strReps = c.reps;
        ASSERT_EQ(d.Validate(nullptr), 0) << c.trunc;
        EXPECT_EQ(d.m_dTrunc, c.truncValue);
        EXPECT_EQ(d.m_dBatchSize, c.sizeValue);
        EXPECT_EQ(d.m_nTreatment, c.treatment);
    }
}

TEST_F(FiltrDlgChecks, TextsAreCutToWhatTheControlsHold) {
    CFiltrDlg d = Dialog(m_good);
    d.m_strTitle = std::string(61, 'T');
    d.m_strBatchType = "O" + std::string(200, 'b');
    ASSERT_EQ(d.Validate(nullptr), 0);
    EXPECT_EQ(d.m_strTitle, std::string(60, 'T'));
    EXPECT_EQ(d.m_strBatchType.size(), 128u);
}

}  // namespace
