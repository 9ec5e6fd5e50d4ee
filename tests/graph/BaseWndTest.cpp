// Frame captions, the split frame's first pane, and wrapped text.
#include <gtest/gtest.h>

#include "GraphTestUtil.h"
#include "graph/BaseView.h"
#include "graph/BaseWnd.h"
#include "graph/GraphDoc.h"

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

std::unique_ptr<CView> MakeView() { return std::make_unique<CBaseView>(); }

TEST(BaseWndSplit, CreatesBothPanesOrFails) {
    CGraphDoc doc;
    doc.m_nMinFirstPane = 300;
    CBaseWndSplit frame;
    SplitPanes panes;
    EXPECT_FALSE(frame.OnCreateClient(CRect{0, 0, 640, 480}, MakeView, doc, &panes));  // no second view
    doc.m_pSecondView = MakeView;
    ASSERT_TRUE(frame.OnCreateClient(CRect{0, 0, 640, 480}, MakeView, doc, &panes));
    EXPECT_EQ(panes.first.Height(), 300);
    EXPECT_EQ(panes.second.Height(), 180);
    EXPECT_EQ(panes.second.Width(), 640);
    EXPECT_EQ(panes.secondView->GetDocument(), &doc);
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
