// A document frame's client area divided into its panes, as CBaseWnd and
// CBaseWndSplit divide it, and the drawing of a frame's graphs into an SVG
// file: what every host does with the frames a command hands it.
#pragma once

#include <string>
#include <vector>

#include "framework/DC.h"
#include "framework/View.h"

class CDocFrame;
class CObject;

struct FramePane {
    CObject* view;  // a graph view (CView) or a report view (CTextView)
    CRect rect;     // in the frame's client area
};

// The panes of a width x height client area, top to bottom. A single frame's
// view fills it; a split frame's first view takes the first pane's height
// (CBaseWndSplit::FirstPaneHeight with the document's minimum) and its second
// view the rest. With graphsOnly the report views are left out and the graphs
// share the area as the panes of a split frame would: one graph fills it.
std::vector<FramePane> frame_Panes(const CDocFrame& frame, int width, int height, bool graphsOnly);

// Draws each pane's view into its band of a file device context (one with
// BeginPane/EndPane: the SVG and the PNG/PDF writers), top to bottom.
template <class PaneDC>
void frame_DrawPanes(const std::vector<FramePane>& panes, PaneDC& dc, int width) {
    for (const FramePane& pane : panes) {
        const int h = pane.rect.Height();
        if (h <= 0) break;
        auto* view = static_cast<CView*>(pane.view);
        dc.BeginPane(0, pane.rect.top, width, h);
        view->SetClientRect(CRect{0, 0, width, h});
        view->OnDraw(dc);
        dc.EndPane();
    }
}

// Draws the frame's graphs (frame_Panes with graphsOnly) into an SVG drawing of
// width x height titled with the frame's caption, and writes it to path
// through a safe output. 0 when written or when the frame has no graph; -1
// after showing that the file cannot be written.
int frame_WriteSvg(const CDocFrame& frame, int width, int height, const std::string& path);
