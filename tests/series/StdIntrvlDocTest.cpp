// Standardized time series intervals with batches of two. Worked by hand for
// x = 1, 3, 2, 6, 9: batches (1, 3) and (2, 6), the 9 is never read; centre
// h = 1.5, weights -0.5 and 0.5, so S1 = 1, S2 = 2, A = 5; batch means 2 and
// 4, grand mean 3, B = 2; V = 12 * 5 / (2 * 2 * 6) + 2 / 2 = 3.5,
// sqrt(V) = 1.8708; d = 3; half-width = t(3, 0.025) * 1.8708 / sqrt(3)
// = 3.1824 * 1.0801 = 3.437 (t from the published table).
#include <gtest/gtest.h>

#include <cmath>

#include "datafile/FileGlobals.h"
#include "series/StdInDlg.h"
#include "series/StdIntTextView.h"
#include "series/StdIntrvlDoc.h"
#include "stats/IntervalTestFiles.h"

namespace {

struct Row {
    std::string path;
    const char* reps;
    std::string ident;
};

CStdInDlg MakeDialog(const std::vector<Row>& rows, const char* level) {
    CStdInDlg dlg;
    for (const Row& r : rows) {
        dlg.AddFile(r.path, r.reps);
        dlg.m_items.back().m_strIdent = r.ident;
    }
    dlg.m_strLevel = level;
    return dlg;
}

std::string Report(CStdIntrvlDoc& doc) {
    CStdIntTextView view;
    view.SetDocument(&doc);
    return txt_ReportText(view);
}

class StdIntrvlDocTest : public ::testing::Test {
protected:
    void SetUp() override {
        s5 = dir.WriteReps("s5.dat", KIND_TALLY, {{1, 3, 2, 6, 9}});
        b2 = dir.WriteReps("b2.dat", KIND_TALLY, {{1, 3, 2}, {6, 9}});
    }
    IntervalTestDir dir;
    std::string s5, b2;
};

TEST_F(StdIntrvlDocTest, Report) {
    // Constant series: V = 0. b2 replication 1: one batch (1, 3): A = 1,
    // B = 0, V = 12 / 12 = 1, d = 1, hw = 12.706. Replication 2: (6, 9):
    // S = 1.5, V = 2.25, hw = 12.706 * 1.5 = 19.06. Lumped, a batch straddles
    // the boundary and the numbers are those of s5.
    const std::string k = dir.WriteReps("k.dat", KIND_TALLY, {{5, 5, 5, 5}});
    CStdInDlg dlg = MakeDialog({{s5, "", "s5.dat"},
                                {k, "1", "k.dat"},
                                {b2, "All", "b2.dat"},
                                {b2, "Lumped", "b2.dat"},
                                {s5, "", "abcdefghijklmnopqrstuvwxyz0123456789ABCDEFGHIJ"}},
                               "0.95");
    ASSERT_EQ(dlg.Validate(nullptr), 0);
    CStdIntrvlDoc doc;
    ASSERT_EQ(doc.InitFromDialog(dlg), 0);
    EXPECT_EQ(Report(doc),
              "        Standardized Time Series Intervals Summary\n"
              "\n"
              "IDENTIFIER              AVERAGE   SQRT(A/N)  0.950 C.I.    MINIMUM    MAXIMUM  NUMBER\n"
              "                                             HALF-WIDTH      VALUE      VALUE  OF OBS.\n"
              "s5.dat                        3       1.87         3.44          1          6       4\n"
              "k.dat                         5          0            0          5          5       4\n"
              "b2.dat@1                      2          1         12.7          1          3       2\n"
              "b2.dat@2                    7.5        1.5         19.1          6          9       2\n"
              "b2.dat                        3       1.87         3.44          1          6       4\n"
              "abcdefghijklmnopqrst          3       1.87         3.44          1          6       4\n"
              "uvwxyz0123456789ABCDEFGHIJ\n");
}

TEST_F(StdIntrvlDocTest, ResultsAndGraphRange) {
    CStdInDlg dlg = MakeDialog({{s5, "", ""}, {b2, "2", ""}}, "0.95");
    CStdIntrvlDoc doc;
    ASSERT_EQ(doc.InitFromDialog(dlg), 0);
    const IntervalRow& r = doc.Results().rows[0];
    EXPECT_DOUBLE_EQ(r.stdDev, std::sqrt(3.5));
    EXPECT_NEAR(r.halfWidth, 3.182446 * std::sqrt(3.5 / 3.0), 1e-5);
    EXPECT_EQ(r.numObs, 4);
    EXPECT_EQ(doc.Results().rows[1].average, 7.5);
    // Lowest: replication 2's lower limit 7.5 - 19.06; highest its upper limit.
    EXPECT_NEAR(doc.Results().graphLow, 7.5 - 12.706205 * 1.5, 1e-4);
    EXPECT_NEAR(doc.Results().graphHigh, 7.5 + 12.706205 * 1.5, 1e-4);
    EXPECT_EQ(doc.GraphTitleId(), 15953);
}

TEST_F(StdIntrvlDocTest, TooFewObservations) {
    const std::string one = dir.WriteReps("one.dat", KIND_TALLY, {{4}});
    CStdInDlg dlg = MakeDialog({{s5, "", ""}, {one, "", ""}}, "0.95");
    CStdIntrvlDoc doc;
    EXPECT_EQ(doc.InitFromDialog(dlg), 15901);

    // One observation in each replication: a batch of two only when lumped.
    const std::string split = dir.WriteReps("split.dat", KIND_TALLY, {{4}, {5}});
    CStdInDlg lumped = MakeDialog({{split, "Lumped", ""}}, "0.95");
    CStdInDlg first = MakeDialog({{split, "1", ""}}, "0.95");
    CStdIntrvlDoc d1, d2;
    EXPECT_EQ(d1.InitFromDialog(lumped), 0);
    EXPECT_EQ(d1.Results().rows[0].numObs, 2);
    EXPECT_EQ(d2.InitFromDialog(first), 15901);
}

TEST_F(StdIntrvlDocTest, AtMost4999Batches) {
    std::vector<double> values(9999);
    for (std::size_t i = 0; i < values.size(); ++i) values[i] = static_cast<double>(i % 7);
    const std::string ok = dir.WriteReps("ok.dat", KIND_TALLY, {values});
    values.push_back(1.0);
    const std::string over = dir.WriteReps("over.dat", KIND_TALLY, {values});

    CStdInDlg d1 = MakeDialog({{ok, "", ""}}, "0.95");
    CStdIntrvlDoc doc1;
    EXPECT_EQ(doc1.InitFromDialog(d1), 0);
    EXPECT_EQ(doc1.Results().rows[0].numObs, 9998);

    CStdInDlg d2 = MakeDialog({{ok, "", ""}, {over, "", ""}}, "0.95");
    CStdIntrvlDoc doc2;
    EXPECT_EQ(doc2.InitFromDialog(d2), 15906);
}

TEST_F(StdIntrvlDocTest, LargeOffsetKeepsItsDigits) {
    // s5's values / 8 on 10^9 (exact in a double): every spread scales by 1/8.
    std::vector<double> values;
    for (double x : {1.0, 3.0, 2.0, 6.0, 9.0}) values.push_back(1e9 + x / 8);
    const std::string big = dir.WriteReps("big.dat", KIND_TALLY, {values});
    CStdInDlg dlg = MakeDialog({{big, "", ""}}, "0.95");
    CStdIntrvlDoc doc;
    ASSERT_EQ(doc.InitFromDialog(dlg), 0);
    EXPECT_EQ(doc.Results().rows[0].average, 1e9 + 3.0 / 8);
    EXPECT_NEAR(doc.Results().rows[0].stdDev, std::sqrt(3.5) / 8, 1e-12);
}

TEST_F(StdIntrvlDocTest, OneBatchOfAllObservations) {
    // The reserved size: m = n = 5, h = 3, weights -2..2, S = -2 - 3 + 0 + 6
    // + 18 = 19, V = 12 * 361 / (20 * 1 * 30) = 7.22, d = 1.
    CStdInDlg dlg = MakeDialog({{s5, "", ""}}, "0.95");
    CStdIntrvlDoc doc;
    doc.m_nBatchSize = MAX_SHORT;
    ASSERT_EQ(doc.InitFromDialog(dlg), 0);
    const IntervalRow& r = doc.Results().rows[0];
    EXPECT_DOUBLE_EQ(r.average, 4.2);
    EXPECT_DOUBLE_EQ(r.stdDev, std::sqrt(7.22));
    EXPECT_NEAR(r.halfWidth, 12.706205 * std::sqrt(7.22), 1e-4);
    EXPECT_EQ(r.numObs, 5);
    EXPECT_EQ(r.max, 9.0);
}

}  // namespace
