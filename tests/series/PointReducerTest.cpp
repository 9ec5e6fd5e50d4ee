// The graph's reduction of a streamed series: short series are kept whole,
// long ones keep their extremes where they are, whatever the pieces the
// series arrives in.
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "series/PointReducer.h"

namespace {

TEST(PointReducerTest, ShortSeriesKeptWhole) {
    const std::vector<double> v = {3, 1, 4, 1, 5, 9, 2, 6};
    CPointReducer reducer(10.0);
    reducer.Add(v.data(), 3);
    reducer.Add(v.data() + 3, v.size() - 3);
    std::vector<double> xs, ys;
    reducer.Points(&xs, &ys);
    EXPECT_EQ(ys, v);
    EXPECT_EQ(xs, (std::vector<double>{10, 11, 12, 13, 14, 15, 16, 17}));
    EXPECT_EQ(reducer.Low(), 1.0);
    EXPECT_EQ(reducer.High(), 9.0);
}

TEST(PointReducerTest, LongSeriesKeepTheirExtremesInPlace) {
    // 10^5 values between 0 and 999, one spike of 5000 at index 54321 and one
    // dip of -300 at index 77777, fed in pieces of 997.
    std::vector<double> v(100000);
    for (std::size_t i = 0; i < v.size(); ++i) v[i] = static_cast<double>((i * 7919) % 1000);
    v[54321] = 5000;
    v[77777] = -300;
    CPointReducer reducer(1.0);
    for (std::size_t i = 0; i < v.size(); i += 997) reducer.Add(v.data() + i, std::min<std::size_t>(997, v.size() - i));
    std::vector<double> xs, ys;
    reducer.Points(&xs, &ys);
    EXPECT_LE(xs.size(), 2 * CPointReducer::kMaxRuns);
    EXPECT_GE(xs.size(), CPointReducer::kMaxRuns / 2);
    EXPECT_TRUE(std::is_sorted(xs.begin(), xs.end()));
    const auto spike = std::find(ys.begin(), ys.end(), 5000.0);
    const auto dip = std::find(ys.begin(), ys.end(), -300.0);
    ASSERT_NE(spike, ys.end());
    ASSERT_NE(dip, ys.end());
    EXPECT_EQ(xs[static_cast<std::size_t>(spike - ys.begin())], 54322.0);
    EXPECT_EQ(xs[static_cast<std::size_t>(dip - ys.begin())], 77778.0);
    EXPECT_EQ(reducer.Low(), -300.0);
    EXPECT_EQ(reducer.High(), 5000.0);
}

}  // namespace
