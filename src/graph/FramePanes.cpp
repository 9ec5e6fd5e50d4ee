#include "graph/FramePanes.h"

#include <cstdio>

#include "framework/Frame.h"
#include "framework/Host.h"
#include "framework/SafeOutput.h"
#include "framework/SvgDC.h"
#include "framework/View.h"
#include "graph/BaseWnd.h"
#include "graph/GraphDoc.h"
#include "report/TextView.h"

std::vector<FramePane> frame_Panes(const CDocFrame& frame, int width, int height, bool graphsOnly) {
    std::vector<CObject*> views;
    for (const auto& v : frame.Views())
        if (!graphsOnly || dynamic_cast<CView*>(v.get())) views.push_back(v.get());
    if (views.empty()) return {};
    bool split = graphsOnly ? views.size() > 1 : frame.FrameClass() == "CBaseWndSplit" && views.size() > 1;
    if (!split) return {{views[0], CRect{0, 0, width, height}}};
    const auto* doc = dynamic_cast<const CGraphDoc*>(frame.GetActiveDocument());
    int first = CBaseWndSplit::FirstPaneHeight(height, doc ? doc->m_nMinFirstPane : 0);
    return {{views[0], CRect{0, 0, width, first}}, {views[1], CRect{0, first, width, height}}};
}

int frame_WriteSvg(const CDocFrame& frame, int width, int height, const std::string& path) {
    std::vector<FramePane> panes = frame_Panes(frame, width, height, true);
    if (panes.empty()) return 0;
    CSvgDC dc(width, height, frame.GetWindowText());
    frame_DrawPanes(panes, dc, width);
    std::string svg = dc.Finish();

    CSafeOutput out(path);
    FILE* f = std::fopen(out.TempPath().c_str(), "wb");
    bool ok = f && std::fwrite(svg.data(), 1, svg.size(), f) == svg.size();
    if (f && std::fclose(f) != 0) ok = false;
    if (!ok || !out.Commit()) {
        AfxMessageBox("Cannot write the graph file " + path);
        return -1;
    }
    return 0;
}
