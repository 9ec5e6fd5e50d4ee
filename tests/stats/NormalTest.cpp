// Standard normal upper tail and quantile.
#include <gtest/gtest.h>

#include <cmath>

#include "stats/Distributions.h"

namespace {

struct TailCase {
    double z;
    double q;
    double tol;
};

// Check values stated for the tail function, at their printed digits; then
// Q(z) = erfc(z / sqrt 2) / 2 as tabled in Abramowitz and Stegun, Handbook of
// Mathematical Functions, Table 26.1, to 15 digits (0.5 - P/2); then the
// exact half at zero and the far tails, which must not break.
TEST(NormalUpperTail, CheckAndPublishedValues) {
    const TailCase cases[] = {
        {1.96, 0.0249979, 5e-8}, {-1.96, 0.9750021, 5e-8}, {3.0, 0.00134990, 5e-9}, {3.5, 0.000232629, 5e-10},
        {0.5, 0.308537538725987, 1e-13},   {1.0, 0.158655253931457, 1e-13},  {2.0, 0.0227501319481792, 1e-13},
        {2.5, 0.00620966532577613, 1e-13}, {4.0, 3.16712418331199e-5, 1e-15}, {5.0, 2.86651571879194e-7, 1e-17},
        {6.0, 9.86587645037698e-10, 1e-20}, {-2.0, 0.977249868051821, 1e-13},
        {0.0, 0.5, 0}, {-0.0, 0.5, 0}, {40.0, 0.0, 0}, {-40.0, 1.0, 0}, {HUGE_VAL, 0.0, 0},
    };
    for (const auto& c : cases) EXPECT_NEAR(st_NormalUpperTail(c.z), c.q, c.tol) << "z = " << c.z;
}

// Both continued fractions must agree with erfc on either side of the switch
// at |z| = 3 (3 itself takes the first, anything above it the second), to
// the few units in 1e-12 that 28 terms give there.
TEST(NormalUpperTail, AccurateAcrossTheSwitchPoint) {
    for (double z : {2.999999, 3.0, std::nextafter(3.0, 4.0), 3.000001, 3.2}) {
        const double exact = 0.5 * std::erfc(z / std::sqrt(2.0));
        EXPECT_NEAR(st_NormalUpperTail(z), exact, 1e-11 * exact) << "z = " << z;
        EXPECT_NEAR(st_NormalUpperTail(-z), 1.0 - exact, 1e-14) << "z = " << -z;
    }
}

TEST(NormalUpperTail, SymmetricAboutZero) {
    for (double z : {0.1, 0.75, 1.5, 2.9, 3.0, 3.1, 4.5, 8.0})
        EXPECT_EQ(st_NormalUpperTail(-z), 1.0 - st_NormalUpperTail(z)) << "z = " << z;
}

// Check values stated for the quantile at tol 0.001, to their printed digits;
// Abramowitz and Stegun, Table 26.5 (percentage points of the normal
// distribution), to 7 decimals; and exactly zero at one half.
TEST(NormalQuantile, CheckAndPublishedValues) {
    const TailCase cases[] = {
        {0.05, 1.6448536, 5e-8}, {0.025, 1.9599640, 5e-8}, {0.975, -1.9599640, 5e-8}, {0.005, 2.5758293, 5e-8},
        {0.25, 0.6744898, 5e-8},  {0.1, 1.2815516, 5e-8},    {0.01, 2.3263479, 5e-8},
        {0.001, 3.0902323, 5e-8}, {0.0001, 3.7190165, 5e-8}, {0.9, -1.2815516, 5e-8}, {0.5, 0.0, 0},
    };
    for (const auto& c : cases) EXPECT_NEAR(st_NormalQuantile(c.z, 0.001), c.q, c.tol) << "p = " << c.z;
    EXPECT_EQ(st_NormalQuantile(0.5, 1e-12), 0.0);
}

// p and 1 - p, both exact in binary, give exact negatives.
TEST(NormalQuantile, SymmetricInP) {
    for (double p : {0.25, 0.125, 0.0625, 0.03125, 0.0078125, 0.4375})
        EXPECT_EQ(st_NormalQuantile(1.0 - p, 0.001), -st_NormalQuantile(p, 0.001)) << "p = " << p;
}

TEST(NormalQuantile, InvertsTheTail) {
    for (double p : {0.3, 0.2, 0.07, 0.02, 1e-3, 1e-5, 1e-8})
        EXPECT_NEAR(st_NormalUpperTail(st_NormalQuantile(p, 0.001)), p, 1e-9 * p) << "p = " << p;
}

}  // namespace
