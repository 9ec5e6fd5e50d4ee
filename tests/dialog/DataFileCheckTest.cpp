// The data-file checks the dialogs share, step by step, and the reading of a
// confidence level.
#include "dialog/DataFileCheck.h"

#include <gtest/gtest.h>

#include "TestFiles.h"

namespace {

class DataFileCheckTest : public ::testing::Test {
protected:
    void SetUp() override {
        dir.WriteReps("tally.dat", 3, {{1, 2}, {3}});
        for (auto [name, kind] : {std::pair{"dstat.dat", 1}, {"cstat.dat", 2}, {"output.dat", 4}, {"filtered.dat", 5},
                                  {"counter.dat", 6}, {"freq.dat", 7}})
            dir.WriteReps(name, kind, {{1}});
        test_WriteBytes(P("bad.dat"), "garbage, not a data file");
    }
    std::string P(const std::string& name) const { return dir.Path(name); }
    TempDir dir;
};

TEST_F(DataFileCheckTest, EachStepInTheOrderGiven) {
    using enum FileCheck;
    const struct {
        const char* file;
        const char* reps;
        std::vector<FileCheck> steps;
        int id;
        FileCheck failed;
    } cases[] = {
        {"tally.dat", "", {Exists, Treatment, Header, EnoughReps, Observations}, 0, Exists},
        {"none.dat", "x", {Exists, Treatment}, 15811, Exists},
        {"none.dat", "", {HeaderReadable}, 15811, HeaderReadable},
        {"none.dat", "", {Header, Treatment}, 0, Exists},  // the document reports it
        {"bad.dat", "x", {Treatment, Header}, 15804, Treatment},
        {"bad.dat", "x", {Header, Treatment}, 15821, Header},
        {"bad.dat", "", {HeaderReadable}, 15821, HeaderReadable},
        {"tally.dat", "0", {Treatment}, 15804, Treatment},
        {"tally.dat", "2", {Treatment, EnoughReps}, 0, Exists},
        {"tally.dat", "3", {Treatment, EnoughReps}, 15940, EnoughReps},
        {"tally.dat", "All", {EnoughReps}, 0, Exists},
        {"tally.dat", "Lumped", {EnoughReps}, 0, Exists},
        {"dstat.dat", "Lumped", {Header, NotTimePersistent}, 15810, NotTimePersistent},
        {"cstat.dat", "", {Header, Observations}, 15810, Observations},
        {"dstat.dat", "1", {Header, Observations}, 15810, Observations},
        {"counter.dat", "1", {Header, Observations}, 15810, Observations},
        {"freq.dat", "All", {Header, Observations}, 15810, Observations},
        // Output data are observations only when the replications are lumped.
        {"output.dat", "1", {Header, NotTimePersistent}, 0, Exists},
        {"output.dat", "1", {Header, Observations}, 15810, Observations},
        {"output.dat", "All", {Header, Observations}, 15810, Observations},
        {"output.dat", "Lumped", {Header, Observations}, 0, Exists},
        {"filtered.dat", "", {Header, Observations}, 0, Exists},
        // The kind is known only once the header step has run.
        {"dstat.dat", "", {NotTimePersistent}, 0, Exists},
    };
    for (const auto& c : cases) {
        DataFileCheck file{P(c.file), c.reps};
        // A dialog may run its steps in several calls; the file remembers its kind.
        int rc = 0;
        for (FileCheck step : c.steps)
            if ((rc = dlg_CheckDataFile(file, {step})) != 0) break;
        EXPECT_EQ(rc, c.id) << c.file << "@" << c.reps;
        if (rc) {
            EXPECT_EQ(file.failed, c.failed) << c.file << "@" << c.reps;
        }
    }
}

TEST(DataFileCheck, TreatmentStepsFocusTheReplications) {
    EXPECT_EQ(dlg_FileFocus(FileCheck::Treatment), DlgControl::Replications);
    EXPECT_EQ(dlg_FileFocus(FileCheck::EnoughReps), DlgControl::Replications);
    EXPECT_EQ(dlg_FileFocus(FileCheck::Header), DlgControl::DataFile);
    EXPECT_EQ(dlg_FileFocus(FileCheck::NotTimePersistent), DlgControl::DataFile);
}

TEST(DataFileCheck, LevelToErrorProbability) {
    struct {
        const char* level;
        double alpha;
    } const cases[] = {{"0.95", 0.05}, {"95", 0.05}, {"0.99", 0.01}, {"90", 0.10}, {"1", 0.0},
                       {"1.5", 0.985}, {"0", 1.0},   {"100", 0.0},   {"abc", 1.0}, {"-0", 1.0}};
    for (const auto& c : cases) EXPECT_NEAR(dlg_AlphaFromLevel(c.level), c.alpha, 1e-15) << c.level;
}

}  // namespace
