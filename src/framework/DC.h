// The device context the graphs draw into: the few drawing operations of the
// host's graphics interface that the views use, with its conventions (device
// units growing right and down, a current position for MoveTo/LineTo, GDI's
// text alignment flags, rectangles that exclude their right and bottom edge).
// The context keeps the selected pen, font and brush; implementations only
// render and measure.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

using COLORREF = std::uint32_t;
constexpr COLORREF RGB(int r, int g, int b) {
    return static_cast<COLORREF>((r & 0xFF) | ((g & 0xFF) << 8) | ((b & 0xFF) << 16));
}
constexpr int GetRValue(COLORREF c) { return static_cast<int>(c & 0xFF); }
constexpr int GetGValue(COLORREF c) { return static_cast<int>((c >> 8) & 0xFF); }
constexpr int GetBValue(COLORREF c) { return static_cast<int>((c >> 16) & 0xFF); }

enum PenStyle : int { PS_SOLID = 0, PS_DASH = 1, PS_DOT = 2, PS_DASHDOT = 3, PS_DASHDOTDOT = 4, PS_NULL = 5 };

// Text alignment flags; horizontal and vertical parts are or-ed.
enum : unsigned {
    TA_LEFT = 0,
    TA_RIGHT = 2,
    TA_CENTER = 6,
    TA_TOP = 0,
    TA_BOTTOM = 8,
    TA_BASELINE = 24,
};
enum : int { TRANSPARENT = 1, OPAQUE = 2 };
enum : int { HORZRES = 8, VERTRES = 10 };
enum : int { WHITE_BRUSH = 0, LTGRAY_BRUSH = 1, GRAY_BRUSH = 2, DKGRAY_BRUSH = 3, BLACK_BRUSH = 4, NULL_BRUSH = 5 };
enum : int { FW_NORMAL = 400, FW_BOLD = 700 };

struct CSize {
    int cx = 0;
    int cy = 0;
};

struct CPoint {
    int x = 0;
    int y = 0;
};

struct CRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
};

// A cosmetic pen: width 0 draws one device pixel wide.
struct CPen {
    int style = PS_SOLID;
    int width = 0;
    COLORREF color = RGB(0, 0, 0);
    bool operator==(const CPen&) const = default;
};

// A font as CreateFontA receives it: a positive height is the character cell
// height (ascent plus descent) in device units; an empty face is the default face.
struct CFont {
    int height = 16;
    int weight = FW_NORMAL;
    std::string face;
    bool operator==(const CFont&) const = default;
};

struct CBrush {
    bool hollow = false;
    COLORREF color = RGB(255, 255, 255);
    bool operator==(const CBrush&) const = default;
};

class CDC {
public:
    CDC() = default;
    virtual ~CDC() = default;
    CDC(const CDC&) = delete;
    CDC& operator=(const CDC&) = delete;

    CPoint MoveTo(int x, int y);
    // Draws from the current position to (x, y), excluding the end pixel, and
    // makes (x, y) current.
    bool LineTo(int x, int y);
    // LineTo each point in turn, as GDI's PolylineTo does.
    bool PolylineTo(const CPoint* points, std::size_t count);
    // Outline with the pen, inside filled with the brush; the corners may come in
    // any order and the right and bottom edges are not drawn.
    bool Rectangle(int x1, int y1, int x2, int y2);
    bool TextOut(int x, int y, const char* text, int length);
    bool TextOut(int x, int y, const std::string& text) { return TextOut(x, y, text.c_str(), static_cast<int>(text.size())); }
    CSize GetTextExtent(const char* text, int length);
    CSize GetTextExtent(const std::string& text) { return GetTextExtent(text.c_str(), static_cast<int>(text.size())); }

    unsigned SetTextAlign(unsigned flags);
    unsigned GetTextAlign() const { return m_align; }
    int SetBkMode(int mode);
    int GetBkMode() const { return m_bkMode; }

    // Selecting returns what was selected before, so a caller can restore it.
    CPen SelectObject(const CPen& pen);
    CFont SelectObject(const CFont& font);
    CBrush SelectObject(const CBrush& brush);
    CBrush SelectStockObject(int brushId);
    const CPen& GetCurrentPen() const { return m_pen; }
    const CFont& GetCurrentFont() const { return m_font; }
    const CBrush& GetCurrentBrush() const { return m_brush; }
    CPoint GetCurrentPosition() const { return m_pos; }

    virtual int GetDeviceCaps(int index) const = 0;
    virtual bool IsPrinting() const { return false; }

protected:
    virtual void OnLine(CPoint from, CPoint to) = 0;
    // Lines joined end to start, from `from` through the points (count > 0):
    // one line at a time unless an implementation takes them faster.
    virtual void OnPolyline(CPoint from, const CPoint* points, std::size_t count);
    // Normalised: left < right and top < bottom, right and bottom exclusive.
    virtual void OnRectangle(const CRect& rect) = 0;
    virtual void OnText(int x, int y, const std::string& text) = 0;
    virtual CSize OnMeasure(const CFont& font, const std::string& text) = 0;
    // Told about every change of drawing state, for implementations that record it.
    virtual void OnStateChange() {}

private:
    CPoint m_pos;
    unsigned m_align = TA_LEFT | TA_TOP;
    int m_bkMode = OPAQUE;
    CPen m_pen;
    CFont m_font;
    CBrush m_brush;
};
