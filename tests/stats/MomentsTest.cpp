// The accumulator against exact arithmetic: the data are integers X scaled by
// 2^-bits (exact in a double), so the true sums are integers in 128 bits.
#include "stats/Moments.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

#include "ExactSeries.h"

namespace {

struct Exact {
    long double sum = 0, sumOfSquares = 0, mean = 0, meanFromFirst = 0, sumSqDev = 0, sumSqSteps = 0;
};

Exact ExactOf(const std::vector<std::int64_t>& xs, int bits) {
    Exact e;
    if (xs.empty()) return e;
    const long double unit = test_Ulp(bits);
    const i128 n = static_cast<i128>(xs.size());
    // The deviations d are taken about the first value, so that n * sum d^2
    // stays within 128 bits.
    i128 s = 0, s2 = 0, ds = 0, ds2 = 0, steps = 0;
    for (std::size_t i = 0; i < xs.size(); ++i) {
        const i128 x = xs[i];
        const i128 d = x - xs[0];
        s += x;
        s2 += x * x;
        ds += d;
        ds2 += d * d;
        if (i > 0) steps += (x - xs[i - 1]) * (x - xs[i - 1]);
    }
    const long double count = static_cast<long double>(xs.size());
    e.sum = static_cast<long double>(s) * unit;
    e.sumOfSquares = static_cast<long double>(s2) * unit * unit;
    e.mean = static_cast<long double>(s) / count * unit;
    e.meanFromFirst = static_cast<long double>(ds) / count * unit;
    e.sumSqDev = static_cast<long double>(n * ds2 - ds * ds) / count * unit * unit;
    e.sumSqSteps = static_cast<long double>(steps) * unit * unit;
    return e;
}

std::vector<std::int64_t> Plus(std::int64_t offset, std::vector<std::int64_t> ks, std::int64_t drift = 0) {
    for (std::size_t i = 0; i < ks.size(); ++i) ks[i] += offset + drift * static_cast<std::int64_t>(i);
    return ks;
}

::testing::AssertionResult Near(double got, long double exact, double rel) {
    const double want = static_cast<double>(exact);
    if (std::fabs(got - want) <= std::fabs(want) * rel) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << got << " against exact " << want;
}

TEST(Moments, EqualExactArithmeticOnTheStoredValues) {
    std::vector<std::int64_t> outlierFirst = Plus(5'000'000LL * 1024, test_IntNoise(50'000, 25));
    outlierFirst.insert(outlierFirst.begin(), 1'005'000'000LL * 1024);
    const struct {
        const char* name;
        std::vector<std::int64_t> xs;
        int bits;
    } cases[] = {
        // The plain sums of x and x^2 keep no digit of the spread on these two.
        {"10^9 + noise of 10^-6", Plus(1'000'000'000LL << 23, test_IntNoise(200'000, 8)), 23},
        {"10^7 + noise of 0.1", Plus(10'000'000LL * 1024, test_IntNoise(200'000, 50)), 10},
        {"first value 10^9 from the rest", outlierFirst, 10},
        {"drift", Plus(-3'000'000LL * 1024, test_IntNoise(100'000, 250), 37), 10},
        {"4 2 5 1 3", {4, 2, 5, 1, 3}, 0},
        {"constant", std::vector<std::int64_t>(1000, 987654321), 3},
        {"one value", {-15}, 1},
        {"none", {}, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const double unit = test_Ulp(c.bits);
        std::vector<double> values;
        for (std::int64_t x : c.xs) values.push_back(static_cast<double>(x) * unit);
        CMoments series, block;
        for (double x : values) series.AddInSeries(x);
        block.AddAll(values.data(), values.size());
        const Exact e = ExactOf(c.xs, c.bits);
        const long n = static_cast<long>(values.size());

        for (const CMoments* m : {&series, &block}) {
            EXPECT_EQ(m->Count(), n);
            EXPECT_TRUE(Near(m->Sum(), e.sum, 2.3e-16));
            // Rebuilt from the shifted sums in extended precision: a few units
            // in the last place when the shift is far from the mean.
            EXPECT_TRUE(Near(m->SumOfSquares(), e.sumOfSquares, 2e-15));
            EXPECT_TRUE(Near(m->Mean(), e.mean, 2.3e-16));
            EXPECT_TRUE(Near(m->SumSqDev(), e.sumSqDev, 4.5e-16));
            EXPECT_TRUE(Near(m->Variance(), n < 2 ? 0.0L : e.sumSqDev / (n - 1), 4.5e-16));
            EXPECT_EQ(m->Min(), n ? *std::min_element(values.begin(), values.end()) : 1e20);
            EXPECT_EQ(m->Max(), n ? *std::max_element(values.begin(), values.end()) : -1e20);
        }
        EXPECT_TRUE(Near(series.SumSqSteps(), e.sumSqSteps, 2.3e-16));
        if (n > 0) {
            EXPECT_TRUE(Near(series.MeanFrom(values[0]), e.meanFromFirst, 2.3e-16));
        }
    }
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

// A running minimum keeps the first of equal values: of zeros of both signs
// the first one, wherever the values fall in the lanes.
TEST(Moments, ExtremesAreThoseARunningOneKeeps) {
    for (int at : {0, 3, 4, 64, 97}) {
        for (bool negativeFirst : {false, true}) {
            std::vector<double> x(100, 1.0);
            for (std::size_t i = 0; i < x.size(); ++i) x[i] = -1.0 - static_cast<double>(i % 7);
            x[at] = x[at + 1] = 0.0;
            x[negativeFirst ? at : at + 1] = -0.0;
            std::vector<double> negated(x);
            for (double& v : negated) v = -v;  // the zeros swap sign too
            CMoments m, n;
            m.AddAll(x.data(), x.size());
            n.AddAll(negated.data(), negated.size());
            EXPECT_EQ(std::signbit(m.Max()), negativeFirst) << at;
            EXPECT_EQ(std::signbit(n.Min()), !negativeFirst) << at;
            double low = 1e20, high = -1e20;
            st_AddExtremes(x.data(), x.size(), &low, &high);
            EXPECT_EQ(std::signbit(high), negativeFirst) << at;
            EXPECT_EQ(low, -7.0);
        }
    }
}

}  // namespace
