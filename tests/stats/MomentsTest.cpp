// The accumulator against exact references: the test data are binary
// fractions k / 1024 on a large offset, so every value is exact in a double
// and the true sums are exact integers (in 128 bits) scaled by 1024.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <vector>

#include "stats/Moments.h"

namespace {

using i128 = __int128;

struct Exact {
    long double mean;
    long double sumSqDev;
};

// Values are X / 1024 for the integers X.
Exact ExactMoments(const std::vector<std::int64_t>& xs) {
    i128 s = 0, s2 = 0;
    for (std::int64_t x : xs) {
        s += x;
        s2 += static_cast<i128>(x) * x;
    }
    const i128 n = static_cast<i128>(xs.size());
    const i128 numerator = n * s2 - s * s;  // n^2 * 1024^2 * sum of squared deviations
    return {static_cast<long double>(s) / (1024.0L * xs.size()),
            static_cast<long double>(numerator) / (static_cast<long double>(n) * 1048576.0L)};
}

CMoments Accumulate(const std::vector<std::int64_t>& xs) {
    CMoments m;
    for (std::int64_t x : xs) m.Add(static_cast<double>(x) / 1024.0);
    return m;
}

// A small deterministic generator, so the noise is the same on every machine.
std::vector<std::int64_t> OffsetNoise(std::int64_t offset, int n, int spread, std::int64_t drift = 0) {
    std::vector<std::int64_t> xs;
    std::uint64_t state = 88172645463325252ULL;
    for (int i = 0; i < n; ++i) {
        state ^= state << 13;
        state ^= state >> 7;
        state ^= state << 17;
        xs.push_back(offset + drift * i + static_cast<std::int64_t>(state % (2 * spread + 1)) - spread);
    }
    return xs;
}

void ExpectMatches(const std::vector<std::int64_t>& xs, double relTolerance) {
    const Exact e = ExactMoments(xs);
    const CMoments m = Accumulate(xs);
    EXPECT_EQ(m.Count(), static_cast<long>(xs.size()));
    EXPECT_NEAR(m.Mean(), static_cast<double>(e.mean), std::fabs(static_cast<double>(e.mean)) * 2.3e-16);
    EXPECT_NEAR(m.SumSqDev(), static_cast<double>(e.sumSqDev), static_cast<double>(e.sumSqDev) * relTolerance);
    const long double variance = e.sumSqDev / (xs.size() - 1);
    EXPECT_NEAR(m.Variance(), static_cast<double>(variance), static_cast<double>(variance) * relTolerance);
}

TEST(Moments, LargeOffsetWithSmallNoiseKeepsDigits) {
    // 10^7 plus noise of about +-0.1 (k / 1024 with |k| <= 100).
    const std::vector<std::int64_t> xs = OffsetNoise(10'000'000LL * 1024, 200'000, 100);
    ExpectMatches(xs, 1e-12);

    // The data are hard: the textbook formula in double precision has no
    // correct digit left here.
    double s = 0, s2 = 0;
    for (std::int64_t x : xs) {
        const double v = static_cast<double>(x) / 1024.0;
        s += v;
        s2 += v * v;
    }
    const double n = static_cast<double>(xs.size());
    const double naive = s2 - s * s / n;
    const double exact = static_cast<double>(ExactMoments(xs).sumSqDev);
    EXPECT_GT(std::fabs(naive - exact), 0.1 * exact);
}

TEST(Moments, FirstValueFarFromTheRest) {
    // The reference value is an outlier 10^9 away from a noisy cluster.
    std::vector<std::int64_t> xs = OffsetNoise(5'000'000LL * 1024, 50'000, 100);
    xs.insert(xs.begin(), 1'005'000'000LL * 1024);
    ExpectMatches(xs, 1e-9);
}

TEST(Moments, DriftingSeries) {
    ExpectMatches(OffsetNoise(-3'000'000LL * 1024, 100'000, 500, 37), 1e-12);
}

TEST(Moments, SmallSamples) {
    CMoments empty;
    EXPECT_EQ(empty.Count(), 0);
    EXPECT_EQ(empty.Mean(), 0.0);
    EXPECT_EQ(empty.Variance(), 0.0);
    EXPECT_EQ(empty.SumSqDev(), 0.0);
    EXPECT_EQ(empty.Min(), 1e20);
    EXPECT_EQ(empty.Max(), -1e20);

    CMoments one;
    one.Add(-7.5);
    EXPECT_EQ(one.Mean(), -7.5);
    EXPECT_EQ(one.Variance(), 0.0);
    EXPECT_EQ(one.Sum(), -7.5);
    EXPECT_EQ(one.SumOfSquares(), 56.25);
    EXPECT_EQ(one.Min(), -7.5);
    EXPECT_EQ(one.Max(), -7.5);

    // 1..5: mean 3, squared deviations 4 + 1 + 0 + 1 + 4 = 10, variance 2.5.
    CMoments five;
    for (double x : {4.0, 2.0, 5.0, 1.0, 3.0}) five.Add(x);
    EXPECT_EQ(five.Sum(), 15.0);
    EXPECT_EQ(five.SumOfSquares(), 55.0);
    EXPECT_EQ(five.Mean(), 3.0);
    EXPECT_EQ(five.SumSqDev(), 10.0);
    EXPECT_EQ(five.Variance(), 2.5);
    EXPECT_EQ(five.Min(), 1.0);
    EXPECT_EQ(five.Max(), 5.0);

    five.Reset();
    EXPECT_EQ(five.Count(), 0);
    EXPECT_EQ(five.Max(), -1e20);
}

TEST(Moments, InfiniteDataGiveWhatThePlainSumsGive) {
    // Plain sums: sum = inf, so mean = inf; sum of squares - mean * n * mean
    // = inf - inf = NaN.
    CMoments later, first;
    for (double x : {1.0, HUGE_VAL, 3.0}) later.Add(x);
    for (double x : {HUGE_VAL, 1.0, 3.0}) first.Add(x);
    for (const CMoments* m : {&later, &first}) {
        EXPECT_EQ(m->Mean(), HUGE_VAL);
        EXPECT_EQ(m->Sum(), HUGE_VAL);
        EXPECT_TRUE(std::isnan(m->SumSqDev()));
        EXPECT_TRUE(std::isnan(m->Variance()));
        EXPECT_EQ(m->Max(), HUGE_VAL);
        EXPECT_EQ(m->Min(), 1.0);
    }
    CMoments both;
    for (double x : {1.0, HUGE_VAL, -HUGE_VAL}) both.Add(x);
    EXPECT_TRUE(std::isnan(both.Mean()));
}

TEST(Moments, ConstantSeriesHasNoSpread) {
    CMoments m;
    for (int i = 0; i < 1000; ++i) m.Add(123456789.123);
    EXPECT_EQ(m.SumSqDev(), 0.0);
    EXPECT_EQ(m.Variance(), 0.0);
    EXPECT_EQ(m.Mean(), 123456789.123);
}

}  // namespace
