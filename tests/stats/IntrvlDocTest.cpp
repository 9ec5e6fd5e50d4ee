// Classical intervals on the mean, from data file to report. Expected reports
// are written by hand from the report formats; averages and deviations are
// worked out by hand, half-widths with Student t points from the published
// table (upper 0.025 points: df 1 12.7062, df 2 4.3027, df 4 2.7764).
#include <gtest/gtest.h>

#include <cmath>

#include "datafile/FileGlobals.h"
#include "stats/IntervalTestFiles.h"
#include "stats/IntrvlDlg.h"
#include "stats/IntrvlDoc.h"
#include "stats/IntrvlTextView.h"
#include "stats/SdIntDoc.h"

namespace {

struct Row {
    std::string path;
    const char* reps;
    std::string ident;
};

CIntrvlDlg MakeDialog(const std::vector<Row>& rows, const char* level, const char* title = "") {
    CIntrvlDlg dlg;
    for (const Row& r : rows) {
        dlg.AddFile(r.path, r.reps);
        dlg.m_items.back().m_strIdent = r.ident;
    }
    dlg.m_strLevel = level;
    dlg.m_strTitle = title;
    return dlg;
}

std::string Report(CIntrvlDoc& doc) {
    CIntrvlTextView view;
    view.SetDocument(&doc);
    return txt_ReportText(view);
}

const char* const kHeader =
    "                  Classical C.I. Intervals Summary\n";
const char* const kColumns95 =
    "IDENTIFIER              AVERAGE   STANDARD   0.950 C.I.    MINIMUM    MAXIMUM  NUMBER\n"
    "                                 DEVIATION   HALF-WIDTH      VALUE      VALUE  OF OBS.\n";

class IntrvlDocTest : public ::testing::Test {
protected:
    void SetUp() override {
        a = dir.WriteReps("a.dat", KIND_TALLY, {{1, 2, 3, 4, 5}});
        b = dir.WriteReps("b.dat", KIND_TALLY, {{10, 12}, {20, 22, 24}});
        c = dir.WriteReps("c.dat", KIND_TALLY, {{7}});
    }
    IntervalTestDir dir;
    std::string a, b, c;
};

TEST_F(IntrvlDocTest, ReportUnderEveryTreatment) {
    // a: 1..5, mean 3, s = sqrt(10/4) = 1.5811, hw = 2.7764 * 1.5811 / sqrt(5) = 1.963.
    // b rep 1: 10, 12, mean 11, s = sqrt(2), hw = 12.706 * sqrt(2) / sqrt(2) = 12.706.
    // b rep 2: 20, 22, 24, mean 22, s = 2, hw = 4.3027 * 2 / sqrt(3) = 4.968.
    // b lumped: mean 88/5 = 17.6, squared deviations 155.2, s = sqrt(38.8) = 6.229,
    //   hw = 2.7764 * 6.229 / sqrt(5) = 7.734.
    // c: one observation: s = 0, df 1, hw 0.
    CIntrvlDlg dlg = MakeDialog({{a, "", "a.dat"},
                                 {b, "All", "b.dat"},
                                 {b, "Lumped", "b.dat"},
                                 {c, "1", "c.dat"},
                                 {a, "", "abcdefghijklmnopqrstuvwxy"}},
                                "0.95", "Queue waits");
    ASSERT_EQ(dlg.Validate(nullptr), 0);
    CIntrvlDoc doc;
    ASSERT_EQ(doc.InitFromDialog(dlg), 0);
    EXPECT_EQ(Report(doc), std::string(kHeader) +
                               "                                       Queue waits\n"
                               "\n" +
                               kColumns95 +
                               "a.dat                         3       1.58         1.96          1          5       5\n"
                               "b.dat@1                      11       1.41         12.7         10         12       2\n"
                               "b.dat@2                      22          2         4.97         20         24       3\n"
                               "b.dat                      17.6       6.23         7.73         10         24       5\n"
                               "c.dat                         7          0            0          7          7       1\n"
                               "abcdefghijklmnopqrst          3       1.58         1.96          1          5       5\n"
                               "uvwxy\n");
}

TEST_F(IntrvlDocTest, LevelAsFractionOrPercentage) {
    CIntrvlDoc fraction, percent;
    CIntrvlDlg d1 = MakeDialog({{a, "", "a.dat"}, {b, "Lumped", "b.dat"}}, "0.95");
    CIntrvlDlg d2 = MakeDialog({{a, "", "a.dat"}, {b, "Lumped", "b.dat"}}, "95");
    ASSERT_EQ(fraction.InitFromDialog(d1), 0);
    ASSERT_EQ(percent.InitFromDialog(d2), 0);
    EXPECT_EQ(Report(fraction), Report(percent));
    EXPECT_NE(Report(percent).find("   0.950 C.I."), std::string::npos);
    EXPECT_EQ(percent.LegendPercent(), 95);

    // "1" is a fraction (a 100% interval, whose limits are not finite: the
    // message, not a result), "1.5" a percentage.
    CIntrvlDoc one, small;
    CIntrvlDlg d3 = MakeDialog({{a, "", "a.dat"}}, "1");
    CIntrvlDlg d4 = MakeDialog({{a, "", "a.dat"}}, "1.5");
    EXPECT_EQ(one.InitFromDialog(d3), 15907);
    small.InitFromDialog(d4);
    EXPECT_EQ(one.m_dAlpha, 0.0);
    EXPECT_NEAR(small.m_dAlpha, 0.985, 1e-15);
    EXPECT_NE(Report(one).find("   1.000 C.I."), std::string::npos);
    EXPECT_NE(Report(small).find("   0.015 C.I."), std::string::npos);
    EXPECT_EQ(small.LegendPercent(), 2);
}

TEST_F(IntrvlDocTest, FloatAndDoubleFilesReportAlike) {
    const std::string f = dir.WriteReps("f.dat", KIND_TALLY, {{10, 12}, {20, 22, 24}}, false);
    CIntrvlDoc single, dbl;
    CIntrvlDlg d1 = MakeDialog({{f, "All", "b.dat"}, {f, "Lumped", "b.dat"}}, "0.90");
    CIntrvlDlg d2 = MakeDialog({{b, "All", "b.dat"}, {b, "Lumped", "b.dat"}}, "0.90");
    ASSERT_EQ(single.InitFromDialog(d1), 0);
    ASSERT_EQ(dbl.InitFromDialog(d2), 0);
    EXPECT_EQ(Report(single), Report(dbl));
}

TEST_F(IntrvlDocTest, LimitsAndGraphRange) {
    CIntrvlDlg dlg = MakeDialog({{a, "", ""}, {b, "All", ""}}, "0.95");
    CIntrvlDoc doc;
    ASSERT_EQ(doc.InitFromDialog(dlg), 0);
    const double hwA = 2.776445 * std::sqrt(2.5) / std::sqrt(5.0);
    const double expected[3][5] = {{3, 3 - hwA, 3 + hwA, 1, 5},
                                   {11, 11 - 12.7062, 11 + 12.7062, 10, 12},
                                   {22, 22 - 4.9683, 22 + 4.9683, 20, 24}};
    for (int i = 0; i < 3; ++i) {
        const IntervalRow& r = doc.Results().rows[static_cast<std::size_t>(i)];
        const double got[5] = {r.average, r.lower, r.upper, r.min, r.max};
        for (int j = 0; j < 5; ++j) EXPECT_NEAR(got[j], expected[i][j], 2e-4) << i << " " << j;
    }
    EXPECT_EQ(doc.Results().rows[0].ident, a);
    EXPECT_EQ(doc.Results().rows[2].ident, b + "@2");
    EXPECT_EQ(doc.Results().rows[2].treatment, 2);
    EXPECT_EQ(doc.Results().rows[2].numObs, 3);
    EXPECT_TRUE(doc.Results().rows[2].computed);
    // Lowest: rep 1's lower limit; highest: rep 2's upper limit.
    EXPECT_NEAR(doc.Results().graphLow, 11 - 12.70620, 1e-4);
    EXPECT_NEAR(doc.Results().graphHigh, 22 + 4.302653 * 2 / std::sqrt(3.0), 1e-4);
    EXPECT_EQ(doc.GraphTitleId(), 15952);
}

TEST_F(IntrvlDocTest, FileWithoutObservationsKeeps15901AndTheOthersAreComputed) {
    const std::string empty = dir.WriteRecords("e.dat", KIND_TALLY, {{-1, -2}, {-1, -1}});
    CIntrvlDlg dlg = MakeDialog({{a, "", ""}, {empty, "", ""}, {c, "", ""}}, "0.95");
    ASSERT_EQ(dlg.Validate(nullptr), 0);
    CIntrvlDoc doc;
    EXPECT_EQ(doc.InitFromDialog(dlg), 15901);
    ASSERT_EQ(doc.Results().rows.size(), 3u);
    EXPECT_TRUE(doc.Results().rows[0].computed);
    EXPECT_FALSE(doc.Results().rows[1].computed);
    EXPECT_TRUE(doc.Results().rows[2].computed);
    EXPECT_EQ(doc.Results().rows[2].average, 7.0);
}

TEST_F(IntrvlDocTest, ReplicationBeyondTheFileGives15804) {
    CIntrvlDlg dlg = MakeDialog({{a, "", ""}, {b, "3", ""}}, "0.95");
    ASSERT_EQ(dlg.Validate(nullptr), 0);
    CIntrvlDoc doc;
    EXPECT_EQ(doc.InitFromDialog(dlg), 15804);
}

TEST_F(IntrvlDocTest, SkipMarkersAndBoundaries) {
    // Replication 1: 1, (skip), 3; replication 2: 100 behind a boundary;
    // the end marker stops a lumped read before the stray record after it.
    const std::string s = dir.WriteRecords(
        "s.dat", KIND_TALLY, {{1, 1}, {-1, -2}, {2, 3}, {-1, 0}, {1, 100}, {-2, -1}, {5, 1000}});
    CIntrvlDlg dlg = MakeDialog({{s, "1", ""}, {s, "2", ""}, {s, "Lumped", ""}}, "0.95");
    CIntrvlDoc doc;
    ASSERT_EQ(doc.InitFromDialog(dlg), 0);
    EXPECT_EQ(doc.Results().rows[0].numObs, 2);
    EXPECT_EQ(doc.Results().rows[0].average, 2.0);
    EXPECT_EQ(doc.Results().rows[1].numObs, 1);
    EXPECT_EQ(doc.Results().rows[1].average, 100.0);
    EXPECT_EQ(doc.Results().rows[2].numObs, 3);
    EXPECT_EQ(doc.Results().rows[2].max, 100.0);
}

TEST_F(IntrvlDocTest, AllOnAFileCutShort) {
    // No end marker: the replications that have records are still rows.
    const std::string cut = dir.WriteRecords("cut.dat", KIND_TALLY, {{1, 4}, {-1, 0}, {1, 6}, {2, 8}});
    CIntrvlDlg dlg = MakeDialog({{cut, "All", "cut"}}, "0.95");
    CIntrvlDoc doc;
    ASSERT_EQ(doc.InitFromDialog(dlg), 0);
    ASSERT_EQ(doc.Results().rows.size(), 2u);
    EXPECT_EQ(doc.Results().rows[1].ident, "cut@2");
    EXPECT_EQ(doc.Results().rows[1].average, 7.0);
}

TEST_F(IntrvlDocTest, OutputDataReadsOneValuePerReplication) {
    const std::string o = dir.WriteReps("o.dat", KIND_OUTPUT, {{4}, {6}, {11}});
    CIntrvlDlg dlg = MakeDialog({{o, "2", ""}, {o, "Lumped", ""}}, "0.95");
    CIntrvlDoc doc;
    ASSERT_EQ(doc.InitFromDialog(dlg), 0);
    EXPECT_EQ(doc.Results().rows[0].average, 6.0);
    EXPECT_EQ(doc.Results().rows[1].average, 7.0);  // (4 + 6 + 11) / 3
    EXPECT_DOUBLE_EQ(doc.Results().rows[1].stdDev, std::sqrt(13.0));  // (9 + 1 + 16) / 2
}

TEST_F(IntrvlDocTest, LargeOffsetKeepsItsDigits) {
    // 10^7 + 0.1 k for k = 1..5 repeated: mean 10^7 + 0.3, s^2 = 0.02 n / (n - 1).
    std::vector<double> values;
    for (int i = 0; i < 100000; ++i) values.push_back(1e7 + 0.1 * (i % 5 + 1));
    const std::string big = dir.WriteReps("big.dat", KIND_TALLY, {values});
    CIntrvlDlg dlg = MakeDialog({{big, "", "big.dat"}}, "0.95");
    CIntrvlDoc doc;
    ASSERT_EQ(doc.InitFromDialog(dlg), 0);
    EXPECT_NEAR(doc.Results().rows[0].average, 1e7 + 0.3, 1e-8);
    EXPECT_NEAR(doc.Results().rows[0].stdDev, std::sqrt(0.02 * 100000 / 99999), 1e-8);
    // t(99999) = 1.95998; hw = 1.95998 * 0.141422 / sqrt(100000) = 0.000876527.
    EXPECT_NE(Report(doc).find(
                  "big.dat                   1e+07      0.141     0.000877      1e+07      1e+07  100000\n"),
              std::string::npos);
}

TEST_F(IntrvlDocTest, InfiniteDataGiveAnInfiniteAverage) {
    // A float file holding an overflowed value: sum = inf, so the average is
    // inf and the variance inf - inf is NaN, which is not negative and stays.
    const std::string inf = dir.WriteReps("inf.dat", KIND_TALLY, {{1, HUGE_VAL, 3}}, false);
    CIntrvlDlg dlg = MakeDialog({{inf, "", ""}}, "0.95");
    CIntrvlDoc doc;
    ASSERT_EQ(doc.InitFromDialog(dlg), 0);
    EXPECT_EQ(doc.Results().rows[0].average, HUGE_VAL);
    EXPECT_TRUE(std::isnan(doc.Results().rows[0].stdDev));
    EXPECT_TRUE(std::isnan(doc.Results().rows[0].halfWidth));
    EXPECT_EQ(doc.Results().rows[0].max, HUGE_VAL);
}

TEST_F(IntrvlDocTest, TooManyRowsForTheGraphBuffer) {
    // The chart's table holds 5000 doubles: 1000 records of five, or, at the
    // standard deviation's stride of three, 1665.
    std::vector<std::vector<double>> reps(1001, std::vector<double>{1.0, 2.0});
    const std::string many = dir.WriteReps("many.dat", KIND_TALLY, reps);
    CIntrvlDlg dlg = MakeDialog({{many, "All", ""}}, "0.95");
    CIntrvlDoc doc;
    EXPECT_EQ(doc.InitFromDialog(dlg), 15934);
    EXPECT_EQ(doc.Results().rows.size(), 1001u);
    CSdIntDoc sd;
    EXPECT_EQ(sd.InitFromDialog(dlg), 0);
    EXPECT_EQ(sd.GraphRecordOffset(1664), 4994);
}

}  // namespace
