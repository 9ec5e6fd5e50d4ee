#include "framework/DC.h"

#include <algorithm>

CPoint CDC::MoveTo(int x, int y) {
    CPoint old = m_pos;
    m_pos = {x, y};
    return old;
}

bool CDC::LineTo(int x, int y) {
    CPoint to{x, y};
    if (m_pen.style != PS_NULL) OnLine(m_pos, to);
    m_pos = to;
    return true;
}

bool CDC::PolylineTo(const CPoint* points, std::size_t count) {
    if (count == 0) return true;
    if (m_pen.style != PS_NULL) OnPolyline(m_pos, points, count);
    m_pos = points[count - 1];
    return true;
}

void CDC::OnPolyline(CPoint from, const CPoint* points, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        OnLine(from, points[i]);
        from = points[i];
    }
}

bool CDC::Rectangle(int x1, int y1, int x2, int y2) {
    CRect r{std::min(x1, x2), std::min(y1, y2), std::max(x1, x2), std::max(y1, y2)};
    if (r.right > r.left && r.bottom > r.top) OnRectangle(r);
    return true;
}

bool CDC::TextOut(int x, int y, const char* text, int length) {
    if (!text || length <= 0) return true;
    OnText(x, y, std::string(text, static_cast<std::size_t>(length)));
    return true;
}

CSize CDC::GetTextExtent(const char* text, int length) {
    std::string s = (text && length > 0) ? std::string(text, static_cast<std::size_t>(length)) : std::string();
    return OnMeasure(m_font, s);
}

unsigned CDC::SetTextAlign(unsigned flags) {
    unsigned old = m_align;
    m_align = flags;
    OnStateChange();
    return old;
}

int CDC::SetBkMode(int mode) {
    int old = m_bkMode;
    m_bkMode = mode;
    OnStateChange();
    return old;
}

CPen CDC::SelectObject(const CPen& pen) {
    CPen old = m_pen;
    m_pen = pen;
    OnStateChange();
    return old;
}

CFont CDC::SelectObject(const CFont& font) {
    CFont old = m_font;
    m_font = font;
    OnStateChange();
    return old;
}

CBrush CDC::SelectObject(const CBrush& brush) {
    CBrush old = m_brush;
    m_brush = brush;
    OnStateChange();
    return old;
}

CBrush CDC::SelectStockObject(int brushId) {
    CBrush b;
    switch (brushId) {
        case NULL_BRUSH: b.hollow = true; break;
        case BLACK_BRUSH: b.color = RGB(0, 0, 0); break;
        case DKGRAY_BRUSH: b.color = RGB(64, 64, 64); break;
        case GRAY_BRUSH: b.color = RGB(128, 128, 128); break;
        case LTGRAY_BRUSH: b.color = RGB(192, 192, 192); break;
        default: b.color = RGB(255, 255, 255); break;
    }
    return SelectObject(b);
}
