// Real advance widths of the face the SVG writer names, so that text measured
// while laying out a graph is as wide as the browser will draw it.
#pragma once

#include <cstdint>
#include <string_view>

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
