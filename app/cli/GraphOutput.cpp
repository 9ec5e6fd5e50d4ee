#include "GraphOutput.h"

#include <cstdio>

#include "graph/FramePanes.h"

namespace {

constexpr int kMinSide = 16;
constexpr int kMaxSide = 16000;  // device coordinates are 16-bit
constexpr int kScreenDpi = 96;   // one device unit is one pixel of a screen

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
    sub->add_option("--svg", opts.path, "Write the graph as an SVG file")->type_name("PATH");
    sub->add_option("--png", opts.png, "Write the graph as a PNG image (see --dpi)")->type_name("PATH");
    sub->add_option("--pdf", opts.pdf, "Write the graph as a PDF page, one point per pixel of --size")
        ->type_name("PATH");
    sub->add_option("--size", opts.size, "Size of the graph in pixels")
        ->type_name("WxH")
        ->capture_default_str()
        ->check(CLI::Validator([&opts](std::string& text) { return ParseSize(text, opts); }, "", "size"));
    sub->add_option("--dpi", opts.dpi, "Pixels per inch of the PNG; 96 draws one pixel per pixel of --size")
        ->type_name("INT")
        ->capture_default_str()
        ->check(CLI::Range(24, 1200));
    if (required)
        sub->parse_complete_callback([&opts] {
            if (!opts.Any()) throw CLI::RequiredError("--svg, --png or --pdf");
        });
}

int cli_WriteGraphs(const CDocFrame& frame, const SvgOptions& opts) {
    if (!opts.path.empty() && frame_WriteSvg(frame, opts.width, opts.height, opts.path)) return -1;
    if (!opts.png.empty() &&
        cli_WriteCairo(frame, opts.width, opts.height, opts.png, false, static_cast<double>(opts.dpi) / kScreenDpi))
        return -1;
    if (!opts.pdf.empty() && cli_WriteCairo(frame, opts.width, opts.height, opts.pdf, true, 1.0)) return -1;
    return 0;
}
