// Mapping, number formatting and the small drawing primitives of the graphs.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "graph/AxisInternal.h"
#include "graph/GraphLayout.h"

namespace {

char Digit(int n) { return static_cast<char>('0' + std::clamp(n, 0, 9)); }

long SafeLong(double v) {
    if (!(v == v)) return 0;
    if (v > 2e9) return 2000000000L;
    if (v < -2e9) return -2000000000L;
    return static_cast<long>(v);
}

int Scaled(double units) { return static_cast<int>(std::trunc(units * g_Layout.scale)); }

}  // namespace

// SafeLong's conversion cuts toward zero, and its bounds are whole numbers.
long RoundHalfAway(double value) { return value >= 0.0 ? SafeLong(value + 0.5) : SafeLong(value - 0.5); }

double IntPower(double base, int exponent) {
    unsigned long n = exponent < 0 ? 0UL - static_cast<unsigned long>(exponent) : static_cast<unsigned long>(exponent);
    double result = 1.0;
    double p = base;
    while (n) {
        if (n & 1UL) result *= p;
        p *= p;
        n >>= 1;
    }
    return exponent < 0 ? 1.0 / result : result;
}

int BreakAtSpace(const char* text, int maxLength) {
    int len = static_cast<int>(std::strlen(text));
    if (len <= maxLength) return maxLength;
    for (int i = maxLength; i >= 1; --i)
        if (text[i] == ' ') return i;
    return maxLength;
}

void MapToDevice(double x, double y, std::int16_t* outX, std::int16_t* outY) {
    const CPoint p = CDeviceMap(g_Layout)(x, y);
    *outX = static_cast<std::int16_t>(p.x);
    *outY = static_cast<std::int16_t>(p.y);
}

void FormatAxisNumber(double value, int width, int decimals, bool isReal, char* out) {
    char format[8];
    char text[400];
    if (isReal) {
        std::strcpy(format, "%- . f");
        format[2] = Digit(width);
        format[4] = Digit(decimals);
        std::snprintf(text, sizeof text, format, value);
    } else {
        std::strcpy(format, "%-1ld");
        format[2] = Digit(width);
        // Nudged away from zero so that 2.9999999999 prints as 3.
        long whole = SafeLong(std::trunc(value + std::copysign(1e-9, value)));
        std::snprintf(text, sizeof text, format, whole);
    }
    std::size_t keep = static_cast<std::size_t>(std::clamp(width, 0, 9) + 2);
    std::size_t n = std::min(std::strlen(text), keep);
    std::memcpy(out, text, n);
    out[n] = '\0';
    if (char* blank = std::strchr(out, ' ')) *blank = '\0';
}

// The step in displayed units (divided by the axis's factor 10^-code), then
// the decimal digits it needs, as many as a label of this width can show.
int DecimalsForStep(double step, int exponentCode, int width) {
    double d = std::fabs(step) * IntPower(10.0, exponentCode);
    if (!std::isfinite(d)) return 0;
    const int bound = std::max(width - 2, 0);
    const double tolerance = IntPower(0.1, width);
    int n = 0;
    for (;;) {
        double frac = d - std::floor(d);
        if (std::min(frac, 1.0 - frac) < tolerance || n >= bound) break;
        d *= 10.0;
        ++n;
    }
    return n;
}

void DrawBox(CDC& dc, int x1, int y1, int x2, int y2) {
    std::int16_t ax = static_cast<std::int16_t>(x1), bx = static_cast<std::int16_t>(x2);
    std::int16_t ay = static_cast<std::int16_t>(y1), by = static_cast<std::int16_t>(y2);
    dc.Rectangle(std::min(ax, bx), std::min(ay, by), std::max(ax, bx), std::max(ay, by));
}

// The end is one further than the start because a line's last pixel is not
// drawn: the visible cross is symmetric.
void DrawPlusMarker(CDC& dc, int x, int y, COLORREF colour) {
    CPen old = dc.SelectObject(CPen{PS_SOLID, 0, colour});
    dc.MoveTo(x - Scaled(3), y);
    dc.LineTo(x + Scaled(4), y);
    dc.MoveTo(x, y - Scaled(3));
    dc.LineTo(x, y + Scaled(4));
    dc.SelectObject(old);
}

void DrawArrowMark(CDC& dc, int x, int y, bool pointsUp, int shaftLength, int headSize, COLORREF colour) {
    CPen old = dc.SelectObject(CPen{PS_SOLID, 0, colour});
    int dir = pointsUp ? 1 : -1;
    dc.MoveTo(x, y);
    dc.LineTo(x, y + dir * shaftLength);
    dc.MoveTo(x, y);
    dc.LineTo(x - headSize, y + dir * headSize);
    dc.MoveTo(x, y);
    dc.LineTo(x + headSize, y + dir * headSize);
    dc.SelectObject(old);
}

void DrawTextFitted(CDC& dc, const char* text, int x, int y, int reserve) {
    int n = static_cast<int>(std::strlen(text));
    while (n > 0 && dc.GetTextExtent(text, n).cx + reserve > g_Layout.right) --n;
    dc.TextOut(x, y, text, n);
}
