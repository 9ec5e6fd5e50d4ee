// Incomplete beta series, its quantile, F quantiles and F tail probabilities.
#include <gtest/gtest.h>

#include <cmath>

#include "stats/Distributions.h"

namespace {

constexpr double kPi = 3.14159265358979323846;

// I_x(a/2, b/2) and its density in closed form for small whole a and b,
// integrated by hand from x^(a/2-1) (1-x)^(b/2-1) / B(a/2, b/2).
struct BetaForm {
    int a;
    int b;
    double (*prob)(double);
    double (*density)(double);
};

const BetaForm kBetaForms[] = {
    {1, 1, [](double x) { return 2.0 / kPi * std::asin(std::sqrt(x)); },
     [](double x) { return 1.0 / (kPi * std::sqrt(x * (1.0 - x))); }},
    {1, 2, [](double x) { return std::sqrt(x); }, [](double x) { return 0.5 / std::sqrt(x); }},
    {2, 1, [](double x) { return 1.0 - std::sqrt(1.0 - x); }, [](double x) { return 0.5 / std::sqrt(1.0 - x); }},
    {2, 2, [](double x) { return x; }, [](double) { return 1.0; }},
    {3, 1, [](double x) { return 2.0 / kPi * (std::asin(std::sqrt(x)) - std::sqrt(x * (1.0 - x))); },
     [](double x) { return 2.0 / kPi * std::sqrt(x / (1.0 - x)); }},
    {3, 4, [](double x) { return 2.5 * std::pow(x, 1.5) - 1.5 * std::pow(x, 2.5); },
     [](double x) { return 3.75 * std::sqrt(x) * (1.0 - x); }},
    {4, 2, [](double x) { return x * x; }, [](double x) { return 2.0 * x; }},
    {2, 6, [](double x) { return 1.0 - std::pow(1.0 - x, 3); }, [](double x) { return 3.0 * (1.0 - x) * (1.0 - x); }},
    {4, 4, [](double x) { return 3.0 * x * x - 2.0 * x * x * x; }, [](double x) { return 6.0 * x * (1.0 - x); }},
    {5, 2, [](double x) { return std::pow(x, 2.5); }, [](double x) { return 2.5 * std::pow(x, 1.5); }},
};

TEST(FUpperTail, MatchesClosedForms) {
    for (const auto& f : kBetaForms) {
        for (double x : {0.01, 0.2, 0.5, 0.77, 0.99}) {
            double prob = -1.0;
            const double g = st_FUpperTail(f.a, f.b, x, &prob);
            EXPECT_NEAR(prob, f.prob(x), 1e-13) << "a " << f.a << " b " << f.b << " x " << x;
            EXPECT_NEAR(g, f.density(x), 1e-12 * f.density(x)) << "a " << f.a << " b " << f.b << " x " << x;
        }
    }
}

// I_x(a, b) = 1 - I_(1-x)(b, a): every parity combination, larger df.
TEST(FUpperTail, Reflection) {
    for (int a : {3, 6, 11, 20}) {
        for (int b : {5, 8, 13}) {
            for (double x : {0.1, 0.45, 0.8}) {
                double p1, p2;
                const double g1 = st_FUpperTail(a, b, x, &p1);
                const double g2 = st_FUpperTail(b, a, 1.0 - x, &p2);
                EXPECT_NEAR(p1 + p2, 1.0, 1e-12) << a << " " << b << " " << x;
                EXPECT_NEAR(g1, g2, 1e-11 * g1) << a << " " << b << " " << x;
            }
        }
    }
}

struct FCase {
    int m;
    int n;
    double p;
    double f;
    double tol;
};

// Check values stated for the F quantile at p = 0.05, to their printed digits.
TEST(FQuantile, CheckValues) {
    const FCase cases[] = {
        {1, 1, 0.05, 161.4476, 5e-5}, {1, 10, 0.05, 4.964603, 5e-7}, {2, 2, 0.05, 19.000000, 5e-7},
        {3, 10, 0.05, 3.708260, 5e-7}, {5, 20, 0.05, 2.710884, 5e-7}, {10, 1, 0.05, 241.8817, 5e-5},
        {4, 60, 0.05, 2.525179, 5e-7},
    };
    for (const auto& c : cases)
        EXPECT_NEAR(st_FQuantile(c.m, c.n, c.p), c.f, c.tol) << "F(" << c.m << ", " << c.n << ") p " << c.p;
}

// Upper percentage points of F, Biometrika Tables for Statisticians Vol. 1,
// Table 18 (M. Merrington and C. M. Thompson, 1943), as printed: tolerance
// half a unit of the last printed digit.
TEST(FQuantile, PublishedTable) {
    const FCase cases[] = {
        {5, 1, 0.05, 230.2, 0.05},  {1, 5, 0.05, 6.61, 0.005},   {2, 10, 0.05, 4.10, 0.005},
        {10, 10, 0.05, 2.98, 0.005}, {6, 12, 0.05, 3.00, 0.005},  {8, 30, 0.05, 2.27, 0.005},
        {20, 20, 0.05, 2.12, 0.005}, {12, 120, 0.05, 1.83, 0.005}, {3, 3, 0.05, 9.28, 0.005},
        {4, 4, 0.05, 6.39, 0.005},   {2, 120, 0.05, 3.07, 0.005}, {1, 120, 0.05, 3.92, 0.005},
        {7, 15, 0.05, 2.71, 0.005},  {24, 40, 0.05, 1.79, 0.005}, {1, 1, 0.01, 4052, 0.5},
        {2, 2, 0.01, 99.00, 0.005},  {3, 10, 0.01, 6.55, 0.005},  {5, 20, 0.01, 4.10, 0.005},
        {10, 10, 0.01, 4.85, 0.005}, {4, 30, 0.01, 4.02, 0.005},  {2, 60, 0.01, 4.98, 0.005},
        {1, 10, 0.01, 10.04, 0.005}, {6, 6, 0.01, 8.47, 0.005},   {12, 12, 0.01, 4.16, 0.005},
        {1, 1, 0.10, 39.86, 0.005},  {2, 2, 0.10, 9.00, 0.005},   {5, 10, 0.10, 2.52, 0.005},
        {10, 20, 0.10, 1.94, 0.005},
    };
    for (const auto& c : cases)
        EXPECT_NEAR(st_FQuantile(c.m, c.n, c.p), c.f, c.tol + 1e-6) << "F(" << c.m << ", " << c.n << ") p " << c.p;
}

// With one df equal to 1 and the other at most 2 the quantile has a closed
// form and comes back without refinement, exact to rounding:
// F(1,1) = tan^2(pi (1 - p) / 2); F(2,1) = (1 - p^2) / (2 p^2);
// F(1,2) = 2 (1 - p)^2 / (1 - (1 - p)^2).
TEST(FQuantile, ClosedFormsWithoutRefinement) {
    for (double p : {0.1, 0.05, 0.01, 0.001}) {
        const double t = std::tan(kPi * (1.0 - p) / 2.0);
        const double f11 = t * t;
        const double f21 = (1.0 - p * p) / (2.0 * p * p);
        const double f12 = 2.0 * (1.0 - p) * (1.0 - p) / (1.0 - (1.0 - p) * (1.0 - p));
        EXPECT_NEAR(st_FQuantile(1, 1, p), f11, 1e-12 * f11) << "p " << p;
        EXPECT_NEAR(st_FQuantile(2, 1, p), f21, 1e-12 * f21) << "p " << p;
        EXPECT_NEAR(st_FQuantile(1, 2, p), f12, 1e-12 * f12) << "p " << p;
    }
}

// F(2, n) has the closed form (n/2)(p^(-2/n) - 1); these go through the
// Paulson start and the refinement, which stops on a step of 0.001 in x and
// so leaves about four significant digits in F.
TEST(FQuantile, TwoNumeratorDegreesRefined) {
    for (int n : {3, 5, 10, 40}) {
        for (double p : {0.1, 0.05, 0.01}) {
            const double exact = n / 2.0 * (std::pow(p, -2.0 / n) - 1.0);
            EXPECT_NEAR(st_FQuantile(2, n, p), exact, 2e-4 * exact) << "n " << n << " p " << p;
        }
    }
}

// t^2 with k df is F(1, k): the t path and the F path meet.
TEST(FQuantile, SquareOfStudentT) {
    for (int k : {3, 7, 25}) {
        const double t = st_TQuantile(k, 0.025);
        EXPECT_NEAR(st_FQuantile(1, k, 0.05), t * t, 1e-5 * t * t) << "k " << k;
    }
}

// The beta quantile inverts the series to the method's tolerance: a last step
// of at most 0.001 in x leaves a few units in 1e-5 in the probability.
TEST(FBetaQuantile, InvertsTheSeries) {
    for (int a : {1, 3, 8, 30}) {
        for (int b : {1, 2, 5, 17}) {
            for (double p : {0.9, 0.5, 0.05, 0.01}) {
                const double x = st_FBetaQuantile(a, b, p, 0.001);
                double prob;
                st_FUpperTail(a, b, x, &prob);
                EXPECT_NEAR(prob, p, 1e-4) << "a " << a << " b " << b << " p " << p;
            }
        }
    }
}


// P(F(m, n) > f) in closed form: for m = 2, (1 + 2f/n)^(-n/2) at any n, far
// tail and fractional n included; for n = 2, 1 - (m f / (2 + m f))^(m/2); for
// m = n = 1, 1 - (2/pi) atan(sqrt(f)).
TEST(FUpperProbability, ClosedForms) {
    const auto twoNumerator = [](double n, double f) { return std::exp(-0.5 * n * std::log1p(2 * f / n)); };
    const auto twoDenominator = [](double m, double f) { return 1 - std::pow(m * f / (2 + m * f), m / 2); };
    struct {
        double m, n, f, p;
    } const cases[] = {
        {2, 6, 203.0 / 27, twoNumerator(6, 203.0 / 27)},  {2, 10, 1e6, twoNumerator(10, 1e6)},
        {2, 2.5, 3, twoNumerator(2.5, 3)},                {2, 1e7, 5, twoNumerator(1e7, 5)},
        {2, 1e7, 1e-3, twoNumerator(1e7, 1e-3)},          {2, 40, 0.25, twoNumerator(40, 0.25)},
        {4, 2, 0.5, twoDenominator(4, 0.5)},              {7, 2, 30, twoDenominator(7, 30)},
        {1, 1, 3, 1 - 2 / kPi * std::atan(std::sqrt(3.0))},
    };
    for (const auto& c : cases)
        EXPECT_NEAR(st_FUpperProbability(c.m, c.n, c.f), c.p, 1e-12 * c.p) << c.m << " " << c.n << " " << c.f;
}

TEST(FUpperProbability, EdgesOfTheRange) {
    EXPECT_EQ(st_FUpperProbability(3, 10, 0.0), 1.0);
    EXPECT_EQ(st_FUpperProbability(3, 10, -1.0), 1.0);
    EXPECT_EQ(st_FUpperProbability(3, 10, INFINITY), 0.0);
    EXPECT_TRUE(std::isnan(st_FUpperProbability(3, 10, NAN)));
    EXPECT_TRUE(std::isnan(st_FUpperProbability(0, 10, 1.0)));
    EXPECT_TRUE(std::isnan(st_FUpperProbability(3, -1, 1.0)));
}

}  // namespace
