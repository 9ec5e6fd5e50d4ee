#include "stats/ComprDoc.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include "TestFiles.h"
#include "report/TextView.h"
#include "stats/ComprTextView.h"
#include "stats/PairDialogs.h"

namespace {

// Student t upper 0.025 points, from the table of percentage points of the t
// distribution in any statistics text (e.g. Montgomery, Applied Statistics and
// Probability for Engineers, Table V), three decimals as printed there.
constexpr double kT3 = 3.182;
constexpr double kT5 = 2.571;
// The quantile routine's tolerance is 0.001; the table is printed to 0.001.
constexpr double kTableTolerance = 0.002;

class ComprDocTest : public ::testing::Test {
protected:
    std::string File(const std::string& name, const std::vector<std::vector<double>>& reps) {
        return dir.WriteReps(name, 3, reps);
    }
    // Validates like the dialog, then computes.
    int Compute(CComprDoc& doc, int method, const std::vector<std::pair<std::string, std::string>>& files,
                const std::string& level = "0.95", const std::string& title = "T", const std::string& ident = "") {
        CComprDlg dlg;
        dlg.m_nMethod = method;
        dlg.m_strLevel = level;
        dlg.m_strTitle = title;
        for (std::size_t i = 0; i + 1 < files.size(); i += 2)
            dlg.AddPair({files[i].first, files[i].second}, {files[i + 1].first, files[i + 1].second});
        if (!ident.empty()) dlg.m_pairs[0].a.m_strIdent = ident;
        if (int rc = dlg.Validate(nullptr)) return rc;
        return doc.InitFromDialog(dlg);
    }
    std::string Report(CComprDoc& doc) {
        CComprTextView view;
        view.SetDocument(&doc);
        return txt_ReportText(view);
    }

