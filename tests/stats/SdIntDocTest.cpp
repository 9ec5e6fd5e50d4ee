// Intervals on the standard deviation. Limits are worked out by hand with
// chi-square points from the published table (upper-tail probability 0.025
// and 0.975: df 1 5.0239 and 0.000982, df 2 7.3778 and 0.0506, df 4 11.1433
// and 0.4844).
#include <gtest/gtest.h>

#include <cmath>

#include "datafile/FileGlobals.h"
#include "stats/IntervalTestFiles.h"
#include "stats/IntrvlDlg.h"
#include "stats/SdIntDoc.h"
#include "stats/SdIntTextView.h"

namespace {

struct Row {
    std::string path;
    const char* reps;
    std::string ident;
};

CSdIntDlg MakeDialog(const std::vector<Row>& rows, const char* level, const char* title = "") {
    CSdIntDlg dlg;
    for (const Row& r : rows) {
        dlg.AddFile(r.path, r.reps);
        dlg.m_items.back().m_strIdent = r.ident;
    }
    dlg.m_strLevel = level;
    dlg.m_strTitle = title;
    return dlg;
}

std::string Report(CSdIntDoc& doc) {
    CSdIntTextView view;
    view.SetDocument(&doc);
    return txt_ReportText(view);
}

class SdIntDocTest : public ::testing::Test {
protected:
    void SetUp() override {
        a = dir.WriteReps("a.dat", KIND_TALLY, {{1, 2, 3, 4, 5}});
        b = dir.WriteReps("b.dat", KIND_TALLY, {{10, 12}, {20, 22, 24}});
        c = dir.WriteReps("c.dat", KIND_TALLY, {{7}});
        k = dir.WriteReps("k.dat", KIND_TALLY, {{4, 4, 4}});
    }
    IntervalTestDir dir;
    std::string a, b, c, k;
};

TEST_F(SdIntDocTest, Report) {
    // a: s = sqrt(2.5) = 1.5811; limits sqrt(10 / 11.1433) = 0.9473, sqrt(10 / 0.4844) = 4.5435.
    // b rep 1: s = sqrt(2); limits sqrt(2 / 5.0239) = 0.6310, sqrt(2 / 0.000982) = 45.13.
    // b rep 2: s = 2; limits sqrt(8 / 7.3778) = 1.0413, sqrt(8 / 0.0506) = 12.57.
    // Constant series and a single observation: every limit 0.
    CSdIntDlg dlg = MakeDialog({{a, "", "a.dat"},
                                {b, "All", "b.dat"},
                                {k, "", "k.dat"},
                                {c, "", "c.dat"},
                                {a, "Lumped", "abcdefghijklmnopqrstuvwxy"}},
                               "0.95", "Service times");
    ASSERT_EQ(dlg.Validate(nullptr), 0);
    CSdIntDoc doc;
    ASSERT_EQ(doc.InitFromDialog(dlg), 0);
    EXPECT_EQ(Report(doc), "              Standard Deviation Intervals Summary\n"
                           "                                     Service times\n"
                           "\n"
                           "IDENTIFIER         EST.STANDARD   LOWER 0.950   UPPER 0.950      RANGE    NUMBER\n"
                           "                      DEVIATION     C.I.LIMIT     C.I.LIMIT     OF OBS    OF OBS\n"
                           "a.dat                  1.58         0.947          4.54          4         5\n"
                           "b.dat@1                1.41         0.631          45.1          2         2\n"
                           "b.dat@2                   2          1.04          12.6          4         3\n"
                           "k.dat                     0             0             0          0         3\n"
                           "c.dat                     0             0             0          0         1\n"
                           "abcdefghijklmnop       1.58         0.947          4.54          4         5\n");
}

TEST_F(SdIntDocTest, LimitsAndGraphRange) {
    CSdIntDlg dlg = MakeDialog({{a, "", ""}, {b, "1", ""}, {b, "2", ""}}, "0.95");
    CSdIntDoc doc;
    ASSERT_EQ(doc.InitFromDialog(dlg), 0);
    // s with its chi-square limits for each row.
    const double expected[3][3] = {{std::sqrt(2.5), 0.94731, 4.5435}, {std::sqrt(2.0), 0.63095, 45.128},
                                   {2.0, 1.04132, 12.5695}};
    const double tolerance[3] = {1e-12, 2e-4, 0.05};
    for (int i = 0; i < 3; ++i) {
        const IntervalRow& r = doc.Results().rows[static_cast<std::size_t>(i)];
        const double got[3] = {r.stdDev, r.lower, r.upper};
        for (int j = 0; j < 3; ++j) EXPECT_NEAR(got[j], expected[i][j], tolerance[j]) << i << " " << j;
    }
    EXPECT_EQ(doc.GraphRecordOffset(2), 8);
    // Range over the limits only: lowest lower limit (b rep 1), highest upper (b rep 1).
    EXPECT_NEAR(doc.Results().graphLow, 0.63095, 2e-4);
    EXPECT_NEAR(doc.Results().graphHigh, 45.128, 0.05);
    EXPECT_EQ(doc.GraphTitleId(), 15951);
    EXPECT_EQ(doc.Results().rows[1].range, 2.0);
    // No title line without a title.
    EXPECT_EQ(Report(doc).substr(0, 57), "              Standard Deviation Intervals Summary\n\nIDENT");
}

TEST_F(SdIntDocTest, LumpedReadsOnAcrossReplications) {
    CSdIntDlg dlg = MakeDialog({{b, "Lumped", ""}, {b, "", ""}}, "0.95");
    CSdIntDoc doc;
    ASSERT_EQ(doc.InitFromDialog(dlg), 0);
    EXPECT_EQ(doc.Results().rows[0].numObs, 5);
    EXPECT_DOUBLE_EQ(doc.Results().rows[0].stdDev, std::sqrt(38.8));
    EXPECT_EQ(doc.Results().rows[0].range, 14.0);
    EXPECT_EQ(doc.Results().rows[1].numObs, 2);
}

TEST_F(SdIntDocTest, NoObservationsStopsTheComputation) {
    const std::string empty = dir.WriteRecords("e.dat", KIND_TALLY, {{-1, 0}, {1, 5}, {-2, -1}});
    CSdIntDlg dlg = MakeDialog({{a, "", ""}, {empty, "1", ""}, {c, "", ""}}, "0.95");
    CSdIntDoc doc;
    EXPECT_EQ(doc.InitFromDialog(dlg), 15901);
    ASSERT_GE(doc.Results().rows.size(), 2u);
    EXPECT_TRUE(doc.Results().rows[0].computed);
    EXPECT_EQ(doc.Results().rows[0].stdDev, std::sqrt(2.5));
    EXPECT_FALSE(doc.Results().rows[1].computed);
    for (std::size_t i = 2; i < doc.Results().rows.size(); ++i) EXPECT_FALSE(doc.Results().rows[i].computed);
}

TEST_F(SdIntDocTest, InfiniteDataHaveNoSpread) {
    // The variance inf - inf is not greater than 0, so it becomes 0.
    const std::string inf = dir.WriteReps("inf.dat", KIND_TALLY, {{1, HUGE_VAL, 3}}, false);
    CSdIntDlg dlg = MakeDialog({{inf, "", ""}}, "0.95");
    CSdIntDoc doc;
    ASSERT_EQ(doc.InitFromDialog(dlg), 0);
    EXPECT_EQ(doc.Results().rows[0].stdDev, 0.0);
    EXPECT_EQ(doc.Results().rows[0].lower, 0.0);
    EXPECT_EQ(doc.Results().rows[0].upper, 0.0);
    EXPECT_EQ(doc.Results().rows[0].range, HUGE_VAL);
}

TEST_F(SdIntDocTest, LargeOffsetKeepsItsDigits) {
    // 10^7 + 0.1 k, k = 1..5 repeated 20000 times: s^2 = 0.02 n / (n - 1).
    std::vector<double> values;
    for (int i = 0; i < 100000; ++i) values.push_back(1e7 + 0.1 * (i % 5 + 1));
    const std::string big = dir.WriteReps("big.dat", KIND_TALLY, {values});
    CSdIntDlg dlg = MakeDialog({{big, "", ""}}, "0.95");
    CSdIntDoc doc;
    ASSERT_EQ(doc.InitFromDialog(dlg), 0);
    const IntervalRow& r = doc.Results().rows[0];
    EXPECT_NEAR(r.stdDev, std::sqrt(0.02 * 100000 / 99999), 1e-9);
    // With 99999 degrees of freedom the limits lie within about 0.5% of s.
    EXPECT_LT(r.lower, r.stdDev);
    EXPECT_GT(r.lower, r.stdDev * 0.99);
    EXPECT_GT(r.upper, r.stdDev);
    EXPECT_LT(r.upper, r.stdDev * 1.01);
    EXPECT_NEAR(r.range, 0.4, 1e-8);
}

}  // namespace
