// Studentized range: the table lookup, the distribution and its quantile.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <vector>

#include "stats/Distributions.h"

namespace {

struct QCase {
    int k;  // number of means
    int df;
    double alpha;
    double q;
    double tol;
};

void ExpectLookups(const std::vector<QCase>& cases) {
    for (const auto& c : cases)
        EXPECT_NEAR(LookupStudentizedRange(c.k - 1, c.df, c.alpha), c.q, c.tol)
            << "k " << c.k << " df " << c.df << " alpha " << c.alpha;
}

// Upper points of the studentized range to three decimals (H. L. Harter,
// Tables of Range and Studentized Range, Ann. Math. Statist. 31 (1960);
// Biometrika Tables Vol. 1, Table 29). The lookup holds them rounded to two
// decimals, so each must be within 0.005 (plus the table's own half unit).
TEST(StudentizedRange, PublishedTable) {
    ExpectLookups({
        {3, 10, 0.05, 3.877, 0.0055},  {4, 10, 0.05, 4.327, 0.0055},  {5, 10, 0.05, 4.654, 0.0055},
        {3, 20, 0.05, 3.578, 0.0055},  {4, 20, 0.05, 3.958, 0.0055},  {5, 20, 0.05, 4.232, 0.0055},
        {3, 30, 0.05, 3.486, 0.0055},  {4, 30, 0.05, 3.845, 0.0055},  {3, 60, 0.05, 3.399, 0.0055},
        {4, 60, 0.05, 3.737, 0.0055},  {3, 120, 0.05, 3.356, 0.0055}, {4, 120, 0.05, 3.685, 0.0055},
        {3, 1000, 0.05, 3.314, 0.0055}, {4, 1000, 0.05, 3.633, 0.0055}, {5, 1000, 0.05, 3.858, 0.0055},
        {10, 1000, 0.05, 4.474, 0.0055}, {3, 10, 0.01, 5.270, 0.0055}, {4, 10, 0.01, 5.769, 0.0055},
        {3, 20, 0.01, 4.639, 0.0055},  {4, 20, 0.01, 5.018, 0.0055},  {3, 1000, 0.01, 4.120, 0.0055},
        {4, 1000, 0.01, 4.403, 0.0055}, {3, 10, 0.10, 3.270, 0.0055}, {3, 1000, 0.10, 2.902, 0.0055},
    });
}

// For two means the studentized range is sqrt(2) times |t|, so
// q(alpha; 2, df) = sqrt(2) t(alpha/2; df), from the t table (NIST/SEMATECH
// e-Handbook Table 1.3.6.7.2, three decimals) and for infinite df from the
// normal (A&S Table 26.5). Hand calculation, rounded as the lookup stores it.
TEST(StudentizedRange, TwoMeansFromStudentT) {
    const double r2 = std::sqrt(2.0);
    ExpectLookups({
        {2, 1, 0.05, r2 * 12.706, 0.05},   {2, 1, 0.01, r2 * 63.657, 0.5},    {2, 1, 0.10, r2 * 6.314, 0.006},
        {2, 2, 0.05, r2 * 4.303, 0.006},   {2, 2, 0.01, r2 * 9.925, 0.06},    {2, 5, 0.05, r2 * 2.571, 0.006},
        {2, 5, 0.01, r2 * 4.032, 0.006},   {2, 10, 0.05, r2 * 2.228, 0.006},  {2, 10, 0.10, r2 * 1.812, 0.006},
        {2, 20, 0.01, r2 * 2.845, 0.006},  {2, 20, 0.05, r2 * 2.086, 0.006},  {2, 30, 0.05, r2 * 2.042, 0.006},
        {2, 60, 0.01, r2 * 2.660, 0.006},  {2, 120, 0.05, r2 * 1.980, 0.006}, {2, 500, 0.05, r2 * 1.959964, 0.006},
        {2, 500, 0.01, r2 * 2.575829, 0.006}, {2, 500, 0.10, r2 * 1.644854, 0.006},
    });
}

// At a tabled column the value is the stored one exactly; above 120 the
// infinite column.
TEST(StudentizedRange, TabledColumnsExactly) {
    ExpectLookups({
        {2, 1, 0.05, 18, 0},      {10, 1, 0.01, 246, 0},    {5, 20, 0.10, 3.74, 0},   {2, 24, 0.05, 2.92, 0},
        {7, 30, 0.01, 5.4, 0},    {9, 40, 0.10, 4.21, 0},   {3, 60, 0.05, 3.4, 0},    {10, 120, 0.01, 5.3, 0},
        {2, 121, 0.05, 2.77, 0},  {6, 500, 0.10, 3.66, 0},  {10, INT_MAX, 0.01, 5.16, 0},
    });
}

// Between columns above 20 the value runs away from the lower column:
// q(hi) - (q(lo) - q(hi)) (hi - df) / width, worked by hand from the table.
TEST(StudentizedRange, RunAwayInterpolation) {
    ExpectLookups({
        {2, 21, 0.05, 2.92 - (2.95 - 2.92) * 3 / 4.0, 1e-12},     // 2.8975
        {2, 61, 0.05, 2.80 - (2.83 - 2.80) * 59 / 60.0, 1e-12},   // 2.7705
        {3, 25, 0.01, 4.45 - (4.54 - 4.45) * 5 / 6.0, 1e-12},     // 4.375
        {10, 35, 0.10, 4.32 - (4.38 - 4.32) * 5 / 10.0, 1e-12},   // 4.29
        {5, 41, 0.05, 3.98 - (4.04 - 3.98) * 19 / 20.0, 1e-12},   // 3.923
        {8, 119, 0.01, 5.12 - (5.25 - 5.12) * 1 / 60.0, 1e-12},
    });
    // Just above a tabled column the value falls below the upper column.
    EXPECT_LT(LookupStudentizedRange(1, 41, 0.05), 2.83);
}

TEST(StudentizedRange, OutsideTheTableGivesZero) {
    EXPECT_EQ(LookupStudentizedRange(1, 10, 0.025), 0.0);
    EXPECT_EQ(LookupStudentizedRange(1, 10, 0.050001), 0.0);
    EXPECT_EQ(LookupStudentizedRange(1, 10, 0.0), 0.0);
    EXPECT_EQ(LookupStudentizedRange(0, 10, 0.05), 0.0);
    EXPECT_EQ(LookupStudentizedRange(10, 10, 0.05), 0.0);
    EXPECT_EQ(LookupStudentizedRange(-3, 10, 0.05), 0.0);
    EXPECT_EQ(LookupStudentizedRange(1, 0, 0.05), 0.0);
    EXPECT_EQ(LookupStudentizedRange(1, -5, 0.05), 0.0);
    EXPECT_EQ(LookupStudentizedRange(1, INT_MIN, 0.05), 0.0);
}

// The stored points rise with k and fall with df, at every level.
TEST(StudentizedRange, TableIsMonotone) {
    const int dfs[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 24, 30, 40, 60, 120, 121};
    for (double alpha : {0.01, 0.05, 0.10}) {
        for (int i = 0; i < 26; ++i) {
            for (int k1 = 1; k1 <= 9; ++k1) {
                const double q = LookupStudentizedRange(k1, dfs[i], alpha);
                if (k1 > 1) {
                    EXPECT_GT(q, LookupStudentizedRange(k1 - 1, dfs[i], alpha)) << k1 << " " << dfs[i];
                }
                if (i > 0) {
                    EXPECT_LE(q, LookupStudentizedRange(k1, dfs[i - 1], alpha)) << k1 << " " << dfs[i];
                }
            }
        }
    }
}

// The distribution itself. For two means Q = sqrt(2) |T|, so in closed form
// P(Q > q) = 1 - (2/pi) atan(q/sqrt(2)) at 1 df, 1 - (q/sqrt(2)) / sqrt(2 + q^2/2)
// at 2 df, and erfc(q/2) at infinite df.
TEST(StudentizedRangeDistribution, TwoMeansInClosedForm) {
    const double pi = 3.14159265358979323846;
    for (double q : {0.1, 1.0, 2.77, 5.0, 20.0}) {
        const double t = q / std::sqrt(2.0);
        EXPECT_NEAR(st_StudentizedRangeUpperTail(q, 2, 1), 1 - 2 / pi * std::atan(t), 1e-12) << q;
        EXPECT_NEAR(st_StudentizedRangeUpperTail(q, 2, 2), 1 - t / std::sqrt(2 + t * t), 1e-12) << q;
        EXPECT_NEAR(st_StudentizedRangeUpperTail(q, 2, INFINITY), std::erfc(q / 2), 1e-12) << q;
    }
}

// Upper points to three decimals for 3 to 20 means (H. L. Harter, Ann. Math.
// Statist. 31 (1960) 1122-1147). Each was also recomputed to five decimals by
// plain Simpson rules on the untransformed double integral (tools/
// studentized_range_reference.py), which agreed.
TEST(StudentizedRangeDistribution, QuantileMatchesPublishedPoints) {
    const double inf = INFINITY;
    struct {
        double alpha;
        int k;
        double df, q;
    } const cases[] = {
        {0.05, 3, 10, 3.877},   {0.05, 5, 10, 4.654},   {0.05, 12, 10, 5.833},  {0.05, 15, 10, 6.114},
        {0.05, 20, 10, 6.467},  {0.05, 11, 20, 5.108},  {0.05, 20, 20, 5.714},  {0.05, 10, inf, 4.474},
        {0.05, 15, inf, 4.796}, {0.05, 20, inf, 5.012}, {0.01, 3, 10, 5.270},   {0.01, 20, 10, 8.226},
        {0.01, 11, inf, 5.227}, {0.01, 20, inf, 5.645}, {0.05, 4, 1e7, 3.633},
    };
    for (const auto& c : cases)
        EXPECT_NEAR(st_StudentizedRangeQuantile(c.k, c.df, c.alpha), c.q, 0.0005 + 1e-9)
            << "k " << c.k << " df " << c.df << " alpha " << c.alpha;
}

TEST(StudentizedRangeDistribution, OutOfRangeArguments) {
    EXPECT_EQ(st_StudentizedRangeUpperTail(0.0, 3, 10), 1.0);
    EXPECT_EQ(st_StudentizedRangeUpperTail(-1.0, 3, 10), 1.0);
    EXPECT_EQ(st_StudentizedRangeUpperTail(INFINITY, 3, 10), 0.0);
    EXPECT_TRUE(std::isnan(st_StudentizedRangeUpperTail(NAN, 3, 10)));
    EXPECT_TRUE(std::isnan(st_StudentizedRangeUpperTail(3.0, 1, 10)));
    EXPECT_TRUE(std::isnan(st_StudentizedRangeUpperTail(3.0, 3, 0.5)));
    EXPECT_TRUE(std::isnan(st_StudentizedRangeQuantile(3, 10, 0.0)));
    EXPECT_TRUE(std::isnan(st_StudentizedRangeQuantile(3, 10, 1.0)));
    EXPECT_TRUE(std::isnan(st_StudentizedRangeQuantile(3, NAN, 0.05)));
}

}  // namespace
