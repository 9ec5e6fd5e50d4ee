#include "graph/PlotView.h"

#include <cmath>
#include <cstdio>

#include "datafile/FileGlobals.h"
#include "framework/Messages.h"
#include "graph/PlotDoc.h"

namespace {

const COLORREF kColours[20] = {
    RGB(255, 0, 0),     RGB(0, 255, 0),   RGB(0, 0, 255),     RGB(0, 0, 0),       RGB(255, 0, 255),
    RGB(255, 128, 0),   RGB(52, 128, 128), RGB(128, 128, 128), RGB(0, 128, 0),     RGB(0, 255, 255),
    RGB(128, 128, 255), RGB(200, 200, 200), RGB(128, 128, 0),  RGB(128, 0, 255),   RGB(255, 255, 0),
    RGB(128, 0, 52),    RGB(255, 0, 128), RGB(128, 0, 0),     RGB(255, 128, 52),  RGB(0, 128, 255),
};
const int kStyles[5] = {PS_SOLID, PS_DASH, PS_DOT, PS_DASHDOT, PS_DASHDOTDOT};

// Legend columns are this wide; a second column opens when the pane holds two.
constexpr int kLegendColumn = 300;

bool SingleRep(int treatment) { return treatment >= 1; }

}  // namespace

COLORREF plot_Colour(std::size_t index) { return kColours[index % 20]; }
int plot_PenStyle(std::size_t index) { return kStyles[index % 5]; }
int plot_PenWidth(double scale) { return scale > 1.0 ? static_cast<int>(std::trunc(scale)) : 0; }

std::string plot_TreatmentText(int treatment) {
    if (treatment == REP_LUMPED) return msg_Text(16017);
    if (treatment == REP_ALL) return msg_Text(16018);
    char text[32];
    long n = treatment;
    std::snprintf(text, sizeof text, n < 10 ? "%1ld" : (n < 100 ? "%2ld" : "%4ld"), n);
    return text;
}

CPlotDoc* CPlotView::GetPlotDoc() const { return static_cast<CPlotDoc*>(m_pDocument); }
CPlotDoc* CPlotLegendView::GetPlotDoc() const { return static_cast<CPlotDoc*>(m_pDocument); }

bool CPlotView::CanGraph() { return view_PlotAreaFits(101); }

int CPlotView::DrawGraph(CDC& dc) {
    CPlotDoc* doc = GetPlotDoc();
    if (!doc) return 0;
    DrawGraphFrame(dc, doc->Range(), doc->m_strXLabel, doc->m_strYLabel, doc->m_strGraphTitle, m_nGraphKind, &m_ticks);
    const double endTime = doc->XMax();
    const CDeviceMap map(g_Layout);
    CPen oldPen = dc.GetCurrentPen();
    // Points go to the device a buffer at a time: a curve may have millions.
    constexpr std::size_t kBuffer = 1024;
    CPoint buffer[kBuffer];
    for (std::size_t i = 0; i < doc->m_entries.size(); ++i) {
        const CPlotEntry& entry = doc->m_entries[i];
        if (!entry.m_bLoaded) continue;
        const double* xs = doc->EntryX(i).data();
        const double* ys = doc->EntryY(i).data();
        const std::size_t size = doc->EntryX(i).size();
        const bool single = SingleRep(entry.m_nTreatment);
        dc.SelectObject(CPen{plot_PenStyle(i), plot_PenWidth(g_Layout.scale), plot_Colour(i)});
        std::size_t k = 0;
        while (k < size && xs[k] < 0.0 && ys[k] == MARK_SKIP) ++k;
        bool started = false;
        std::size_t held = 0;
        for (; k < size; ++k) {
            double t = xs[k];
            double v = ys[k];
            if (t < 0.0) {
                if (v == MARK_SKIP) continue;
                if (v == MARK_END || single) break;
                continue;  // lumped and all join the replications
            }
            const CPoint p = map(t, v);
            if (!started) {
                dc.MoveTo(p.x, p.y);
                started = true;
            } else {
                buffer[held++] = p;
                if (held == kBuffer) {
                    dc.PolylineTo(buffer, held);
                    held = 0;
                }
            }
            if (single && t > endTime) break;
        }
        dc.PolylineTo(buffer, held);
    }
    dc.SelectObject(oldPen);
    return 0;
}

int CPlotLegendView::DrawGraph(CDC& dc) {
    CPlotDoc* doc = GetPlotDoc();
    if (!doc) return 0;
    const double s = g_Layout.scale;
    auto px = [s](int units) { return static_cast<int>(std::trunc(units * s)); };
    CFont oldFont = dc.SelectObject(CFont{px(14), FW_NORMAL, ""});
    int oldBk = dc.SetBkMode(TRANSPARENT);
    unsigned oldAlign = dc.SetTextAlign(TA_LEFT | TA_TOP);
    dc.TextOut(px(10), px(2), msg_Text(16016));

    const CRect client = GetClientRect();
    const bool twoColumns = client.Width() * s >= 2 * px(kLegendColumn);
    CPen oldPen = dc.GetCurrentPen();
    int y = px(25);
    for (std::size_t i = 0; i < doc->m_entries.size(); ++i) {
        const CPlotEntry& entry = doc->m_entries[i];
        int x = px(10);
        if (twoColumns) {
            if (i % 2 == 1) x = static_cast<int>(client.Width() * s / 2) + px(10);
            if (i > 0 && i % 2 == 0) y += px(16);
        } else if (i > 0) {
            y += px(16);
        }
        dc.SelectObject(CPen{plot_PenStyle(i), plot_PenWidth(s), plot_Colour(i)});
        dc.MoveTo(x, y);
        dc.LineTo(x + px(40), y);
        std::string text = entry.m_strPath + " (" + plot_TreatmentText(entry.m_nTreatment) + ")";
        dc.TextOut(x + px(50), y - px(7), text);
    }
    dc.SelectObject(oldPen);
    dc.SetTextAlign(oldAlign);
    dc.SetBkMode(oldBk);
    dc.SelectObject(oldFont);
    return 0;
}