    TempDir dir;
};

// d = A - B = 2, 3, 1, 0 (A's fifth value has no partner and changes nothing):
// mean 1.5, variance (14 - 4 * 1.5^2) / 3 = 5/3, half-width t(3) sqrt(5/3) / 2.
// The report is written out by hand from the line formats.
TEST_F(ComprDocTest, PairedHandWorked) {
    std::string a = File("a.dat", {{5, 7, 9, 6, 100}});
    std::string b = File("b.dat", {{3, 4, 8, 6}});
    CComprDoc doc;
    ASSERT_EQ(Compute(doc, CComprDlg::METHOD_PAIRED, {{a, ""}, {b, ""}}, "0.95", "Paired", "A.dat"), 0);
    const PairRow& ra = doc.Results().rows[0];
    EXPECT_DOUBLE_EQ(ra.estimate, 1.5);
    EXPECT_DOUBLE_EQ(ra.stdDev, std::sqrt(5.0 / 3.0));
    EXPECT_NEAR(ra.halfWidth, kT3 * std::sqrt(5.0 / 3.0) / 2.0, kTableTolerance);
    EXPECT_EQ(Report(doc),
              "         Paired-T Means Comparison :               Paired\n"
              "\n"
              "      IDENTIFIER         ESTD. MEAN   STANDARD  0.950 C.I.    MINIMUM    MAXIMUM  NUMBER\n"
              "                         DIFFERENCE  DEVIATION  HALF-WIDTH      VALUE      VALUE  OF OBS\n"
              "---------------------------------------------------------------------------------------\n"
              "A.dat                           1.5       1.29        2.05          5          9       4\n"
              "                                                                    3          8       4\n"
              "         FAIL TO REJECT  H0 => MEANS ARE EQUAL  AT  0.05 LEVEL\n"
              "\n");
}

// A: mean 14, variance 40/4 = 10; B: mean 10, variance 2/2 = 1.
// wA = 2, wB = 1/3, s = 7/3; df = (49/9) / ((1/9)/2 + 4/4) = 98/19 = 5.16 -> 5.
// At 0.90, t(5) upper 0.05 = 2.015: half-width 2.015 * 1.528 = 3.08.
TEST_F(ComprDocTest, TwoSampleHandWorked) {
    std::string a = File("a.dat", {{10, 12, 14, 16, 18}});
    std::string b = File("b.dat", {{9, 10, 11}});
    CComprDoc doc;
    ASSERT_EQ(Compute(doc, CComprDlg::METHOD_TWO_SAMPLE, {{a, ""}, {b, ""}}), 0);
    const PairRow& ra = doc.Results().rows[0];
    EXPECT_DOUBLE_EQ(ra.estimate, 4.0);
    EXPECT_DOUBLE_EQ(ra.stdDev, std::sqrt(7.0 / 3.0));
    EXPECT_NEAR(ra.halfWidth, kT5 * std::sqrt(7.0 / 3.0), kTableTolerance * 2);
    ASSERT_EQ(Compute(doc, CComprDlg::METHOD_TWO_SAMPLE, {{a, ""}, {b, ""}}, "0.9", "", "A.dat"), 0);
    EXPECT_EQ(Report(doc),
              "       Two-Sample T Means Comparison :                     \n"
              "\n"
              "      IDENTIFIER         ESTD. MEAN   STANDARD  0.900 C.I.    MINIMUM    MAXIMUM  NUMBER\n"
              "                         DIFFERENCE  DEVIATION  HALF-WIDTH      VALUE      VALUE  OF OBS\n"
              "---------------------------------------------------------------------------------------\n"
              "A.dat                             4       1.53        3.08         10         18       5\n"
              "                                                                    9         11       3\n"
              "         REJECT H0 => MEANS ARE NOT EQUAL  AT   0.1 LEVEL\n");
}

TEST_F(ComprDocTest, PairingEndsWithTheShorterFile) {
    std::string a = File("a.dat", {{1, 2, 3, 4}});
    std::string b = File("b.dat", {{1, 1}, {50, 60}});
    CComprDoc doc;
    ASSERT_EQ(Compute(doc, CComprDlg::METHOD_PAIRED, {{a, ""}, {b, ""}}), 0);
    // d = 0, 1: B's second replication is not read under treatment 1.
    EXPECT_EQ(doc.Results().rows[0].a.numObs, 2);
    EXPECT_DOUBLE_EQ(doc.Results().rows[0].estimate, 0.5);
    EXPECT_EQ(doc.Results().rows[0].a.max, 2);
    // Lumped B goes on into its second replication: d = 0, 1, -47, -56.
    ASSERT_EQ(Compute(doc, CComprDlg::METHOD_PAIRED, {{a, ""}, {b, "Lumped"}}), 0);
    EXPECT_EQ(doc.Results().rows[0].a.numObs, 4);
    EXPECT_DOUBLE_EQ(doc.Results().rows[0].estimate, -25.5);
    EXPECT_EQ(doc.Results().rows[0].b.max, 60);
}

TEST_F(ComprDocTest, AllPairsReplicationWithReplication) {
    std::string a = File("a.dat", {{1, 2}, {3, 4}, {5, 6}});
    std::string b = File("b.dat", {{1, 1}, {1, 1}});
    CComprDoc doc;
    ASSERT_EQ(Compute(doc, CComprDlg::METHOD_PAIRED, {{a, "All"}, {b, "All"}, {a, "1"}, {b, "2"}}), 0);
    ASSERT_EQ(static_cast<int>(doc.Results().rows.size()), 3);
    EXPECT_EQ(doc.Results().rows[0].ident, a + "@1");
    EXPECT_EQ(doc.Results().rows[1].ident, a + "@2");
    EXPECT_EQ(doc.Results().rows[2].ident, a);
    EXPECT_DOUBLE_EQ(doc.Results().rows[0].estimate, 0.5);
    EXPECT_DOUBLE_EQ(doc.Results().rows[1].estimate, 2.5);
    EXPECT_DOUBLE_EQ(doc.Results().rows[2].estimate, 0.5);
}

TEST_F(ComprDocTest, FailuresOfTheRead) {
    std::string a = File("a.dat", {{1, 2}, {3, 4}});
    std::string empty = dir.Path("empty.dat");
    test_WriteDataFile(empty, {}, {{-1, -1}});
    for (int method : {CComprDlg::METHOD_PAIRED, CComprDlg::METHOD_TWO_SAMPLE}) {
        CComprDoc doc;
        EXPECT_EQ(Compute(doc, method, {{a, "3"}, {a, ""}}), 15804) << method;
        EXPECT_EQ(Compute(doc, method, {{a, ""}, {a, "5"}}), 15804) << method;
        EXPECT_EQ(Compute(doc, method, {{empty, ""}, {a, ""}}), 15901) << method;
        EXPECT_EQ(Compute(doc, method, {{a, ""}, {empty, ""}}), 15901) << method;
        // A later pair's failure makes the whole run fail.
        EXPECT_EQ(Compute(doc, method, {{a, ""}, {a, ""}, {a, ""}, {empty, ""}}), 15901) << method;
    }
}

TEST_F(ComprDocTest, ChartRangeAlwaysHoldsZero) {
    std::string a = File("a.dat", {{10, 12, 14, 16, 18}});
    std::string b = File("b.dat", {{1, 2, 3, 2, 1}});
    CComprDoc doc;
    ASSERT_EQ(Compute(doc, CComprDlg::METHOD_TWO_SAMPLE, {{a, ""}, {b, ""}, {a, ""}, {a, ""}}), 0);
    EXPECT_GT(doc.Results().rows[0].lower, 0.0);
    EXPECT_EQ(doc.Results().high, doc.Results().rows[0].upper);
    EXPECT_EQ(doc.Results().low, doc.Results().rows[1].lower);
    ASSERT_EQ(Compute(doc, CComprDlg::METHOD_TWO_SAMPLE, {{a, ""}, {b, ""}}), 0);
    EXPECT_EQ(doc.Results().low, 0.0);
}

// 10^7 plus noise of 0.1: the plain sums of squares would leave nothing.
TEST_F(ComprDocTest, LargeOffsetKeepsItsDigits) {
    const double noise[] = {0.1, -0.1, 0.2, -0.2, 0.0};
    std::vector<double> big, small;
    for (int i = 0; i < 1000; ++i) {
        big.push_back(1e7 + noise[i % 5]);
        small.push_back(noise[(i + 2) % 5]);
    }
    std::string a = File("a.dat", {big});
    std::string b = File("b.dat", {small});
    CComprDoc doc;
    ASSERT_EQ(Compute(doc, CComprDlg::METHOD_TWO_SAMPLE, {{a, ""}, {b, ""}}), 0);
    // Both variances are 0.1 / 4 * 1000 / 999 (five values repeated 200 times).
    const double v = 0.1 * 200.0 / 999.0;
    EXPECT_NEAR(doc.Results().rows[0].stdDev, std::sqrt(2.0 * v / 1000.0), 1e-9);
    EXPECT_NEAR(doc.Results().rows[0].estimate, 1e7, 1e-7);
    // Paired: the differences 1e7 + 0.1 - 0.2, ... have the same spread as (a - b) noise.
    ASSERT_EQ(Compute(doc, CComprDlg::METHOD_PAIRED, {{a, ""}, {a, ""}}), 0);
    EXPECT_EQ(doc.Results().rows[0].estimate, 0.0);
    EXPECT_EQ(doc.Results().rows[0].stdDev, 0.0);
}

// One observation per file: the Welch fraction is 0/0 and its cut the minimum
// int; one pair in paired-t passes 0 degrees of freedom. Neither may fail.
TEST_F(ComprDocTest, OneObservation) {
    std::string a = File("a.dat", {{4}});
    std::string b = File("b.dat", {{1}});
    CComprDoc doc;
    ASSERT_EQ(Compute(doc, CComprDlg::METHOD_TWO_SAMPLE, {{a, ""}, {b, ""}}), 0);
    EXPECT_EQ(doc.Results().rows[0].estimate, 3.0);
    EXPECT_EQ(doc.Results().rows[0].stdDev, 0.0);
    ASSERT_EQ(Compute(doc, CComprDlg::METHOD_PAIRED, {{a, ""}, {b, ""}}), 0);
    EXPECT_EQ(doc.Results().rows[0].a.numObs, 1);
    EXPECT_EQ(doc.Results().rows[0].halfWidth, 0.0);
}

// The view alone, on results set by hand: identifier splits and verdicts.
struct ResultsDoc : CComprDoc {
    using CComprDoc::m_results;
};

class ComprView : public ::testing::Test {
protected:
    void AddPair(const std::string& ident, double estimate, double hw) {
        PairRow row;
        row.ident = ident;
        row.estimate = estimate;
        row.stdDev = 1.0;
        row.halfWidth = hw;
        row.lower = estimate - hw;
        row.upper = estimate + hw;
        row.a = row.b = {1.0, 2.0, 3};
        row.computed = true;
        doc.m_results.rows.push_back(row);
    }
    std::string Body() {
        CComprTextView view;
        view.SetDocument(&doc);
        std::string text = txt_ReportText(view);
        std::size_t dashes = text.find("---\n");
        return text.substr(dashes + 4);
    }
    ResultsDoc doc;
};

TEST_F(ComprView, IdentifiersOver20And40Characters) {
    AddPair("abcdefghijklmnopqrstuvwxy", 1, 2);                               // 25
    AddPair("abcdefghijklmnopqrst uvwxy", 1, 2);                              // blank at 21
    AddPair("0123456789abcdefghijKLMNOPQRSTUVWXYZ-+=!", 1, 2);                // 40
    AddPair("0123456789abcdefghijKLMNOPQRSTUVWXYZ-+=!tail5", 1, 2);           // 45
    AddPair("0123456789abcdefghij KLMNOPQRSTUVWXYZ-+=!", 1, 2);               // 41, blank at 21
    AddPair("0123456789abcdefghij KLMNOPQRSTUVWXYZ-+=!more", 1, 2);           // 45, blank at 21
    // A's numbers start after 5 blanks; B's long line puts 39 blanks between the
    // identifier column and its numbers, so that they stand under A's.
    const std::string a = "              1          1           2          1          2       3\n";
    const std::string b = std::string(39 + 9, ' ') + "1          2       3\n";
    const std::string verdict = "         FAIL TO REJECT  H0 => MEANS ARE EQUAL  AT  0.05 LEVEL\n\n";
    EXPECT_EQ(Body(), "abcdefghijklmnopqrst" + a + "uvwxy               " + b + verdict +
                          "abcdefghijklmnopqrst" + a + "uvwxy               " + b + verdict +
                          "0123456789abcdefghij" + a + "KLMNOPQRSTUVWXYZ-+=!" + b + verdict +
                          "0123456789abcdefghij" + a + "KLMNOPQRSTUVWXYZ-+=!" + b + "tail5\n" + verdict +
                          "0123456789abcdefghij" + a + "KLMNOPQRSTUVWXYZ-+=!" + b + "\n" + verdict +
                          "0123456789abcdefghij" + a + "KLMNOPQRSTUVWXYZ-+=!" + b + "more\n" + verdict);
}

TEST_F(ComprView, VerdictOnTheClosedInterval) {
    AddPair("zero-at-lower", 2, 2);        // [0, 4]: 0 inside
    AddPair("zero-at-upper", -2, 2);       // [-4, 0]
    AddPair("above", 2.5, 2);              // [0.5, 4.5]
    AddPair("below", -2.5, 2);             // [-4.5, -0.5]
    AddPair("nan", std::nan(""), 2);       // no comparison holds
    std::istringstream body(Body());
    std::vector<std::string> verdicts;
    for (std::string line; std::getline(body, line);)
        if (line.find("H0 =>") != std::string::npos) verdicts.push_back(line);
    const std::string fail = "         FAIL TO REJECT  H0 => MEANS ARE EQUAL  AT  0.05 LEVEL";
    const std::string reject = "         REJECT H0 => MEANS ARE NOT EQUAL  AT  0.05 LEVEL";
    EXPECT_EQ(verdicts, (std::vector<std::string>{fail, fail, reject, reject, fail}));
}

}  // namespace
