// Moving averages against numpy's convolution, Welch's series across
// replications of unequal length, forecast errors by hand, and MSER-5 on a
// constructed transient against a direct evaluation of its formula.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>

#include "TestFiles.h"
#include "datafile/FileGlobals.h"
#include "series/MoveDlg.h"
#include "series/MoveDoc.h"
#include "series/MovingAverage.h"
#include "series/Mser.h"

namespace {

// Twelve significant digits.
void ExpectClose(const std::vector<double>& actual, const std::vector<double>& expected) {
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < actual.size(); ++i)
        EXPECT_NEAR(actual[i], expected[i], 1e-12 * std::fabs(expected[i])) << "value " << i;
}

const std::vector<double> kSeries = {3.1, 4.7, 2.2, 8.9, 5.5, 7.0, 1.3, 6.6, 2.9,
                                     4.4, 7.2, 2.5, 3.3, 9.1, 6.0, 4.8, 1.1, 2.2};

TEST(MovingAverageTest, AgainstConvolution) {
    // numpy 1.24, w = 3: the start [y[:2*i-1].mean() for i in 1..3], then
    // np.convolve(y, np.ones(7) / 7, mode='valid'); trailing
    // np.convolve(y, np.ones(3) / 3, mode='valid').
    struct Case {
        MoveMethod method;
        std::vector<double> expected;
    };
    const Case cases[] = {
        {MOVE_CENTRED,
         {3.1, 3.3333333333333335, 4.88, 4.671428571428572, 5.171428571428572, 4.914285714285715, 5.2285714285714295,
          4.985714285714286, 4.557142857142856, 4.0285714285714285, 5.142857142857142, 5.057142857142856,
          5.328571428571428, 4.857142857142857, 4.142857142857142}},
        {MOVE_TRAILING,
         {3.333333333333333, 5.266666666666667, 5.533333333333333, 7.133333333333333, 4.6, 4.966666666666667,
          3.5999999999999996, 4.633333333333333, 4.833333333333334, 4.7, 4.333333333333333, 4.966666666666667,
          6.133333333333333, 6.633333333333333, 3.9666666666666663, 2.7}},
    };
    for (const Case& c : cases) ExpectClose(move_Smooth(kSeries, 3, c.method), c.expected);
    // A window as long as the series leaves nothing to smooth.
    EXPECT_TRUE(move_Smooth({1.0, 2.0}, 2, MOVE_CENTRED).empty());
}

TEST(MovingAverageTest, ForecastErrors) {
    // y = 1 2 3 4 6, w = 2: M = 1.5 2.5 3.5 5; errors 1.5 1.5 2.5. MAD 5.5/3,
    // MSE 10.75/3, MAPE 100 (1.5/3 + 1.5/4 + 2.5/6) / 3 = 43.0556.
    const std::vector<double> y = {1, 2, 3, 4, 6};
    const std::vector<double> m = move_Smooth(y, 2, MOVE_TRAILING);
    ForecastErrors e = move_ForecastErrors(y, m, 2);
    EXPECT_EQ(m.back(), 5.0);
    EXPECT_EQ(e.count, 3);
    EXPECT_NEAR(e.mad, 5.5 / 3, 1e-14);
    EXPECT_NEAR(e.mse, 10.75 / 3, 1e-14);
    EXPECT_NEAR(e.mape, 100.0 * (0.5 + 0.375 + 2.5 / 6) / 3, 1e-12);
    // An actual value of 0 leaves the percentage error out.
    const std::vector<double> z = {1, 2, 0, 4};
    EXPECT_TRUE(std::isnan(move_ForecastErrors(z, move_Smooth(z, 2, MOVE_TRAILING), 2).mape));
}

TEST(MovingAverageTest, WelchSeriesUsesTheShortestReplication) {
    // Five replications of 6, 5, 7, 5 and 8 observations: numpy's mean of the
    // first five of each is 3.26 5.1 3.94 6.46 5.48; w = 1 centred smooths the
    // first four: 3.26, then the means of three.
    const std::vector<std::vector<double>> reps = {{3.1, 4.7, 2.2, 8.9, 5.5, 7.0},
                                                   {1.3, 6.6, 2.9, 4.4, 7.2},
                                                   {2.5, 3.3, 9.1, 6.0, 4.8, 1.1, 2.2},
                                                   {5.0, 2.7, 3.9, 7.7, 6.1},
                                                   {4.4, 8.2, 1.6, 5.3, 3.8, 9.9, 0.4, 2.0}};
    std::vector<std::vector<Rec>> recs;
    for (const auto& r : reps) {
        recs.emplace_back();
        for (double v : r) recs.back().push_back({static_cast<double>(recs.back().size()), v});
    }
    TempDir dir;
    test_WriteDataFile(dir.Path("w.dat"), {}, test_Replications(recs));
    CMoveDlg dlg;
    dlg.m_strFile = dir.Path("w.dat");
    dlg.m_strReps = "All";
    dlg.m_nWindow = 1;
    dlg.m_bWarmup = false;
    CMoveDoc doc;
    ASSERT_EQ(doc.InitFromDialog(dlg), 0);
    const MoveResults& r = doc.Results();
    EXPECT_EQ(r.reps, 5);
    EXPECT_EQ(r.n, 5);
    const double welch[] = {3.2600000000000002, 5.1, 3.94, 6.459999999999999, 5.48};
    ExpectClose(r.smoothed, {welch[0], (welch[0] + welch[1] + welch[2]) / 3, (welch[1] + welch[2] + welch[3]) / 3,
                             (welch[2] + welch[3] + welch[4]) / 3});
}

// A linear transient from 10 down over 100 observations, then 900 of
// uniform noise on (-0.5, 0.5) from the generator x = 1664525 x + 1013904223
// mod 2^32, seed 12345.
std::vector<double> Transient() {
    std::vector<double> y;
    for (int i = 0; i < 100; ++i) y.push_back(10.0 * (1.0 - i / 100.0));
    std::uint32_t x = 12345;
    for (int i = 0; i < 900; ++i) {
        x = 1664525u * x + 1013904223u;
        y.push_back(x / 4294967296.0 - 0.5);
    }
    return y;
}

TEST(MserTest, FindsAConstructedTransient) {
    // Direct evaluation in numpy: Z = y.reshape(200, 5).mean(axis=1),
    // curve[d] = ((Z[d:] - Z[d:].mean())**2).sum() / (200 - d)**2; its
    // argmin is d = 20, the 100 observations of the transient.
    MserResult r = mser_Five(Transient());
    EXPECT_EQ(r.batches, 200);
    EXPECT_EQ(r.bestD, 20);
    EXPECT_EQ(r.truncation, 100);
    ASSERT_EQ(r.curve.size(), 101u);
    struct Point {
        int d;
        double value;
    };
    const Point points[] = {{0, 0.015629897173655403},
                            {10, 0.002324798198027624},
                            {20, 7.243068790342697e-05},
                            {100, 0.00014047232848974633}};
    for (const Point& p : points) EXPECT_NEAR(r.curve[static_cast<std::size_t>(p.d)], p.value, 1e-12 * p.value);
    // Fewer than two batches give no suggestion.
    EXPECT_EQ(mser_Five(std::vector<double>(9, 1.0)).truncation, -1);
}

}  // namespace
