// The view bases of the graphs. Each draw lays the plot area out for the
// device (screen or paper), then either draws the graph or, in a window too
// small for it, says so. A graph prints as exactly one page.
#pragma once

#include <string>

#include "framework/View.h"
#include "graph/GraphLayout.h"

class CBaseView : public CView {
public:
    virtual bool CanGraph();
    virtual void DrawTooSmall(CDC& dc);
    virtual void LayoutPlotArea(const CRect& client, CDC& dc);
    // The analysis's drawing; 0 or a message id.
    virtual int DrawGraph(CDC& dc);

    void OnDraw(CDC& dc) override;
    bool OnPreparePrinting(CPrintInfo& info) override;

    int m_nGraphKind = GK_ORDINARY;
    TickBlock m_ticks;  // the screen's ticks, reused by a printout
};

class CBaseScrollView : public CScrollView {
public:
    virtual bool CanGraph();
    virtual void DrawTooSmall(CDC& dc);
    virtual void LayoutPlotArea(const CRect& client, CDC& dc);
    virtual int DrawGraph(CDC& dc);
    // Writes text in lines of at most maxChars characters, broken at blanks.
    virtual void DrawWrappedText(CDC& dc, const char* text, int x, int y, int maxChars);

    void OnDraw(CDC& dc) override;
    bool OnPreparePrinting(CPrintInfo& info) override;
    void OnInitialUpdate() override;
};

// The plot area checks of CanGraph: room for a graph at least minWidth wide.
bool view_PlotAreaFits(int minWidth);
