// One-way analysis of variance: the table, Welch's test and the comparisons.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "framework/Messages.h"
#include "stats/Moments.h"
#include "stats/Oneway.h"

namespace {

using Data = std::vector<std::vector<double>>;

std::vector<OnewayGroup> Groups(const Data& data) {
    std::vector<CMoments> sums(data.size());
    for (std::size_t i = 0; i < data.size(); ++i)
        for (double x : data[i]) sums[i].Add(x);
    return oneway_Groups(sums);
}

Data Shifted(const Data& data, double scale, double offset) {
    Data out = data;
    for (auto& g : out)
        for (double& x : g) x = offset + scale * x;
    return out;
}

// Hand set: means 2, 5.5, 3; grand mean 34/9; SSB = 3(16/9)^2 + 4(31/18)^2 +
// 2(7/9)^2 = 203/9; SSW = 2 + 5 + 2 = 9; F = (203/18) / (9/6) = 203/27. With
// 2 numerator df, P(F > f) = (1 + 2f/n)^(-n/2), here (284/81)^-3.
const Data kHand = {{1, 2, 3}, {4, 5, 6, 7}, {2, 4}};

struct TableCase {
    const char* source;
    Data data;
    long dfBetween, dfWithin;
    double ssBetween, ssWithin, f, p;
};

// p-values other than the hand set's: mpmath 1.3, mp.dps = 30,
// betainc(n/2, m/2, 0, n/(n + m F), regularized=True) at the exact F.
TEST(Oneway, TableMatchesHandAndPublishedExamples) {
    const TableCase cases[] = {
        {"hand", kHand, 2, 6, 203.0 / 9, 9, 203.0 / 27, 531441.0 / 22906304},
        // The same on an offset of 10^9.
        {"hand + 1e9", Shifted(kHand, 1, 1e9), 2, 6, 203.0 / 9, 9, 203.0 / 27, 531441.0 / 22906304},
        // Means 1/3, 4/3, 1/2 of {0,0,1}, {1,1,2}, {0,1}, scaled by 2^-6 onto 10^9
        // (the data stay exact, the means cannot): SSB = 5/3, SSW = 11/6 before
        // scaling (by 2^-12), F = (5/6)/(11/30) = 25/11, p = (1 + 10/11)^(-5/2).
        // Rounded means would leave six digits of SSB.
        {"thirds / 64 + 1e9", Shifted({{0, 0, 1}, {1, 1, 2}, {0, 1}}, 1.0 / 64, 1e9), 2, 5, 5.0 / 3 / 4096,
         11.0 / 6 / 4096, 25.0 / 11, std::pow(21.0 / 11, -2.5)},
        // Kutner, Nachtsheim, Neter and Li, Applied Linear Statistical Models,
        // 5th ed. (2005), Kenton Food Company, Table 16.1: SSTR 588.22,
        // SSE 158.20, F* 18.59 (exactly 39915/2147).
        {"Kenton", {{11, 17, 16, 14, 15}, {12, 10, 15, 19, 11}, {23, 20, 18, 17}, {27, 33, 22, 26, 28}}, 3, 15,
         588.2210526315789, 158.2, 39915.0 / 2147, 2.58496098354535e-5},
        // Montgomery, Design and Analysis of Experiments, 5th ed. (2001),
        // Example 3-1, tensile strength: SS 475.76 and 161.20, F0 14.76.
        {"tensile", {{7, 7, 15, 11, 9}, {12, 17, 12, 18, 18}, {14, 18, 18, 19, 19}, {19, 25, 22, 19, 23}, {7, 10, 11, 15, 11}},
         4, 20, 475.76, 161.2, 5947.0 / 403, 9.12793712405845e-6},
        // Montgomery, 8th ed. (2013), Example 3.1, plasma etch rate: SS 66,870.55
        // and 5,339.20, F0 66.80.
        {"etch", {{575, 542, 530, 539, 570}, {565, 593, 590, 579, 610}, {600, 651, 610, 637, 629}, {725, 700, 715, 685, 710}},
         3, 16, 66870.55, 5339.2, 1337411.0 / 20022, 2.88286590849328e-9},
    };
    for (const auto& c : cases) {
        OnewayTable t;
        ASSERT_EQ(oneway_Table(Groups(c.data), 0.05, &t), 0) << c.source;
        EXPECT_EQ(t.dfBetween, c.dfBetween) << c.source;
        EXPECT_EQ(t.dfWithin, c.dfWithin) << c.source;
        EXPECT_NEAR(t.ssBetween, c.ssBetween, 1e-10 * c.ssBetween) << c.source;
        EXPECT_NEAR(t.ssWithin, c.ssWithin, 1e-10 * c.ssWithin) << c.source;
        EXPECT_NEAR(t.msWithin, c.ssWithin / c.dfWithin, 1e-10 * c.ssWithin / c.dfWithin) << c.source;
        EXPECT_NEAR(t.f, c.f, 1e-10 * c.f) << c.source;
        EXPECT_NEAR(t.pValue, c.p, 1e-10 * c.p) << c.source;
        EXPECT_EQ(t.equalRejected, c.p < 0.05) << c.source;
    }
    // F(0.05; 2, 6) = 3 (0.05^(-1/3) - 1) from the closed form of 2 numerator df.
    OnewayTable t;
    oneway_Table(Groups(kHand), 0.05, &t);
    EXPECT_NEAR(t.fCritical, 3 * (std::pow(0.05, -1.0 / 3) - 1), 1e-5);
    EXPECT_NEAR(t.grandMean, 34.0 / 9, 1e-15);
}

// Welch on the hand set, by hand: weights n/s^2 = 3, 12/5, 1 (sum 32/5),
// weighted mean 111/32, A = 531/64, Lambda = sum (1 - w/W)^2/(n - 1) = 6041/6144,
// F* = A / (1 + 2 (k - 2) Lambda / (k^2 - 1)) = 203904/30617, df2 = 8/(3 Lambda)
// = 16384/6041 = 2.71, used as 2: P(F(2, 2) > f) = 1/(1 + f); F(0.05; 2, 2) = 19.
TEST(Oneway, WelchByHand) {
    for (double offset : {0.0, 1e9}) {
        OnewayWelch w;
        ASSERT_EQ(oneway_Welch(Groups(Shifted(kHand, 1, offset)), 0.05, &w), 0);
        const double f = 203904.0 / 30617;
        EXPECT_NEAR(w.f, f, 1e-10 * f) << offset;
        EXPECT_NEAR(w.dfWithinExact, 16384.0 / 6041, 1e-12) << offset;
        EXPECT_EQ(w.dfWithin, 2);
        EXPECT_NEAR(w.pValue, 1 / (1 + f), 1e-12);
        EXPECT_NEAR(w.fCritical, 19.0, 1e-4);
        EXPECT_FALSE(w.equalRejected);
    }
}

struct MessageCase {
    const char* what;
    Data data;
    int table;  // oneway_Table's result
    int welch;  // oneway_Welch's result
};

TEST(Oneway, DegenerateDataGiveMessages) {
    const MessageCase cases[] = {
        {"one group", {{1, 2, 3}}, IDS_ANOVA_TWO_FILES, IDS_ANOVA_TWO_FILES},
        {"single observations", {{1}, {2}}, IDS_ANOVA_NO_ERROR_DF, IDS_ANOVA_TWO_OBSERVATIONS},
        {"one single observation", {{1}, {2, 3}}, 0, IDS_ANOVA_TWO_OBSERVATIONS},
        {"constant groups", {{5, 5}, {7, 7, 7}}, IDS_ANOVA_NO_VARIATION, IDS_ANOVA_CONSTANT_FILE},
        {"all equal", {{5, 5}, {5, 5}}, IDS_ANOVA_NO_VARIATION, IDS_ANOVA_CONSTANT_FILE},
        {"one constant group", {{5, 5}, {6, 7}}, 0, IDS_ANOVA_CONSTANT_FILE},
    };
    for (const auto& c : cases) {
        OnewayTable t;
        OnewayWelch w;
        EXPECT_EQ(oneway_Table(Groups(c.data), 0.05, &t), c.table) << c.what;
        EXPECT_EQ(oneway_Welch(Groups(c.data), 0.05, &w), c.welch) << c.what;
    }
}

struct PairCase {
    int method;
    int i, j;
    double difference;
    double halfWidth;
    double tolerance;
    bool significant;
    bool qFromTable;
};

// Hand set, alpha 0.05 given as 1 - 0.95. MSW = 3/2, so se^2 = 3/2 (1/n_i + 1/n_j).
//  - Tukey: q(0.05; 3, 6) = 4.34 from the table.
//  - Scheffe: sqrt(2 F(0.05; 2, 6)), F = 3 (0.05^(-1/3) - 1) (closed form).
//  - Bonferroni: t(0.05/6; 6) = 3.28745515709 (mpmath 1.3: findroot of
//    betainc(3, 0.5, 0, 6/(6 + t^2), regularized=True)/2 - 0.05/6).
//  - Games-Howell: s^2/n = 1/3, 5/12, 1; Welch df 243/49 -> 4 (A-B), 32/19 and
//    867/457 -> 1 (A-C, B-C); q(0.05; 3, 4) = 5.04, q(0.05; 3, 1) = 27.
TEST(Oneway, ComparisonsByHand) {
    const double r2 = std::sqrt(2.0);
    const double scheffe = std::sqrt(2 * 3 * (std::pow(0.05, -1.0 / 3) - 1));
    const double bonferroni = 3.28745515709;
    const double seAB = std::sqrt(1.5 * (1 / 3.0 + 1 / 4.0));
    const double seAC = std::sqrt(1.5 * (1 / 3.0 + 1 / 2.0));
    const double seBC = std::sqrt(1.5 * (1 / 4.0 + 1 / 2.0));
    const PairCase cases[] = {
        {ONEWAY_TUKEY, 0, 1, -3.5, 4.34 / r2 * seAB, 1e-12, true, true},
        {ONEWAY_TUKEY, 0, 2, -1.0, 4.34 / r2 * seAC, 1e-12, false, true},
        {ONEWAY_TUKEY, 1, 2, 2.5, 4.34 / r2 * seBC, 1e-12, false, true},
        {ONEWAY_SCHEFFE, 0, 1, -3.5, scheffe * seAB, 1e-5, true, false},
        {ONEWAY_SCHEFFE, 1, 2, 2.5, scheffe * seBC, 1e-5, false, false},
        {ONEWAY_BONFERRONI, 0, 1, -3.5, bonferroni * seAB, 1e-5, true, false},
        {ONEWAY_BONFERRONI, 0, 2, -1.0, bonferroni * seAC, 1e-5, false, false},
        {ONEWAY_GAMES_HOWELL, 0, 1, -3.5, 5.04 / r2 * std::sqrt(0.75), 1e-12, true, true},
        {ONEWAY_GAMES_HOWELL, 0, 2, -1.0, 27 / r2 * std::sqrt(4 / 3.0), 1e-12, false, true},
        {ONEWAY_GAMES_HOWELL, 1, 2, 2.5, 27 / r2 * std::sqrt(17 / 12.0), 1e-12, false, true},
    };
    const auto groups = Groups(Shifted(kHand, 1, 1e9));
    OnewayTable table;
    ASSERT_EQ(oneway_Table(groups, 1 - 0.95, &table), 0);
    for (const auto& c : cases) {
        const auto pairs = oneway_Compare(groups, table, 1 - 0.95, c.method);
        ASSERT_EQ(pairs.size(), 3u);
        const OnewayComparison* p = nullptr;
        for (const auto& x : pairs)
            if (x.i == c.i && x.j == c.j) p = &x;
        ASSERT_NE(p, nullptr);
        EXPECT_NEAR(p->difference, c.difference, 1e-12) << c.method << " " << c.i << c.j;
        EXPECT_NEAR(p->halfWidth, c.halfWidth, c.tolerance * c.halfWidth) << c.method << " " << c.i << c.j;
        EXPECT_DOUBLE_EQ(p->lower, p->difference - p->halfWidth);
        EXPECT_DOUBLE_EQ(p->upper, p->difference + p->halfWidth);
        EXPECT_EQ(p->significant, c.significant) << c.method << " " << c.i << c.j;
        EXPECT_EQ(p->qFromTable, c.qFromTable) << c.method << " " << c.i << c.j;
    }
}

// The table where it has the point (the level matched although 1 - 0.95 is
// not the double 0.05), the distribution where it has not: q(0.05; 11, 10) =
// 5.722 to three decimals (H. L. Harter, Ann. Math. Statist. 31 (1960)).
TEST(Oneway, RangePointFromTableOrDistribution) {
    bool fromTable = false;
    EXPECT_EQ(oneway_RangePoint(3, 10, 1 - 0.95, &fromTable), 3.88);
    EXPECT_TRUE(fromTable);
    EXPECT_EQ(oneway_RangePoint(10, 1000, 1 - 0.99, &fromTable), 5.16);
    EXPECT_TRUE(fromTable);
    EXPECT_NEAR(oneway_RangePoint(11, 10, 0.05, &fromTable), 5.722, 0.0005);
    EXPECT_FALSE(fromTable);
}

}  // namespace
