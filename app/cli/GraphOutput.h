// --svg PATH and --size WxH for the graphical analyses: the drawing a window
// of that size would show, written as an SVG file (cli_Host().SetSvgOutput).
#pragma once

#include <CLI/CLI.hpp>

#include <string>

struct SvgOptions {
    std::string path;
    std::string size = "800x600";
    int width = 800;
    int height = 600;
};

// Adds the two options to a command; resets opts to the defaults.
void cli_AddSvgOptions(CLI::App* sub, SvgOptions& opts, bool required);
