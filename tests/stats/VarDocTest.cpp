#include "stats/VarDoc.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include "TestFiles.h"
#include "report/TextView.h"
#include "stats/PairDialogs.h"
#include "stats/VarTextView.h"

namespace {

// Upper 2.5% points of the F distribution (numerator df first), from the
// standard table of percentage points of F (e.g. Montgomery, Applied
// Statistics and Probability for Engineers, Table VI), as printed there.
constexpr double kF_4_2 = 39.25;
constexpr double kF_2_4 = 10.65;
constexpr double kF_5_5 = 7.15;
constexpr double kTableTolerance = 0.01;

std::vector<Rec> Obs(const std::vector<double>& values) {
    std::vector<Rec> recs;
    for (std::size_t i = 0; i < values.size(); ++i) recs.push_back({static_cast<double>(i + 1), values[i]});
    return recs;
}

class VarDocTest : public ::testing::Test {
protected:
    std::string File(const std::string& name, const std::vector<double>& values) {
        std::string path = dir.Path(name);
        test_WriteDataFile(path, {}, test_Replications({Obs(values)}));
        return path;
    }
    int Compute(CVarDoc& doc, const std::vector<std::string>& files, const std::string& title = "",
                const std::vector<std::string>& idents = {}) {
        CVarDlg dlg;
        dlg.m_strTitle = title;
        for (std::size_t i = 0; i + 1 < files.size(); i += 2) dlg.AddPair({files[i], ""}, {files[i + 1], ""});
        for (std::size_t i = 0; i < idents.size(); ++i) dlg.m_pairs[i].a.m_strIdent = idents[i];
        if (int rc = dlg.Validate(nullptr)) return rc;
        return doc.InitFromDialog(dlg);
    }
    std::string Report(CVarDoc& doc) {
        CVarTextView view;
        view.SetDocument(&doc);
        return txt_ReportText(view);
    }

