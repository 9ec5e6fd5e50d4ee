#include "stats/PairDialogs.h"

#include <gtest/gtest.h>

#include "TestFiles.h"

namespace {

// Files for the checks: observations, time-persistent data, one value per
// replication, a damaged header.
class PairDialogs : public ::testing::Test {
protected:
    void SetUp() override {
        dir.WriteReps("tally.dat", 3, {{1, 2}, {3}});
        dir.WriteRecords("dstat.dat", 1, {{0, 1}, {-1, -1}});
        dir.WriteRecords("output.dat", 4, {{9, 1}, {-1, 0}, {9, 2}, {-2, -1}});
        test_WriteBytes(P("bad.dat"), "garbage, not a data file");
    }
public:
    std::string P(const std::string& name) const { return dir.Path(name); }

protected:
    TempDir dir;
};

struct File {
    const char* name;
    const char* reps;
};

struct Case {
    std::vector<File> files;
    int id;
    int index;  // failing pair, -1 when not examined
    DlgControl focus;
};

// Files two by two as pairs (A, B).
template <typename Dlg>
void AddPairs(Dlg& dlg, const PairDialogs& t, const std::vector<File>& files) {
    for (std::size_t i = 0; i + 1 < files.size(); i += 2)
        dlg.AddPair({t.P(files[i].name), files[i].reps}, {t.P(files[i + 1].name), files[i + 1].reps});
}

template <typename Dlg>
void RunCases(const PairDialogs& t, const std::vector<Case>& cases, const char* level) {
    for (std::size_t c = 0; c < cases.size(); ++c) {
        Dlg dlg;
        dlg.m_strLevel = level;
        AddPairs(dlg, t, cases[c].files);
        int index = -1;
        EXPECT_EQ(dlg.Validate(&index), cases[c].id) << "case " << c;
        if (cases[c].index >= 0) {
            EXPECT_EQ(index, cases[c].index) << "case " << c;
        }
        EXPECT_EQ(dlg.FocusControl(), cases[c].focus) << "case " << c;
    }
}

// The file checks of both dialogs: pair by pair, A before B, each file in the
// order exists, treatment, header, kind; then the "All" pairing rule.
const std::vector<Case>& FileCases() {
    using enum DlgControl;
    static const std::vector<Case> cases = {
        {{}, 15814, -1, None},
        {{{"tally.dat", ""}, {"tally.dat", "2"}}, 0, -1, None},
        {{{"tally.dat", ""}, {"tally.dat", ""}, {"none.dat", ""}, {"tally.dat", ""}}, 15811, 1, FileList},
        {{{"none.dat", ""}, {"bad.dat", ""}}, 15811, 0, FileList},
        {{{"bad.dat", ""}, {"tally.dat", ""}}, 15821, 0, None},
        {{{"bad.dat", "x"}, {"tally.dat", ""}}, 15804, 0, FileList},
        {{{"tally.dat", ""}, {"output.dat", "All"}}, 15810, 0, FileList},
        {{{"output.dat", "Lumped"}, {"tally.dat", "Lumped"}}, 0, -1, None},
        // "All" pairs only with "All"; the files themselves are checked first.
        {{{"tally.dat", "All"}, {"tally.dat", "All"}}, 0, -1, None},
        {{{"tally.dat", "All"}, {"tally.dat", "1"}}, 15804, 0, FileList},
        {{{"tally.dat", "Lumped"}, {"tally.dat", "All"}}, 15804, 0, FileList},
        {{{"tally.dat", "All"}, {"dstat.dat", ""}}, 15810, 0, FileList},
        // A replication beyond the file's is found only when the file is read.
        {{{"tally.dat", "7"}, {"tally.dat", ""}}, 0, -1, None},
    };
    return cases;
}

TEST_F(PairDialogs, BothDialogsCheckFilesInOrderAndBeforeTheLevel) {
    for (const char* level : {"0.95", "95"}) {
        RunCases<CComprDlg>(*this, level[0] == '0' ? FileCases() : std::vector<Case>{FileCases()[3]}, level);
        RunCases<CVarDlg>(*this, level[0] == '0' ? FileCases() : std::vector<Case>{FileCases()[3]}, level);
    }
}

struct LevelCase {
    const char* text;
    bool compare;  // accepted by the comparison of means
    bool vartest;  // accepted by the comparison of variances
};

// Means: a fraction from 0 to 1, both included, and the text must parse.
// Variances: strictly between 0 and 1; a text that does not parse counts as 0.
TEST_F(PairDialogs, LevelRules) {
    const LevelCase cases[] = {
        {"0.95", true, true}, {"0.99", true, true}, {"0.5", true, true},  {"1e-300", true, true},
        {"1", true, false},   {"0", true, false},   {"", true, false},    {"95", false, false},
        {"100", false, false}, {"-0", false, false}, {"-0.1", false, false}, {"1.0001", false, false},
        {"abc", false, false}, {"0.9 ", false, false}, {" 0.9", true, true}, {"nan", false, false},
        {"inf", false, false},
    };
    for (const LevelCase& c : cases) {
        CComprDlg compare;
        compare.m_strLevel = c.text;
        compare.AddPair({P("tally.dat"), ""}, {P("tally.dat"), ""});
        int index = -1;
        EXPECT_EQ(compare.Validate(&index), c.compare ? 0 : 15813) << '"' << c.text << '"';
        EXPECT_EQ(compare.FocusControl(), c.compare ? DlgControl::None : DlgControl::Level) << '"' << c.text << '"';

        CVarDlg vartest;
        vartest.m_strLevel = c.text;
        vartest.AddPair({P("tally.dat"), ""}, {P("tally.dat"), ""});
        EXPECT_EQ(vartest.Validate(&index), c.vartest ? 0 : 15813) << '"' << c.text << '"';
        EXPECT_EQ(vartest.FocusControl(), c.vartest ? DlgControl::None : DlgControl::Level) << '"' << c.text << '"';
    }
}

TEST_F(PairDialogs, ValidateRefreshesTreatmentsFromTheirTexts) {
    CComprDlg dlg;
    dlg.AddPair({P("tally.dat"), ""}, {P("tally.dat"), ""});
    dlg.m_pairs[0].a.m_strReps = "Lumped";
    dlg.m_pairs[0].b.m_strReps = "2";
    EXPECT_EQ(dlg.Validate(nullptr), 0);
    EXPECT_EQ(dlg.m_pairs[0].a.m_nTreatment, -4);
    EXPECT_EQ(dlg.m_pairs[0].b.m_nTreatment, 2);
}

}  // namespace
