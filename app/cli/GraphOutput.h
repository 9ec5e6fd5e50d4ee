// The graph-output options of every graphical command: --svg, --png and --pdf
// PATH, --size WxH and --dpi N. The drawing a window of that size would show
// is written in each form asked for (cli_Host().SetSvgOutput hands the
// options to the host, which draws the windows it is shown).
//
// A new graphical command gets all of them with one line in its setup and one
// in its run; the struct and the functions keep the names they had when SVG
// was the only form:
//
//     struct Options { ...; SvgOptions svg; };
//     cli_AddSvgOptions(sub, g_opt.svg, false);   // in Setup; true: one form is required
//     cli_Host().SetSvgOutput(&g_opt.svg);        // in Run, before the command entry
#pragma once

#include <CLI/CLI.hpp>

#include <string>

class CDocFrame;

struct SvgOptions {
    std::string path;  // --svg
    std::string png;
    std::string pdf;
    std::string size = "800x600";
    int width = 800;
    int height = 600;
    // PNG pixels per inch: 192 is twice a screen's 96, for sharp graphs on
    // high-density screens and in print.
    int dpi = 192;

    bool Any() const { return !path.empty() || !png.empty() || !pdf.empty(); }
};

// Adds the options to a command; resets opts to the defaults. required: at
// least one of --svg, --png and --pdf must be given (a usage error otherwise).
void cli_AddSvgOptions(CLI::App* sub, SvgOptions& opts, bool required);

// Draws the frame's graphs into every file the options name. 0, or -1 after
// a message.
int cli_WriteGraphs(const CDocFrame& frame, const SvgOptions& opts);

// The frame's graphs as a PNG (scale device pixels per unit) or a PDF (one
// point per unit), through cairo; CairoOutput.cpp. Without cairo in the build
// it shows that it cannot and returns -1.
int cli_WriteCairo(const CDocFrame& frame, int width, int height, const std::string& path, bool pdf, double scale);