    TempDir dir;
};

// A: variance 40/4 = 10, B: variance 2/2 = 1; ratio 10 with 4 and 2 degrees of
// freedom: lower 10 / F(4, 2), upper 10 * F(2, 4). Second pair: variances 350
// and 3.5, ratio 100, F(5, 5) = 7.15 both ways: 14 and 715, which excludes 1.
// The report puts under UPPER the lower limit with a percent sign, under LOWER
// the upper limit.
TEST_F(VarDocTest, RatioIntervalFromTheFTableAndReport) {
    std::string a = File("a.dat", {10, 12, 14, 16, 18});
    std::string b = File("b.dat", {9, 10, 11});
    std::string c = File("c.dat", {0, 10, 20, 30, 40, 50});
    std::string d = File("d.dat", {1, 2, 3, 4, 5, 6});
    CVarDoc doc;
    ASSERT_EQ(Compute(doc, {a, b}), 0);
    const PairRow& ra = doc.Results().rows[0];
    EXPECT_DOUBLE_EQ(ra.estimate, 10.0);
    EXPECT_NEAR(ra.lower, 10.0 / kF_4_2, 10.0 / kF_4_2 * kTableTolerance / kF_4_2);
    EXPECT_NEAR(ra.upper, 10.0 * kF_2_4, 10.0 * kTableTolerance);
    // The chart range holds the interval and 1.
    EXPECT_EQ(doc.Results().low, ra.lower);
    EXPECT_EQ(doc.Results().high, ra.upper);

    ASSERT_EQ(Compute(doc, {a, b, c, d}, "Spread", {"A.dat", "Spread.dat"}), 0);
    EXPECT_NEAR(doc.Results().rows[1].lower, 100.0 / kF_5_5, 0.02);
    EXPECT_EQ(Report(doc),
              "                       Compare Variances : Spread\n"
              "\n"
              "-------------------------------------------------------------------------------------\n"
              "      IDENTIFIER       VARIANCE  UPPER 0.950 LOWER 0.950   MINIMUM    MAXIMUM NUMBER\n"
              "                          RATIO    C.I.LIMIT   C.I.LIMIT     VALUE      VALUE OF OBS\n"
              "-------------------------------------------------------------------------------------\n"
              "A.dat                        10      0.255%         106         10         18      5\n"
              "                                                                 9         11      3\n"
              "          FAIL TO REJECT H0 => VARIANCES ARE EQUAL AT  0.05 LEVEL\n"
              "\n"
              "Spread.dat                  100         14%         715          0         50      6\n"
              "                                                                 1          6      6\n"
              "          REJECT H0 => VARIANCES ARE NOT EQUAL AT  0.05 LEVEL\n"
              "\n");
}

// A file against itself at 20001 observations: ratio 1 inside
// [1/F, F] with F(20000, 20000) at 0.025 = 1.02810661 (scipy.stats.f.isf(0.025,
// 20000, 20000)). The F iteration alone came out below 1 here, so the
// interval excluded 1 and the verdict rejected.
TEST_F(VarDocTest, FileAgainstItselfAtLargeSample) {
    std::vector<double> values;
    for (int i = 0; i <= 20000; ++i) values.push_back(std::sin(0.7 * i) * 3.0);
    std::string a = File("a.dat", values);
    CVarDoc doc;
    ASSERT_EQ(Compute(doc, {a, a}), 0);
    EXPECT_NEAR(doc.Results().rows[0].lower, 1.0 / 1.02810661, 1e-6);
    EXPECT_NEAR(doc.Results().rows[0].upper, 1.02810661, 1e-6);
    EXPECT_NE(Report(doc).find("          1      0.973%        1.03"), std::string::npos);
    EXPECT_NE(Report(doc).find("FAIL TO REJECT"), std::string::npos);
}

TEST_F(VarDocTest, ConstantAndSingleObservationFiles) {
    std::string a = File("a.dat", {10, 12, 14, 16, 18});
    std::string k = File("k.dat", {3, 3, 3});
    std::string one = File("one.dat", {4});
    CVarDoc doc;
    ASSERT_EQ(Compute(doc, {a, k, one, one}), 0);
    EXPECT_TRUE(std::isinf(doc.Results().rows[0].estimate));
    EXPECT_TRUE(std::isinf(doc.Results().rows[0].lower));
    EXPECT_TRUE(std::isnan(doc.Results().rows[1].estimate));
    std::string report = Report(doc);
    EXPECT_NE(report.find("       inf        inf%         inf         10         18      5\n"), std::string::npos);
    EXPECT_NE(report.find("nan"), std::string::npos);
    // 1 below an infinite lower limit rejects; NaN limits compare false.
    std::istringstream lines(report);
    std::vector<std::string> verdicts;
    for (std::string line; std::getline(lines, line);)
        if (line.find("H0 =>") != std::string::npos) verdicts.push_back(line);
    ASSERT_EQ(verdicts.size(), 2u);
    EXPECT_NE(verdicts[0].find("REJECT H0 => VARIANCES ARE NOT EQUAL"), std::string::npos);
    EXPECT_NE(verdicts[1].find("FAIL TO REJECT"), std::string::npos);
}

TEST_F(VarDocTest, NoObservations) {
    std::string a = File("a.dat", {10, 12, 14});
    std::string empty = dir.Path("empty.dat");
    test_WriteDataFile(empty, {}, {{-1, -1}});
    CVarDoc doc;
    EXPECT_EQ(Compute(doc, {a, empty}), 15901);
    EXPECT_EQ(Compute(doc, {empty, a}), 15901);
}

TEST_F(VarDocTest, LargeOffsetKeepsItsDigits) {
    const double noise[] = {0.1, -0.1, 0.2, -0.2, 0.0};
    std::vector<double> big, small;
    for (int i = 0; i < 1000; ++i) {
        big.push_back(1e7 + noise[i % 5]);
        small.push_back(noise[(i + 3) % 5]);
    }
    CVarDoc doc;
    ASSERT_EQ(Compute(doc, {File("a.dat", big), File("b.dat", small)}), 0);
    EXPECT_NEAR(doc.Results().rows[0].estimate, 1.0, 1e-7);
}

// The view on results set by hand: the closed interval and the long lines.
struct ResultsDoc : CVarDoc {
    using CVarDoc::m_results;
};

TEST(VarView, VerdictsAndLongIdentifiers) {
    ResultsDoc doc;
    auto add = [&doc](const std::string& ident, double lower, double upper) {
        PairRow row;
        row.ident = ident;
        row.estimate = 2.0;
        row.lower = lower;
        row.upper = upper;
        row.a = row.b = {1.0, 2.0, 3};
        row.computed = true;
        doc.m_results.rows.push_back(row);
    };
    add("lower-is-one", 1.0, 3.0);
    add("upper-is-one", 0.5, 1.0);
    add("above", std::nextafter(1.0, 2.0), 3.0);
    add("0123456789abcdefghij KLMNOPQRSTUVWXYZ-+=!rest", 0.5, 0.75);
    CVarTextView view;
    view.SetDocument(&doc);
    std::string text = txt_ReportText(view);
    // B's numbers stand under A's: 56 blanks on the short line, the identifier
    // column and 36 blanks on the long one.
    const char* fail = "          FAIL TO REJECT H0 => VARIANCES ARE EQUAL AT  0.05 LEVEL\n\n";
    const char* reject = "          REJECT H0 => VARIANCES ARE NOT EQUAL AT  0.05 LEVEL\n\n";
    const char* shortB = "                                                                 1          2      3\n";
    const char* longB = "KLMNOPQRSTUVWXYZ-+=!                                             1          2      3\n";
    std::string expected;
    expected.append("lower-is-one                  2          1%           3          1          2      3\n");
    expected.append(shortB).append(fail);
    expected.append("upper-is-one                  2        0.5%           1          1          2      3\n");
    expected.append(shortB).append(fail);
    expected.append("above                         2          1%           3          1          2      3\n");
    expected.append(shortB).append(reject);
    expected.append("0123456789abcdefghij          2        0.5%        0.75          1          2      3\n");
    expected.append(longB).append("rest\n").append(reject);
    EXPECT_EQ(text.substr(text.rfind("---\n") + 4), expected);
}

}  // namespace
