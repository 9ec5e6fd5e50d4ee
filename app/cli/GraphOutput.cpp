#include "GraphOutput.h"

#include <cstdio>

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
