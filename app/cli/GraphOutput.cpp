#include "GraphOutput.h"

#include <cstdio>
#include <ostream>

#include "framework/Host.h"
#include "framework/SafeOutput.h"
#include "framework/SvgDC.h"
#include "framework/Frame.h"
#include "framework/View.h"
#include "graph/BaseWnd.h"
#include "graph/GraphDoc.h"
#include "report/TextView.h"

namespace {

constexpr int kMinSide = 16;
constexpr int kMaxSide = 16000;  // device coordinates are 16-bit

std::string ParseSize(const std::string& text, SvgOptions& opts) {
    int w = 0, h = 0;
    char x = 0, extra = 0;
    if (std::sscanf(text.c_str(), "%d%c%d%c", &w, &x, &h, &extra) != 3 || (x != 'x' && x != 'X'))
        return "size must be WIDTHxHEIGHT, for example 800x600";
    if (w < kMinSide || h < kMinSide || w > kMaxSide || h > kMaxSide)
        return "width and height must be between " + std::to_string(kMinSide) + " and " + std::to_string(kMaxSide);
    opts.width = w;
    opts.height = h;
    return "";
}

}  // namespace

void cli_AddSvgOptions(CLI::App* sub, SvgOptions& opts, bool required) {
    opts = SvgOptions{};
    CLI::Option* svg = sub->add_option("--svg", opts.path, "Write the graph as an SVG file")->type_name("PATH");
    if (required) svg->required();
    sub->add_option("--size", opts.size, "Size of the graph in pixels")
        ->type_name("WxH")
        ->capture_default_str()
        ->check(CLI::Validator([&opts](std::string& text) { return ParseSize(text, opts); }, "WxH", "size"));
}

int cli_WriteSvg(const SvgOptions& opts, const std::string& caption, const std::vector<SvgPane>& panes) {
    if (opts.path.empty()) return 0;
    CSvgDC dc(opts.width, opts.height, caption);
    int y = 0;
    for (const SvgPane& pane : panes) {
        int h = pane.height > 0 ? pane.height : opts.height - y;
        if (h <= 0) break;
        dc.BeginPane(0, y, opts.width, h);
        pane.view->SetClientRect(CRect{0, 0, opts.width, h});
        pane.view->OnDraw(dc);
        dc.EndPane();
        y += h;
    }
    std::string svg = dc.Finish();

    CSafeOutput out(opts.path);
    FILE* f = std::fopen(out.TempPath().c_str(), "wb");
    bool ok = f && std::fwrite(svg.data(), 1, svg.size(), f) == svg.size();
    if (f && std::fclose(f) != 0) ok = false;
    if (!ok || !out.Commit()) {
        AfxMessageBox("Cannot write the graph file " + opts.path);
        return 1;
    }
    return 0;
}

std::function<void(CDocFrame&, std::ostream&)> cli_SvgFrame(const SvgOptions& opts) {
    return [&opts](CDocFrame& frame, std::ostream& out) {
        std::vector<CView*> graphs;
        for (const auto& v : frame.Views()) {
            if (const auto* text = dynamic_cast<const CTextView*>(v.get()))
                out << text->GetText();
            else if (auto* view = dynamic_cast<CView*>(v.get()))
                graphs.push_back(view);
        }
        if (graphs.empty()) return;
        std::vector<SvgPane> panes{{graphs[0], 0}};
        if (graphs.size() > 1) {
            const auto* doc = dynamic_cast<const CGraphDoc*>(frame.GetActiveDocument());
            panes[0].height = CBaseWndSplit::FirstPaneHeight(opts.height, doc ? doc->m_nMinFirstPane : 0);
            panes.push_back({graphs[1], 0});
        }
        cli_WriteSvg(opts, frame.GetWindowText(), panes);
    };
}
