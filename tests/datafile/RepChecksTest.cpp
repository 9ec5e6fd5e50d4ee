// The checks of the data-file layer that no dialog runs; those the dialogs
// share are tests of the shared check (DataFileCheckTest).
#include <gtest/gtest.h>

#include "TestFiles.h"
#include "datafile/FileGlobals.h"
#include "datafile/RepChecks.h"

namespace {

TEST(RepChecks, TreatmentText) {
    struct Case {
        const char* text;
        int rc;
    } cases[] = {{"", 0}, {"1", 0}, {"All", 0}, {"Lumped", 0}, {"0", 15804}, {"x", 15804}, {"3a", 15804}};
    for (const Case& c : cases) {
        int treatment = 0;
        EXPECT_EQ(rep_CheckTreatmentText(c.text, &treatment), c.rc) << c.text;
    }
    EXPECT_EQ(rep_CheckTreatment(REP_REPMEANS), 15804);
}

TEST(RepChecks, SameKinds) {
    TempDir dir;
    HeaderFields tally, dstat;
    dstat.kind = 1;
    test_WriteDataFile(dir.Path("a.dat"), tally, {});
    test_WriteDataFile(dir.Path("b.dat"), tally, {});
    test_WriteDataFile(dir.Path("c.dat"), dstat, {});
    EXPECT_EQ(rep_CheckSameKind(dir.Path("a.dat").c_str(), dir.Path("b.dat").c_str()), 0);
    EXPECT_EQ(rep_CheckSameKind(dir.Path("a.dat").c_str(), dir.Path("c.dat").c_str()), 15806);
    EXPECT_EQ(rep_CheckSameKinds({dir.Path("a.dat"), dir.Path("b.dat")}), 0);
    EXPECT_EQ(rep_CheckSameKinds({dir.Path("a.dat"), dir.Path("b.dat"), dir.Path("c.dat")}), 15926);
}

TEST(RepChecks, AppendAndLumped) {
    EXPECT_EQ(rep_CheckAppendReinit(1, 1), 0);
    EXPECT_EQ(rep_CheckAppendReinit(0, 1), 15807);
    EXPECT_EQ(rep_CheckAppendReinit(0, REP_LUMPED), 0);
    EXPECT_EQ(rep_CheckAppendReinit(1, REP_LUMPED), 15808);
    EXPECT_EQ(rep_CheckNotLumped(REP_LUMPED), 15932);
    EXPECT_EQ(rep_CheckNotLumped(REP_ALL), 0);
}

}  // namespace
