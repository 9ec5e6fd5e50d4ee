// Graphical analyses run through their command entry: the report of the
// window the entry opens goes to stdout as for every analysis, and with --svg
// its graph pane is drawn from the window's document.
#pragma once

#include <ostream>

#include "GraphOutput.h"
#include "GroupArgs.h"
#include "framework/Frame.h"
#include "report/TextView.h"

template <class Dlg, class Doc, class Graph, class Fill>
int cli_RunGraphEntry(int (*entry)(COutputView*), CliGroup& group, const SvgOptions& svg, Fill fill) {
    int svgStatus = 0;
    cli_Host().SetFrameHandler([&](CDocFrame& frame, std::ostream& out) {
        for (const auto& v : frame.Views())
            if (const auto* text = dynamic_cast<const CTextView*>(v.get())) out << text->GetText();
        if (svg.path.empty()) return;
        if (auto* doc = dynamic_cast<Doc*>(frame.GetActiveDocument())) {
            Graph graph;
            graph.SetDocument(doc);
            graph.OnInitialUpdate();
            svgStatus = cli_WriteSvg(svg, frame.GetWindowText(), {{&graph, 0}});
        }
    });
    int status = cli_RunEntry<Dlg>(entry, group, fill);
    cli_Host().SetFrameHandler(nullptr);
    return status ? status : cli_Status(svgStatus);
}
