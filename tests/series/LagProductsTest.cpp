#include "series/LagProducts.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

#include "series/Fft.h"

namespace {

// The sums written out: every pair (t, t + k) once, in long double.
std::vector<long double> Reference(const std::vector<double>& y, int lags) {
    std::vector<long double> acc(static_cast<std::size_t>(lags) + 1, 0.0L);
    for (int k = 0; k <= lags; ++k)
        for (std::size_t t = 0; t + static_cast<std::size_t>(k) < y.size(); ++t)
            acc[static_cast<std::size_t>(k)] += static_cast<long double>(y[t]) * y[t + static_cast<std::size_t>(k)];
    return acc;
}

std::vector<double> Products(const std::vector<double>& y, int lags, CLagProducts::Method method, std::size_t piece) {
    CLagProducts p(lags, method);
    for (std::size_t i = 0; i < y.size(); i += piece) p.Add(y.data() + i, std::min(piece, y.size() - i));
    return p.Finish();
}

std::vector<double> Ar1(std::size_t n, double phi, unsigned seed) {
    std::mt19937_64 rng(seed);
    std::normal_distribution<double> noise(0.0, 1.0);
    std::vector<double> y(n);
    double x = 0.0;
    for (double& v : y) v = x = phi * x + noise(rng);
    double mean = 0.0;
    for (double v : y) mean += v;
    mean /= static_cast<double>(n);
    for (double& v : y) v -= mean;
    return y;
}

TEST(LagProducts, DirectKeepsTheOrderOfTheRingBuffer) {
    // Summed lag by lag in the order of t, the direct method must give the
    // same doubles as the plain loop, bit for bit.
    std::vector<double> y = Ar1(20000, 0.7, 7);
    const int lags = 37;
    std::vector<double> acc = Products(y, lags, CLagProducts::Method::Direct, 1000);
    for (int k = 1; k <= lags; ++k) {
        double s = 0.0;
        for (std::size_t t = 0; t + static_cast<std::size_t>(k) < y.size(); ++t) s += y[t + static_cast<std::size_t>(k)] * y[t];
        EXPECT_EQ(acc[static_cast<std::size_t>(k)], s) << "lag " << k;
    }
}

struct Case {
    std::size_t n;
    int lags;
    double phi;
};

class LagProductsAgree : public ::testing::TestWithParam<Case> {};

// Both methods against the written sums: within 1e-9 of the sum of squares at
// every lag, and within 1e-9 of their own size where that is not tiny.
TEST_P(LagProductsAgree, BothMethodsMatchTheSums) {
    const Case c = GetParam();
    std::vector<double> y = Ar1(c.n, c.phi, static_cast<unsigned>(c.n + static_cast<std::size_t>(c.lags)));
    std::vector<long double> ref = Reference(y, c.lags);
    for (auto method : {CLagProducts::Method::Direct, CLagProducts::Method::Fft}) {
        std::vector<double> acc = Products(y, c.lags, method, 777);
        for (int k = 1; k <= c.lags; ++k) {
            long double r = ref[static_cast<std::size_t>(k)];
            long double err = std::fabs(acc[static_cast<std::size_t>(k)] - r);
            EXPECT_LE(err, 1e-9L * ref[0]) << "lag " << k;
            if (std::fabs(r) > 1e-3L * ref[0]) {
                EXPECT_LE(err, 1e-9L * std::fabs(r)) << "lag " << k;
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Series, LagProductsAgree,
                         ::testing::Values(Case{2, 1, 0.0}, Case{65, 64, 0.5}, Case{129, 64, 0.5},
                                           Case{1000, 1, 0.9}, Case{5000, 300, 0.0}, Case{40000, 999, 0.95},
                                           Case{12345, 4097, 0.3}));

TEST(Fft, TransformsKnownSequences) {
    // The transform of a unit impulse is flat; of a shifted impulse, a pure
    // phase; the inverse (without 1/n) gives n times the input back.
    CFft fft(8);
    std::vector<double> re(8, 0.0), im(8, 0.0);
    re[1] = 1.0;
    fft.Forward(re.data(), im.data());
    for (int f = 0; f < 8; ++f) {
        EXPECT_NEAR(re[static_cast<std::size_t>(f)], std::cos(-2 * M_PI * f / 8), 1e-15);
        EXPECT_NEAR(im[static_cast<std::size_t>(f)], std::sin(-2 * M_PI * f / 8), 1e-15);
    }
    fft.Inverse(re.data(), im.data());
    for (int t = 0; t < 8; ++t) {
        EXPECT_NEAR(re[static_cast<std::size_t>(t)], t == 1 ? 8.0 : 0.0, 1e-14);
        EXPECT_NEAR(im[static_cast<std::size_t>(t)], 0.0, 1e-14);
    }
}

}  // namespace

namespace {

TEST(LagProducts, MethodFollowsTheWork) {
    using M = CLagProducts::Method;
    // 10^7 observations: a handful of lags is cheapest summed directly, 9999
    // lags (10^11 products) only by the transform.
    EXPECT_EQ(CLagProducts::Choose(10, 10'000'000), M::Direct);
    EXPECT_EQ(CLagProducts::Choose(20, 10'000'000), M::Direct);
    EXPECT_EQ(CLagProducts::Choose(200, 10'000'000), M::Fft);
    EXPECT_EQ(CLagProducts::Choose(9999, 10'000'000), M::Fft);
    EXPECT_EQ(CLagProducts::Choose(9999, 20'000), M::Fft);
    // Small work stays direct whatever the lags.
    EXPECT_EQ(CLagProducts::Choose(500, 20'000), M::Direct);
}

}  // namespace
