// Student t quantiles.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <string>

#include "stats/Distributions.h"

namespace {

struct TCase {
    int df;
    double p;
    double t;
};

// Upper quantiles t(df, p) to six decimals. Where these values were first
// taken from was not recorded; they were recomputed with SciPy 1.10.1,
// round(scipy.stats.t.ppf(1 - p, df), 6), and every one agrees to the printed
// digit. Tolerance: half a unit in the sixth decimal.
TEST(TQuantile, CheckValues) {
    const TCase cases[] = {
        {1, 0.025, 12.706205}, {1, 0.05, 6.313752},  {2, 0.025, 4.302653},  {2, 0.05, 2.919986},
        {3, 0.025, 3.182446},  {3, 0.05, 2.353363},  {5, 0.025, 2.570582},  {5, 0.05, 2.015048},
        {10, 0.025, 2.228139}, {10, 0.05, 1.812461}, {30, 0.025, 2.042272}, {30, 0.05, 1.697261},
        {120, 0.025, 1.979930}, {120, 0.05, 1.657651},
    };
    for (const auto& c : cases)
        EXPECT_NEAR(st_TQuantile(c.df, c.p), c.t, 5e-7) << "df " << c.df << " p " << c.p;
}

// Upper critical values of Student t, NIST/SEMATECH e-Handbook of Statistical
// Methods, Table 1.3.6.7.2 (also Biometrika Tables Vol. 1, Table 12), three
// decimals: the printed value is within 0.0005 of the true quantile.
TEST(TQuantile, PublishedTable) {
    const TCase cases[] = {
        {1, 0.10, 3.078},   {2, 0.10, 1.886},   {3, 0.10, 1.638},   {5, 0.10, 1.476},   {10, 0.10, 1.372},
        {20, 0.10, 1.325},  {30, 0.10, 1.310},  {60, 0.10, 1.296},  {100, 0.10, 1.290}, {4, 0.05, 2.132},
        {7, 0.05, 1.895},   {15, 0.05, 1.753},  {20, 0.05, 1.725},  {25, 0.05, 1.708},  {40, 0.05, 1.684},
        {60, 0.05, 1.671},  {100, 0.05, 1.660}, {4, 0.025, 2.776},  {6, 0.025, 2.447},  {8, 0.025, 2.306},
        {9, 0.025, 2.262},  {12, 0.025, 2.179}, {15, 0.025, 2.131}, {20, 0.025, 2.086}, {24, 0.025, 2.064},
        {40, 0.025, 2.021}, {60, 0.025, 2.000}, {100, 0.025, 1.984}, {1, 0.01, 31.821}, {2, 0.01, 6.965},
        {3, 0.01, 4.541},   {5, 0.01, 3.365},   {10, 0.01, 2.764},  {20, 0.01, 2.528},  {30, 0.01, 2.457},
        {100, 0.01, 2.364}, {1, 0.005, 63.657}, {2, 0.005, 9.925},  {3, 0.005, 5.841},  {4, 0.005, 4.604},
        {5, 0.005, 4.032},  {10, 0.005, 3.169}, {20, 0.005, 2.845}, {30, 0.005, 2.750}, {60, 0.005, 2.660},
        {100, 0.005, 2.626}, {5, 0.001, 5.893}, {10, 0.001, 4.144}, {20, 0.001, 3.552}, {30, 0.001, 3.385},
        {100, 0.001, 3.174},
    };
    for (const auto& c : cases)
        EXPECT_NEAR(st_TQuantile(c.df, c.p), c.t, 0.0005 + 1e-6) << "df " << c.df << " p " << c.p;
}

// For one and two degrees of freedom the quantile has a closed form, and the
// result is that form to rounding, not a refined approximation of it:
// df 1: t = tan(pi (1/2 - p)); df 2: t = (1 - 2p) / sqrt(2 p (1 - p)).
TEST(TQuantile, ClosedFormsForOneAndTwoDegrees) {
    const double pi = 3.14159265358979323846;
    for (double p : {0.4, 0.25, 0.1, 0.05, 0.025, 0.005, 0.0005}) {
        const double t1 = std::tan(pi * (0.5 - p));
        const double t2 = (1.0 - 2.0 * p) / std::sqrt(2.0 * p * (1.0 - p));
        EXPECT_NEAR(st_TQuantile(1, p), t1, 1e-12 * t1) << "p " << p;
        EXPECT_NEAR(st_TQuantile(2, p), t2, 1e-12 * t2) << "p " << p;
    }
}

// p = 0.5 is the median: 0 from the closed forms, and 0 from the refined
// path too, whose start x = 1 is already the root.
TEST(TQuantile, MedianIsZero) {
    for (int df : {1, 2, 3, 10, 120}) EXPECT_EQ(st_TQuantile(df, 0.5), 0.0) << "df " << df;
}

// Large df approaches the normal quantile from above.
TEST(TQuantile, ApproachesNormal) {
    const double z = 1.959963985;  // A&S Table 26.5
    double previous = st_TQuantile(200, 0.025);
    EXPECT_GT(previous, z);
    for (int df : {1000, 10000}) {
        const double t = st_TQuantile(df, 0.025);
        EXPECT_GT(t, z);
        EXPECT_LT(t, previous);
        previous = t;
    }
    EXPECT_NEAR(previous, z, 3e-4);
}

// From 10^4 degrees of freedom the tail behind the quantile comes from the
// incomplete beta function instead of the series of df/2 terms. Interval
// half-widths print t s / sqrt(n) with "%10.3g": over a grid of df up to 10^7
// both quantiles print alike at scales spread over the mantissa. At 10^8 a
// series quantile costs seconds; there the series tail at the quantile bounds
// how far the series' own root can lie (|tail - 2p| / density, in x).
std::string Printed(double v) {
    char text[32];
    std::snprintf(text, sizeof text, "%10.3g", v);
    return text;
}

void ExpectSamePrinted(int df, double t, double reference, const char* what) {
    EXPECT_NEAR(t, reference, 1e-8 * reference) << what << " df " << df;
    for (double scale : {1.0, 1.2345, 3.14159, 9.995, 0.00777})
        EXPECT_EQ(Printed(scale * t), Printed(scale * reference)) << what << " df " << df;
}

TEST(TQuantile, LargeDegreesPrintAsTheSeries) {
    for (int df : {9999, 10000, 30001, 100000, 1000001})
        for (double p : {0.05, 0.025, 0.005, 0.0005})
            ExpectSamePrinted(df, st_TQuantile(df, p), st_TQuantileBySeries(df, p), "series");
    ExpectSamePrinted(9999999, st_TQuantile(9999999, 0.025), st_TQuantileBySeries(9999999, 0.025), "series");
    const int df = 100000000;
    const double p = 0.025;
    const double t = st_TQuantile(df, p);
    const double x = df / (df + t * t);
    double tail;
    const double density = st_FTailSeries(df, 1, x, &tail);
    const double shift = std::fabs(tail - 2.0 * p) / density;
    for (double root : {x + shift, x - shift})
        ExpectSamePrinted(df, t, std::sqrt(df * (1.0 - root) / root), "series root");
}

}  // namespace
