// Real advance widths of the face the SVG writer names, so that text measured
// while laying out a graph is as wide as the browser will draw it.
#pragma once

#include <cstdint>
#include <string_view>

#include "framework/DC.h"

struct FontFace {
    const char* family;
    int unitsPerEm;
    int ascender;               // above the baseline, font units
    int descender;              // below the baseline, font units (positive)
    const std::uint16_t* advance;  // characters 32..126
};

// Liberation Sans, regular or bold.
const FontFace& font_Face(bool bold);

// Advance of a text in font units. A UTF-8 sequence counts as one character
// as wide as a digit; control characters have no width.
long font_TextUnits(const FontFace& face, std::string_view text);

// The em size in device units of a font whose cell height (ascent plus
// descent) is cellHeight.
inline double font_EmSize(const FontFace& face, int cellHeight) {
    return static_cast<double>(cellHeight) * face.unitsPerEm / (face.ascender + face.descender);
}

// How a device context sets a CFont in this face, in device units: the em
// size, the ascent and descent around the baseline. A positive font height is
// the cell height (ascent plus descent), a negative one the em size.
struct FontBox {
    double em;
    double ascent;
    double descent;
};
FontBox font_Box(const CFont& font);

// The extent of a text set in font: its advance width, rounded, and the cell height.
CSize font_TextExtent(const CFont& font, std::string_view text);
