// --svg PATH and --size WxH for the graphical analyses: the drawing a window
// of that size would show, written as an SVG file.
#pragma once

#include <CLI/CLI.hpp>

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

class CDocFrame;
class CView;

struct SvgOptions {
    std::string path;
    std::string size = "800x600";
    int width = 800;
    int height = 600;
};

// Adds the two options to a command; resets opts to the defaults.
void cli_AddSvgOptions(CLI::App* sub, SvgOptions& opts, bool required);

// A pane of the window, top to bottom; height 0 takes what is left.
struct SvgPane {
    CView* view;
    int height;
};

// Draws the panes into an SVG of the chosen size and writes it through a safe
// output. Does nothing without --svg. Returns 0, or 1 after a message.
int cli_WriteSvg(const SvgOptions& opts, const std::string& caption, const std::vector<SvgPane>& panes);

// How a graphical command shows the window its command entry opens: the
// reports are printed and, with --svg, the graph views are drawn as the
// window lays them out (a split frame's graph above its second view),
// captioned as the window. Install with cli_Host().SetFrameHandler.
std::function<void(CDocFrame&, std::ostream&)> cli_SvgFrame(const SvgOptions& opts);
