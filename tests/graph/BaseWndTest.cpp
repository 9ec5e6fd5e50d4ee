// Frame captions, the panes of a frame, and wrapped text.
#include <gtest/gtest.h>

#include "GraphTestUtil.h"
#include "graph/BaseView.h"
#include "graph/BaseWnd.h"
#include "framework/Frame.h"
#include "graph/FramePanes.h"
#include "graph/GraphDoc.h"
#include "report/TextView.h"

namespace {

TEST(BaseWnd, CaptionIsTheBaseTextTheTitleAndTheTrailer) {
    CGraphDoc doc;
    doc.SetTitle("waits.dat");
    CBaseWnd frame;
    frame.SetActiveDocument(&doc);
    frame.SetTitleTrailer(":2");
    frame.SetFrameCaption(16019, true);
    EXPECT_EQ(frame.GetWindowText(), "Plot - waits.dat:2");
    frame.SetFrameCaption(16019, false);
    EXPECT_EQ(frame.GetWindowText(), "Plot - :2");
    CBaseWnd plain;
    plain.m_bAddToTitleStyle = false;
    plain.SetActiveDocument(&doc);
    plain.SetFrameCaption(16019, true);
    EXPECT_EQ(plain.GetWindowText(), "");
}

TEST(BaseWndSplit, FirstPaneIsFortyPercentOrTheDocumentsMinimum) {
    EXPECT_EQ(CBaseWndSplit::FirstPaneHeight(600, 450), 450);   // 240 raised
    EXPECT_EQ(CBaseWndSplit::FirstPaneHeight(300, 450), 120);   // frame below the minimum: 40 %
    EXPECT_EQ(CBaseWndSplit::FirstPaneHeight(2000, 450), 800);  // 40 % already above it
    EXPECT_EQ(CBaseWndSplit::FirstPaneHeight(999, 0), 399);
}

class Report : public CTextView {
public:
    void WriteReport(FILE*) override {}
};

// A frame of doc's class holding a graph and a second view (a report, or a
// second graph as the plot's legend is).
std::unique_ptr<CDocFrame> Frame(const char* frameClass, bool secondIsGraph) {
    auto doc = std::make_unique<CGraphDoc>();
    doc->m_nMinFirstPane = 300;
    std::vector<std::unique_ptr<CObject>> views;
    views.push_back(std::make_unique<CBaseView>());
    if (secondIsGraph)
        views.push_back(std::make_unique<CBaseView>());
    else
        views.push_back(std::make_unique<Report>());
    return std::make_unique<CDocFrame>(frameClass, std::move(doc), std::move(views));
}

TEST(FramePanes, SplitFramesGiveTheGraphTheFirstPane) {
    struct Case {
        const char* frameClass;
        bool secondIsGraph, graphsOnly;
        std::vector<int> heights;  // of the panes, top to bottom
    } const cases[] = {
        {"CBaseWndSplit", false, false, {300, 180}},
        {"CBaseWndSplit", false, true, {480}},  // the report left out: the graph takes all
        {"CBaseWndSplit", true, true, {300, 180}},
        {"CBaseWnd", false, false, {480}},
    };
    for (const Case& c : cases) {
        auto frame = Frame(c.frameClass, c.secondIsGraph);
        std::vector<FramePane> panes = frame_Panes(*frame, 640, 480, c.graphsOnly);
        ASSERT_EQ(panes.size(), c.heights.size()) << c.frameClass << c.graphsOnly;
        int top = 0;
        for (std::size_t i = 0; i < panes.size(); ++i) {
            EXPECT_EQ(panes[i].view, frame->Views()[i].get());
            EXPECT_EQ(panes[i].rect.top, top);
            EXPECT_EQ(panes[i].rect.Height(), c.heights[i]);
            EXPECT_EQ(panes[i].rect.Width(), 640);
            top += c.heights[i];
        }
    }
}

TEST(BaseScrollView, WrapsAtBlanksAndPrintsOnOnePage) {
    CBaseScrollView view;
    CRecordingDC dc;
    dc.SelectObject(CFont{14, FW_NORMAL, ""});
    view.DrawWrappedText(dc, "alpha beta gamma delta", 5, 100, 10);
    std::vector<DrawOp> texts = dc.Texts();
    ASSERT_EQ(texts.size(), 3u);
    EXPECT_EQ(texts[0].text, "alpha beta");
    EXPECT_EQ(texts[1].text, "gamma");
    EXPECT_EQ(texts[2].text, "delta");
    EXPECT_EQ(texts[1].from.y, 114);
    EXPECT_EQ(texts[2].from.y, 128);
    EXPECT_EQ(texts[2].from.x, 5);

    CPrintInfo info;
    EXPECT_TRUE(view.OnPreparePrinting(info));
    EXPECT_EQ(info.m_nMinPage, 1);
    EXPECT_EQ(info.m_nMaxPage, 1);
    EXPECT_FALSE(info.m_bPageNumbers);
    view.OnInitialUpdate();
    EXPECT_EQ(view.GetTotalSize().cx, 1000);
    EXPECT_EQ(view.GetTotalSize().cy, 1000);
}

}  // namespace
