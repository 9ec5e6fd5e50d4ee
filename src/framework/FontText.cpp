#include "framework/FontMetrics.h"

#include <cmath>
#include <cstdlib>

long font_TextUnits(const FontFace& face, std::string_view text) {
    const long digit = face.advance['0' - 32];
    long units = 0;
    for (unsigned char c : text) {
        if (c >= 32 && c <= 126)
            units += face.advance[c - 32];
        else if (c >= 0xC0)  // lead byte of a multi-byte character; continuation bytes add nothing
            units += digit;
    }
    return units;
}

FontBox font_Box(const CFont& font) {
    const FontFace& face = font_Face(font.weight >= 600);
    int cell = std::abs(font.height);
    double em = font.height >= 0 ? font_EmSize(face, cell) : static_cast<double>(cell);
    return {em, em * face.ascender / face.unitsPerEm, em * face.descender / face.unitsPerEm};
}

CSize font_TextExtent(const CFont& font, std::string_view text) {
    const FontFace& face = font_Face(font.weight >= 600);
    FontBox box = font_Box(font);
    double width = static_cast<double>(font_TextUnits(face, text)) * box.em / face.unitsPerEm;
    int height = font.height >= 0 ? font.height : static_cast<int>(std::lround(box.ascent + box.descent));
    return {static_cast<int>(std::lround(width)), height};
}
