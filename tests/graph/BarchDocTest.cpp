// The bar chart's bars: replication means against hand calculation under the
// tally, step and linear rules, and a dense chart drawn as a bar per column.
#include <gtest/gtest.h>

#include <cmath>

#include "TestFiles.h"
#include "framework/RecordingDC.h"
#include "graph/BarchDlg.h"
#include "graph/BarchDoc.h"
#include "graph/BarchartView.h"

namespace {

// Three replications, the second empty: (0, 2) (1, 4) (3, 1) | | (2, 5) (6, 1).
const std::vector<std::vector<Rec>> kReps = {{{0, 2}, {1, 4}, {3, 1}}, {}, {{2, 5}, {6, 1}}};

struct MeanCase {
    int kind;
    const char* reps;
    const char* from;
    std::vector<std::pair<int, double>> bars;  // replication, mean
};

TEST(BarchDoc, ReplicationMeansEqualHandCalculation) {
    const MeanCase cases[] = {
        // Tally: plain means, (2 + 4 + 1) / 3 and (5 + 1) / 2.
        {3, "All", "", {{1, 7.0 / 3}, {3, 3.0}}},
        // DSTAT, step: (1 * 2 + 2 * 4) / 3 and 4 * 5 / 4.
        {1, "All", "", {{1, 10.0 / 3}, {3, 5.0}}},
        // CSTAT, linear: (1 * (2 + 4) / 2 + 2 * (4 + 1) / 2) / 3 and 4 * (5 + 1) / 2 / 4.
        {2, "Lumped", "", {{1, 8.0 / 3}, {3, 3.0}}},
        // Counter, step, one replication.
        {6, "3", "", {{3, 5.0}}},
        // DSTAT from time 1: (1, 4) (3, 1) give 2 * 4 / 2; (2, 5) (6, 1) as before.
        {1, "All", "1", {{1, 4.0}, {3, 5.0}}},
    };
    TempDir dir;
    for (const MeanCase& c : cases) {
        SCOPED_TRACE(testing::Message() << "kind " << c.kind << " reps " << c.reps << " from " << c.from);
        const std::string path = dir.Path("k" + std::to_string(c.kind) + ".dat");
        test_WriteDataFile(path, {.kind = c.kind}, test_Replications(kReps));
        CBarchDlg dlg;
        dlg.m_strFile = path;
        dlg.m_strReps = c.reps;
        dlg.m_strBeginTime = c.from;
        dlg.m_nBars = BARS_REPLICATIONS;
        ASSERT_EQ(dlg.Validate(nullptr), 0);
        CBarchDoc doc;
        ASSERT_EQ(doc.InitFromDialog(dlg), 0);
        const BarchResults& r = doc.Results();
        EXPECT_EQ(r.bars, BARS_REPLICATIONS);
        ASSERT_EQ(r.bar.size(), c.bars.size());
        double sum = 0.0;
        for (std::size_t i = 0; i < c.bars.size(); ++i) {
            EXPECT_EQ(r.bar[i].replication, c.bars[i].first);
            EXPECT_NEAR(r.bar[i].high, c.bars[i].second, 1e-12);
            sum += c.bars[i].second;
        }
        EXPECT_NEAR(r.meanOfBars, sum / c.bars.size(), 1e-12);
    }
}

TEST(BarchDoc, DenseObservationsDrawOneBarPerColumn) {
    TempDir dir;
    std::vector<Rec> obs;
    for (int i = 0; i < 200000; ++i) obs.push_back({i * 0.5, static_cast<double>(i % 7)});
    const std::string path = dir.Path("dense.dat");
    test_WriteDataFile(path, {}, test_Replications({obs}));
    CBarchDlg dlg;
    dlg.m_strFile = path;
    ASSERT_EQ(dlg.Validate(nullptr), 0);
    CBarchDoc doc;
    ASSERT_EQ(doc.InitFromDialog(dlg), 0);
    const BarchResults& r = doc.Results();
    EXPECT_EQ(r.bars, BARS_OBSERVATIONS);
    EXPECT_EQ(r.observations, 200000);
    EXPECT_TRUE(r.reduced);
    ASSERT_LE(r.bar.size(), static_cast<std::size_t>(CBarchDoc::kColumns));
    // Every column holds about 49 observations: all seven values.
    for (const BarchBar& b : r.bar) {
        EXPECT_EQ(b.low, 0.0);
        EXPECT_EQ(b.high, 6.0);
    }

    CBarchartView view;
    view.SetDocument(&doc);
    view.SetClientRect(CRect{0, 0, 800, 600});
    CRecordingDC dc;
    view.OnDraw(dc);
    // The frame is one rectangle; the bars at most one per pixel column.
    const auto rects = dc.Rects();
    EXPECT_GT(rects.size(), 100u);
    EXPECT_LE(rects.size(), 800u);
}

}  // namespace
