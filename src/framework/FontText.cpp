#include "framework/FontMetrics.h"

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
