// A document frame's client area divided into its panes, as CBaseWnd and
// CBaseWndSplit divide it, and the drawing of a frame's graphs into an SVG
// file: what every host does with the frames a command hands it.
#pragma once

#include <string>
#include <vector>

#include "framework/DC.h"

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

// Draws the frame's graphs (frame_Panes with graphsOnly) into an SVG drawing of
// width x height titled with the frame's caption, and writes it to path
// through a safe output. 0 when written or when the frame has no graph; -1
// after showing that the file cannot be written.
int frame_WriteSvg(const CDocFrame& frame, int width, int height, const std::string& path);
