// The Batch/Truncate summary, compared whole with texts written by hand from
// the line formats: title right-aligned in 50, labels right-aligned in 45 and
// followed by " :", values after a blank (text left in 40, whole numbers right
// in 11, reals with 4 significant digits right in 11), test lines left in 80.
#include "series/FiltrView.h"

#include <gtest/gtest.h>

#include "datafile/FileGlobals.h"
#include "series/FiltrFiles.h"

namespace {

namespace fs = std::filesystem;
using filtr_test::RunBatch;
using filtr_test::WriteDataFile;

std::string Pad(int n) { return std::string(static_cast<std::size_t>(n), ' '); }

// Joins the pieces of an expected text.
std::string Cat(std::initializer_list<std::string> pieces) {
    std::string text;
    for (const std::string& p : pieces) text += p;
    return text;
}

class FiltrSummary : public ::testing::Test {
protected:
    // Relative output names, as a user types them, resolve in the scratch folder.
    void SetUp() override {
        m_old = fs::current_path();
        fs::current_path(m_dir.Dir());
    }
    void TearDown() override { fs::current_path(m_old); }
    std::string Report(CFiltrDoc& doc) {
        CFiltrView view;
        view.SetDocument(&doc);
        return txt_ReportText(view);
    }
    TempDir m_dir;
    filtr_test::ScopedPrecision m_precision{1};
    fs::path m_old;
};

TEST_F(FiltrSummary, ByObservationsWithTitleFileAndTest) {
    // Values 1..8 in batches of one: estimate 11/12 = 0.916666..., printed
    // 0.9167; z = 2.97 prints the one-sided rejection. Text lengths, counted:
    // "Batch/Truncate Summary" 22, "Eight batches" 13,
    // "Batched observations stored in file" 35, "eight.flt" 9,
    // "Initial Observations Truncated" 30, "Number of Batches" 17,
    // "Number of Observations Per Batch" 32, "Trailing Time Truncated" 23,
    // "Number of Trailing Obs'ns Truncated" 35,
    // "Estimate of Covariance Between Batches" 38, the rejection line 72.
    std::vector<filtr_test::Pair> recs;
    for (int i = 1; i <= 8; ++i) recs.push_back({static_cast<double>(i), static_cast<double>(i)});
    recs.push_back({-1, -1});
    WriteDataFile("eight.dat", KIND_TALLY, recs);
    CFiltrDoc doc;
    ASSERT_EQ(RunBatch(doc, {"eight.dat", "", "", "", "Observation", "1", "eight.flt", "Eight batches"}), 0);
    const std::string expected = Cat({
        Pad(28), "Batch/Truncate Summary\n",
        Pad(37), "Eight batches\n",
        "\n",
        Pad(10), "Batched observations stored in file : eight.flt", Pad(31), "\n",
        "\n",
        Pad(15), "Initial Observations Truncated : ", Pad(10), "0\n",
        Pad(28), "Number of Batches : ", Pad(10), "8\n",
        Pad(13), "Number of Observations Per Batch : ", Pad(10), "1\n",
        Pad(22), "Trailing Time Truncated : ", Pad(10), "0\n",
        Pad(10), "Number of Trailing Obs'ns Truncated : ", Pad(10), "0\n",
        Pad(7), "Estimate of Covariance Between Batches : ", Pad(5), "0.9167\n",
        "\n",
        "Covariance equal to 0 rejected in favor of Covariance > 0 at 0.05 level.", Pad(8), "\n",
    });
    EXPECT_EQ(Report(doc), expected);
}

TEST_F(FiltrSummary, ByTimeWithoutTitle) {
    // The step file of the zero-truncation case: two batches of 2 time units,
    // 2 trailing, estimate 0. "Initial Time Truncated" 22, "Time Spanned Per
    // Batch" 22 characters; "q.flt" 5.
    WriteDataFile("q.dat", KIND_DSTAT, {{0, 9}, {0, 5}, {1, 2}, {3, 4}, {4, 0}, {6, 1}, {-1, -1}});
    CFiltrDoc doc;
    ASSERT_EQ(RunBatch(doc, {"q.dat", "", "", "", "Time", "2", "q.flt"}), 0);
    const std::string expected = Cat({
        Pad(28), "Batch/Truncate Summary\n",
        "\n",
        Pad(10), "Batched observations stored in file : q.flt", Pad(35), "\n",
        "\n",
        Pad(23), "Initial Time Truncated : ", Pad(10), "0\n",
        Pad(28), "Number of Batches : ", Pad(10), "2\n",
        Pad(23), "Time Spanned Per Batch : ", Pad(10), "2\n",
        Pad(22), "Trailing Time Truncated : ", Pad(10), "2\n",
        Pad(7), "Estimate of Covariance Between Batches : ", Pad(10), "0\n",
        "\n",
    });
    EXPECT_EQ(Report(doc), expected);
}

TEST_F(FiltrSummary, NothingStoredShowsTheInitialValues) {
    // The data end before time 5: every result keeps its initial value; the
    // trailing lines are left out because they are still -1.
    WriteDataFile("s.dat", KIND_CSTAT, {{0, 1}, {1, 2}, {-1, -1}});
    CFiltrDoc doc;
    ASSERT_EQ(RunBatch(doc, {"s.dat", "", "", "5", "Time", "1.5"}), 0);
    const std::string expected = Cat({
        Pad(28), "Batch/Truncate Summary\n",
        "\n",
        Pad(23), "Initial Time Truncated : ", Pad(9), "-1\n",
        Pad(28), "Number of Batches : ", Pad(9), "-1\n",
        Pad(23), "Time Spanned Per Batch : ", Pad(9), "-1\n",
        Pad(7), "Estimate of Covariance Between Batches : ", Pad(9), "-1\n",
        "\n",
    });
    EXPECT_EQ(Report(doc), expected);
}

TEST_F(FiltrSummary, NoBatchingShowsOnlyTheTruncation) {
    WriteDataFile("n.dat", KIND_TALLY, {{1, 1}, {2, 2}, {3, 3}, {-1, -1}});
    CFiltrDoc doc;
    ASSERT_EQ(RunBatch(doc, {"n.dat", "", "", "2"}), 0);
    EXPECT_EQ(Report(doc), Cat({Pad(28), "Batch/Truncate Summary\n\n", Pad(15), "Initial Observations Truncated : ",
                                Pad(10), "2\n"}));
}

}  // namespace
