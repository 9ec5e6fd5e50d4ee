// Chi-square upper tail, density and quantile.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <string>

#include "stats/Distributions.h"

namespace {

// Independent closed forms: the upper tail from the Poisson sum for even df
// and from erfc plus the same sum of half-integer terms for odd df (A&S
// 26.4.4, 26.4.5), the density from the gamma function.
double TailByHand(int df, double x) {
    double sum = 0.0;
    if (df % 2 == 0) {
        double term = std::exp(-x / 2.0);
        for (int i = 0; i < df / 2; ++i) {
            sum += term;
            term *= (x / 2.0) / (i + 1);
        }
        return sum;
    }
    sum = std::erfc(std::sqrt(x / 2.0));
    double term = std::sqrt(2.0 * x / 3.14159265358979323846) * std::exp(-x / 2.0);
    for (int r = 3; r <= df; r += 2) {
        sum += term;
        term *= x / r;
    }
    return sum;
}

double DensityByHand(int df, double x) {
    return std::exp((df / 2.0 - 1.0) * std::log(x) - x / 2.0 - (df / 2.0) * std::log(2.0) - std::lgamma(df / 2.0));
}

TEST(ChiSquareUpperTail, MatchesClosedForms) {
    for (int df : {1, 2, 3, 4, 5, 9, 10, 25, 40}) {
        for (double x : {0.01, 0.5, 1.0, 3.0, 7.5, 20.0, 60.0}) {
            double tail = -1.0;
            const double f = st_ChiSquareUpperTail(df, x, &tail);
            const double t = TailByHand(df, x);
            const double d = DensityByHand(df, x);
            EXPECT_NEAR(tail, t, 1e-12 + 1e-10 * t) << "df " << df << " x " << x;
            EXPECT_NEAR(f, d, 1e-12 * d + 1e-300) << "df " << df << " x " << x;
        }
    }
}

TEST(ChiSquareUpperTail, NonPositiveX) {
    for (double x : {0.0, -1.0, -1e300}) {
        double tail = -1.0;
        EXPECT_EQ(st_ChiSquareUpperTail(3, x, &tail), 0.0);
        EXPECT_EQ(tail, 1.0);
    }
}

// Terms below exp(-50) are dropped: far in the tail the sum stops growing,
// and a point far below the mean still gives a tail of one.
TEST(ChiSquareUpperTail, ExtremeArguments) {
    double tail;
    st_ChiSquareUpperTail(200, 1.0, &tail);
    EXPECT_NEAR(tail, 1.0, 1e-15);
    const double f = st_ChiSquareUpperTail(4, 1500.0, &tail);
    EXPECT_EQ(tail, 0.0);
    EXPECT_LT(f, 1e-300);
    st_ChiSquareUpperTail(100, 124.342, &tail);  // NIST Table 1.3.6.7.4: upper 0.05 point, df 100
    EXPECT_NEAR(tail, 0.05, 1e-5);
}

struct QCase {
    int df;
    double p;
    double x;
};

// Upper critical values of chi-square, NIST/SEMATECH e-Handbook of
// Statistical Methods, Table 1.3.6.7.4 (also Biometrika Tables Vol. 1,
// Table 8), three decimals: within 0.0005 of the true quantile.
TEST(ChiSquareQuantile, PublishedTable) {
    const QCase cases[] = {
        {1, 0.05, 3.841},   {2, 0.05, 5.991},   {3, 0.05, 7.815},   {4, 0.05, 9.488},    {5, 0.05, 11.070},
        {10, 0.05, 18.307}, {20, 0.05, 31.410}, {30, 0.05, 43.773}, {50, 0.05, 67.505},  {100, 0.05, 124.342},
        {1, 0.01, 6.635},   {3, 0.01, 11.345},  {10, 0.01, 23.209}, {20, 0.01, 37.566},  {100, 0.01, 135.807},
        {3, 0.95, 0.352},   {5, 0.95, 1.145},   {10, 0.95, 3.940},  {20, 0.95, 10.851},  {100, 0.95, 77.929},
        {10, 0.99, 2.558},  {100, 0.99, 70.065}, {30, 0.975, 16.791}, {30, 0.025, 46.979}, {4, 0.025, 11.143},
        {4, 0.975, 0.484},
    };
    for (const auto& c : cases)
        EXPECT_NEAR(st_ChiSquareQuantile(c.df, c.p), c.x, 0.0005 + 1e-6) << "df " << c.df << " p " << c.p;
}

// Closed forms: one df is the square of the normal quantile at p/2, two df
// is -2 ln p.
TEST(ChiSquareQuantile, ClosedForms) {
    const double z = st_NormalQuantile(0.025, 0.001);
    EXPECT_EQ(st_ChiSquareQuantile(1, 0.05), z * z);
    EXPECT_EQ(st_ChiSquareQuantile(0, 0.05), z * z);
    EXPECT_NEAR(st_ChiSquareQuantile(1, 0.05), 1.959963985 * 1.959963985, 1e-7);
    for (double p : {0.975, 0.5, 0.05, 0.001}) EXPECT_EQ(st_ChiSquareQuantile(2, p), -2.0 * std::log(p));
}

// The upper 0.025 and 0.975 points for 4 df, 11.1433 and 0.484419 (tabled;
// for even df the tail is exp(-x/2)(1 + x/2), which these satisfy to six
// digits), to the digits the standard deviation interval of 1..5 prints.
TEST(ChiSquareQuantile, FourDegreesToSixDigits) {
    EXPECT_NEAR(st_ChiSquareQuantile(4, 0.025), 11.1433, 5e-5);
    EXPECT_NEAR(st_ChiSquareQuantile(4, 0.975), 0.484419, 5e-7);
}

// The quantile inverts the tail over a spread of df and levels.
TEST(ChiSquareQuantile, InvertsTheTail) {
    for (int df : {3, 4, 7, 15, 60, 250}) {
        for (double p : {0.995, 0.9, 0.5, 0.1, 0.01, 0.001}) {
            double tail;
            st_ChiSquareUpperTail(df, st_ChiSquareQuantile(df, p), &tail);
            EXPECT_NEAR(tail, p, 1e-6) << "df " << df << " p " << p;
        }
    }
}

// Above 10^4 df the tail comes from the incomplete gamma function instead of
// the series of df/2 terms. The standard deviation interval prints its limits
// sqrt((n - 1) v / q) with "%10.3g": over a grid of df up to 10^7 the limits
// from either quantile print alike at scales spread over the mantissa, and
// differ by far less than a printed digit. At 10^8 a series quantile costs
// many seconds; there the series tail at the quantile bounds how far the
// series' own root can lie (|tail - p| / density).
std::string Printed(double v) {
    char text[32];
    std::snprintf(text, sizeof text, "%10.3g", v);
    return text;
}

void ExpectSameLimits(int df, double q, double reference, const char* what) {
    EXPECT_NEAR(q, reference, 2e-8 * reference) << what << " df " << df;
    for (double scale : {1.0, 1.2345, 3.14159, 9.995, 0.00777}) {
        const double limit = scale * std::sqrt(df / q);
        EXPECT_EQ(Printed(limit), Printed(scale * std::sqrt(df / reference))) << what << " df " << df;
    }
}

TEST(ChiSquareQuantile, LargeDegreesPrintAsTheSeries) {
    struct Case {
        int df;
        double alpha;
    };
    const Case grid[] = {{10001, 0.1},   {10001, 0.01},   {30000, 0.05},    {100001, 0.1},
                         {100001, 0.01}, {1000000, 0.05}, {3000001, 0.01}, {10000000, 0.05}};
    for (const Case& c : grid) {
        for (double p : {c.alpha / 2.0, 1.0 - c.alpha / 2.0})
            ExpectSameLimits(c.df, st_ChiSquareQuantile(c.df, p), st_ChiSquareQuantileBySeries(c.df, p), "series");
    }
    const int df = 100000000;
    for (double p : {0.025, 0.975}) {
        const double q = st_ChiSquareQuantile(df, p);
        double tail;
        const double density = st_ChiSquareTailSeries(df, q, &tail);
        const double shift = std::fabs(tail - p) / density;
        ExpectSameLimits(df, q, q + shift, "series root above");
        ExpectSameLimits(df, q, q - shift, "series root below");
    }
}

}  // namespace
