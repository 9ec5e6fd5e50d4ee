#include "graph/BaseView.h"

#include <cstring>

#include "framework/Host.h"
#include "framework/Messages.h"

namespace {

template <class View>
void DrawCycle(View& view, CDC& dc) {
    CRect client = view.GetClientRect();
    view.LayoutPlotArea(client, dc);
    if (view.CanGraph()) {
        if (int id = view.DrawGraph(dc)) AfxMessageBox(id);
    } else {
        view.DrawTooSmall(dc);
    }
}

void WriteTooSmall(CDC& dc) {
    const std::string& text = msg_Text(IDS_WINDOW_TOO_SMALL);
    dc.SetBkMode(TRANSPARENT);
    dc.TextOut(10, 0, text);
}

bool OnePage(CPrintInfo& info) {
    info.m_nMinPage = 1;
    info.m_nMaxPage = 1;
    info.m_bPageNumbers = false;
    return true;
}

}  // namespace

bool view_PlotAreaFits(int minWidth) {
    const GraphLayout& L = g_Layout;
    return L.right >= 1 && L.bottom >= 1 && L.plotWidth >= minWidth && L.plotHeight >= 21;
}

bool CBaseView::CanGraph() { return view_PlotAreaFits(61); }
void CBaseView::DrawTooSmall(CDC& dc) { WriteTooSmall(dc); }
void CBaseView::LayoutPlotArea(const CRect& client, CDC& dc) { ::LayoutPlotArea(client, dc); }
int CBaseView::DrawGraph(CDC&) { return 0; }
void CBaseView::OnDraw(CDC& dc) { DrawCycle(*this, dc); }
bool CBaseView::OnPreparePrinting(CPrintInfo& info) { return OnePage(info) && DoPreparePrinting(info); }

bool CBaseScrollView::CanGraph() { return view_PlotAreaFits(61); }
void CBaseScrollView::DrawTooSmall(CDC& dc) { WriteTooSmall(dc); }
void CBaseScrollView::LayoutPlotArea(const CRect& client, CDC& dc) { ::LayoutPlotArea(client, dc); }
int CBaseScrollView::DrawGraph(CDC&) { return 0; }
void CBaseScrollView::OnDraw(CDC& dc) { DrawCycle(*this, dc); }
bool CBaseScrollView::OnPreparePrinting(CPrintInfo& info) { return OnePage(info) && DoPreparePrinting(info); }

void CBaseScrollView::OnInitialUpdate() {
    CScrollView::OnInitialUpdate();
    SetScrollSizes(MM_TEXT, CSize{1000, 1000});
}

void CBaseScrollView::DrawWrappedText(CDC& dc, const char* text, int x, int y, int maxChars) {
    int remaining = static_cast<int>(std::strlen(text));
    int lineHeight = dc.GetTextExtent(text, remaining).cy;
    int lines = 0;
    if (maxChars >= 1) {
        while (remaining > maxChars) {
            int n = BreakAtSpace(text, maxChars);
            dc.TextOut(x, y + lines * lineHeight, text, n);
            text += n;
            remaining -= n;
            if (*text == ' ') {
                ++text;
                --remaining;
            }
            ++lines;
        }
    }
    if (remaining > 0) dc.TextOut(x, y + lines * lineHeight, text, remaining);
}
