// The plot's curves and legend, drawn from a document loaded from small files.
#include <gtest/gtest.h>

#include "GraphTestUtil.h"
#include "TestFiles.h"
#include "datafile/FileGlobals.h"
#include "framework/Messages.h"
#include "graph/PlotDlg.h"
#include "graph/PlotDoc.h"
#include "graph/PlotView.h"

namespace {

TEST(PlotAttributes, TwentyColoursAndFiveStylesRepeat) {
    EXPECT_EQ(plot_Colour(0), RGB(255, 0, 0));
    EXPECT_EQ(plot_Colour(5), RGB(255, 128, 0));
    EXPECT_EQ(plot_Colour(19), RGB(0, 128, 255));
    EXPECT_EQ(plot_Colour(20), plot_Colour(0));  // the 21st file
    EXPECT_EQ(plot_PenStyle(0), PS_SOLID);
    EXPECT_EQ(plot_PenStyle(4), PS_DASHDOTDOT);
    EXPECT_EQ(plot_PenStyle(5), PS_SOLID);  // the sixth file: solid again, sixth colour
}

TEST(PlotAttributes, TreatmentTexts) {
    EXPECT_EQ(plot_TreatmentText(REP_LUMPED), "lumped");
    EXPECT_EQ(plot_TreatmentText(REP_ALL), "all");
    EXPECT_EQ(plot_TreatmentText(3), "3");
    EXPECT_EQ(plot_TreatmentText(12), "12");
    EXPECT_EQ(plot_TreatmentText(150), " 150");
    EXPECT_EQ(plot_TreatmentText(12345), "12345");
}

class PlotViewTest : public ::testing::Test {
protected:
    void SetUp() override {
        a = dir.Path("a.dat");
        b = dir.Path("b.dat");
        // a: 0..10 by 1 with value = time; b: a flat line at 5, two replications.
        std::vector<Rec> ra;
        for (int i = 0; i <= 10; ++i) ra.push_back({double(i), double(i)});
        test_WriteDataFile(a, HeaderFields{}, test_Replications({ra}));
        test_WriteDataFile(b, HeaderFields{}, test_Replications({{{0, 5}, {10, 5}}, {{0, 1}, {10, 1}}}));
    }
    TempDir dir;
    std::string a, b;
};

TEST_F(PlotViewTest, CurvesInTheirPensOverTheFrame) {
    CPlotDlg dlg;
    dlg.AddFile(a, "");
    dlg.AddFile(b, "Lumped");
    ASSERT_EQ(dlg.Validate(nullptr), 0);
    CPlotDoc doc;
    ASSERT_EQ(doc.InitFromDialog(dlg), 0);
    // Bounds from both files: times 0..10, values 0..10.
    EXPECT_EQ(doc.XMin(), 0.0);
    EXPECT_EQ(doc.XMax(), 10.0);
    EXPECT_EQ(doc.YMin(), 0.0);
    EXPECT_EQ(doc.YMax(), 10.0);
    ASSERT_EQ(doc.m_entries.size(), 2u);
    EXPECT_EQ(doc.m_entries[1].m_nPoints, 4);

    CPlotView view;
    view.SetDocument(&doc);
    view.SetClientRect(CRect{0, 0, 800, 600});
    CRecordingDC dc;
    view.OnDraw(dc);
    int red = 0, green = 0;
    for (const DrawOp& op : dc.Lines()) {
        if (op.pen.color == RGB(255, 0, 0)) {
            ++red;
            EXPECT_EQ(op.pen.style, PS_SOLID);
        }
        if (op.pen.color == RGB(0, 255, 0)) {
            ++green;
            EXPECT_EQ(op.pen.style, PS_DASH);
        }
    }
    EXPECT_EQ(red, 10);   // 11 points joined
    EXPECT_EQ(green, 3);  // lumped: both replications joined
    // The red curve runs from the lower left to the upper right corner of the plot.
    std::vector<DrawOp> lines = dc.Lines();
    auto first = std::find_if(lines.begin(), lines.end(), [](const DrawOp& op) { return op.pen.color == RGB(255, 0, 0); });
    EXPECT_EQ(first->from.x, 50);
    EXPECT_EQ(first->from.y, 550);
    EXPECT_EQ(first->to.x, 120);
    EXPECT_EQ(first->to.y, 500);
}

TEST_F(PlotViewTest, ANarrowWindowSaysItIsTooSmall) {
    CPlotDlg dlg;
    dlg.AddFile(a, "");
    ASSERT_EQ(dlg.Validate(nullptr), 0);
    CPlotDoc doc;
    ASSERT_EQ(doc.InitFromDialog(dlg), 0);
    CPlotView plot;
    plot.SetDocument(&doc);
    plot.SetClientRect(CRect{0, 0, 200, 300});  // plot width 100
    CRecordingDC dc;
    plot.OnDraw(dc);
    ASSERT_EQ(dc.Texts().size(), 1u);
    EXPECT_EQ(dc.Texts()[0].text, "Window too small to graph");
    EXPECT_EQ(dc.Texts()[0].from.x, 10);
    EXPECT_EQ(dc.Texts()[0].from.y, 0);
    // A base view of the same size draws: 100 is enough for the common limit of 61.
    CBaseView base;
    base.SetClientRect(CRect{0, 0, 200, 300});
    dc.Clear();
    base.OnDraw(dc);
    EXPECT_TRUE(dc.Texts().empty());
}

TEST_F(PlotViewTest, LegendNamesEachFileAndTreatment) {
    CPlotDlg dlg;
    dlg.AddFile(a, "");
    dlg.AddFile(b, "All");
    dlg.AddFile(b, "2");
    ASSERT_EQ(dlg.Validate(nullptr), 0);
    CPlotDoc doc;
    ASSERT_EQ(doc.InitFromDialog(dlg), 0);
    CPlotLegendView legend;
    legend.SetDocument(&doc);
    legend.SetClientRect(CRect{0, 0, 400, 150});  // one column
    CRecordingDC dc;
    legend.OnDraw(dc);
    std::vector<DrawOp> texts = dc.Texts();
    ASSERT_EQ(texts.size(), 4u);
    EXPECT_EQ(texts[0].text, "Plot Legend ~ Filename (Replication Treatment)");
    EXPECT_EQ(texts[0].from.x, 10);
    EXPECT_EQ(texts[0].from.y, 2);
    EXPECT_EQ(texts[1].text, a + " (1)");
    EXPECT_EQ(texts[2].text, b + " (all)");
    EXPECT_EQ(texts[3].text, b + " (2)");
    // Samples from x to x + 40 at the entry's y; text at x + 50, y - 7.
    std::vector<DrawOp> lines = dc.Lines();
    ASSERT_EQ(lines.size(), 3u);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(lines[i].from.x, 10);
        EXPECT_EQ(lines[i].to.x, 50);
        EXPECT_EQ(lines[i].from.y, 25 + 16 * i);
        EXPECT_EQ(texts[i + 1].from.x, 60);
        EXPECT_EQ(texts[i + 1].from.y, 18 + 16 * i);
        EXPECT_EQ(lines[i].pen.color, plot_Colour(i));
        EXPECT_EQ(lines[i].pen.style, plot_PenStyle(i));
    }
    // A wide legend alternates between two columns.
    legend.SetClientRect(CRect{0, 0, 800, 150});
    dc.Clear();
    legend.OnDraw(dc);
    lines = dc.Lines();
    EXPECT_EQ(lines[0].from.x, 10);
    EXPECT_EQ(lines[1].from.x, 410);
    EXPECT_EQ(lines[1].from.y, 25);
    EXPECT_EQ(lines[2].from.x, 10);
    EXPECT_EQ(lines[2].from.y, 41);
}

TEST_F(PlotViewTest, ALaterFileThatFailsStopsLoadingAndKeepsTheEarlierOnes) {
    CPlotDlg dlg;
    dlg.AddFile(a, "");
    dlg.AddFile(b, "9");  // no ninth replication
    dlg.AddFile(a, "");
    ASSERT_EQ(dlg.Validate(nullptr), 0);
    // With bounds left open the scan over all files meets the bad one first.
    CPlotDoc open;
    EXPECT_EQ(open.InitFromDialog(dlg), IDS_INVALID_REP_TREATMENT);
    // With every bound given nothing is scanned: the second file fails while loading.
    dlg.m_strBeginTime = "1";
    dlg.m_strEndTime = "10";
    dlg.m_strMinValue = "1";
    dlg.m_strMaxValue = "10";
    ASSERT_EQ(dlg.Validate(nullptr), 0);
    CPlotDoc doc;
    EXPECT_EQ(doc.InitFromDialog(dlg), 0);
    EXPECT_TRUE(doc.m_entries[0].m_bLoaded);
    EXPECT_FALSE(doc.m_entries[1].m_bLoaded);
    EXPECT_FALSE(doc.m_entries[2].m_bLoaded);
}

}  // namespace
