#include "stats/ShiftedSums.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

// 10^7 + 0.1 k for k = -2..2 has mean 10^7 and centred sum of squares
// 0.01 (4 + 1 + 0 + 1 + 4) = 0.1; the plain sums of x and x^2 (about 5 * 10^14)
// cannot hold a difference of 0.1 at all.
TEST(ShiftedSums, LargeOffset) {
    for (double offset : {0.0, 1e7, -1e9, 1e12}) {
        CShiftedSums s;
        for (int rep = 0; rep < 1000; ++rep)
            for (int k : {2, -1, 0, 1, -2}) s.Add(offset + 0.1 * k);
        // The data themselves carry the rounding of offset + 0.1 k.
        double tolerance = offset == 0.0 ? 1e-12 : std::fabs(offset) * 1e-15 * 2;
        EXPECT_NEAR(s.Mean(), offset, tolerance + 1e-12) << offset;
        EXPECT_NEAR(s.CentredSquares(), 100.0, 100.0 * (offset == 0.0 ? 1e-12 : tolerance * 20)) << offset;
        EXPECT_EQ(s.Count(), 5000);
    }
}

TEST(ShiftedSums, SmallSamples) {
    CShiftedSums one;
    one.Add(42.5);
    EXPECT_EQ(one.Mean(), 42.5);
    EXPECT_EQ(one.CentredSquares(), 0.0);
    CShiftedSums same;
    for (int i = 0; i < 7; ++i) same.Add(0.3);
    EXPECT_EQ(same.CentredSquares(), 0.0);
    // 1, 2, 3, 4: mean 2.5, centred squares 5.
    CShiftedSums four;
    for (double x : {1.0, 2.0, 3.0, 4.0}) four.Add(x);
    EXPECT_EQ(four.Mean(), 2.5);
    EXPECT_EQ(four.CentredSquares(), 5.0);
}

// A trend from the first value: the shift is far from the mean, yet the sums
// keep their digits (0, 10^7 + 0.1 k, ...).
TEST(ShiftedSums, ShiftFarFromTheMean) {
    CShiftedSums s;
    s.Add(0.0);
    long double sum = 0.0L;
    std::vector<double> xs = {0.0};
    for (int i = 0; i < 999; ++i) xs.push_back(1e7 + 0.1 * (i % 3 - 1));
    for (std::size_t i = 1; i < xs.size(); ++i) s.Add(xs[i]);
    for (double x : xs) sum += x;
    long double mean = sum / xs.size();
    long double css = 0.0L;
    for (double x : xs) css += (x - mean) * (x - mean);
    EXPECT_NEAR(s.Mean(), static_cast<double>(mean), 1e-8);
    EXPECT_NEAR(s.CentredSquares(), static_cast<double>(css), static_cast<double>(css) * 1e-12);
}

TEST(ShiftedSums, NonFiniteData) {
    CShiftedSums s;
    s.Add(INFINITY);
    s.Add(1.0);
    EXPECT_TRUE(std::isinf(s.Mean()));
    EXPECT_TRUE(std::isnan(s.CentredSquares()));
}

}  // namespace
