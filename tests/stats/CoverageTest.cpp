// Coverage on independent normal data: over 600 samples of 20 observations
// each, a 95% interval must contain the true value about 95% of the time.
// With 600 samples the binomial standard deviation is 0.0089, so the
// accepted band of 0.92 to 0.98 is more than three standard deviations wide.
// The standardized time series interval with batches of two is exactly
// Student t with 2b - 1 degrees of freedom on such data, so it is held to
// the same band.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "TestFiles.h"
#include "datafile/FileGlobals.h"
#include "series/StdInDlg.h"
#include "series/StdIntrvlDoc.h"
#include "stats/IntervalDialogs.h"
#include "stats/IntrvlDlg.h"
#include "stats/IntrvlDoc.h"
#include "stats/SdIntDoc.h"

namespace {

constexpr double kMean = 50.0;
constexpr double kSigma = 4.0;
constexpr int kSamples = 600;
constexpr int kSize = 20;

// Box-Muller over a generator whose output the standard fixes, so the data
// are the same everywhere.
std::vector<std::vector<double>> NormalSamples() {
    std::mt19937_64 rng(20240601);
    auto uniform = [&rng] { return (static_cast<double>(rng() >> 11) + 0.5) / 9007199254740992.0; };
    std::vector<std::vector<double>> reps(kSamples);
    for (auto& rep : reps) {
        while (rep.size() < kSize) {
            const double r = std::sqrt(-2.0 * std::log(uniform()));
            const double angle = 6.283185307179586 * uniform();
            rep.push_back(kMean + kSigma * r * std::cos(angle));
            rep.push_back(kMean + kSigma * r * std::sin(angle));
        }
    }
    return reps;
}

class CoverageTest : public ::testing::Test {
protected:
    void SetUp() override { path = dir.WriteReps("normal.dat", KIND_TALLY, NormalSamples()); }

    // The share of the samples whose interval holds the truth lies in the band.
    template <class Dlg, class Doc>
    void ExpectCoverage(double truth) {
        Doc doc;
        ASSERT_EQ(test_RunIntervals<Dlg>(doc, {{path, "All", ""}}, "95"), 0);
        ASSERT_EQ(doc.Results().rows.size(), static_cast<std::size_t>(kSamples));
        int covered = 0;
        for (const IntervalRow& row : doc.Results().rows) covered += row.lower <= truth && truth <= row.upper;
        RecordProperty("covered", covered);
        EXPECT_GT(covered, 0.92 * kSamples);
        EXPECT_LT(covered, 0.98 * kSamples);
    }

    TempDir dir;
    std::string path;
};

TEST_F(CoverageTest, MeanInterval) { ExpectCoverage<CIntrvlDlg, CIntrvlDoc>(kMean); }

TEST_F(CoverageTest, StandardDeviationInterval) { ExpectCoverage<CSdIntDlg, CSdIntDoc>(kSigma); }

TEST_F(CoverageTest, StandardizedTimeSeriesInterval) { ExpectCoverage<CStdInDlg, CStdIntrvlDoc>(kMean); }

}  // namespace
