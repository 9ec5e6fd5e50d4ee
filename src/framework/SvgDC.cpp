#include "framework/SvgDC.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "framework/FontMetrics.h"

namespace {

const char* kFamily = "'Liberation Sans', Arial, Helvetica, sans-serif";

void AppendInt(std::string& out, long v) {
    char buf[24];
    int n = std::snprintf(buf, sizeof buf, "%ld", v);
    out.append(buf, static_cast<std::size_t>(n));
}

void AppendReal(std::string& out, double v) {
    char buf[32];
    int n = std::snprintf(buf, sizeof buf, "%.2f", v);
    while (n > 0 && buf[n - 1] == '0') --n;
    if (n > 0 && buf[n - 1] == '.') --n;
    out.append(buf, static_cast<std::size_t>(n));
}

std::string Colour(COLORREF c) {
    char buf[8];
    std::snprintf(buf, sizeof buf, "#%02x%02x%02x", GetRValue(c), GetGValue(c), GetBValue(c));
    return buf;
}

void AppendEscaped(std::string& out, const std::string& text) {
    for (char c : text) {
        switch (c) {
            case '<': out += "&lt;"; break;
            case '>': out += "&gt;"; break;
            case '&': out += "&amp;"; break;
            case '"': out += "&quot;"; break;
            default:
                if (static_cast<unsigned char>(c) >= 32 || c == '\t') out += c;
        }
    }
}

void AppendStroke(std::string& out, const CPen& pen) {
    out += " stroke=\"" + Colour(pen.color) + "\"";
    if (pen.width > 1) {
        out += " stroke-width=\"";
        AppendInt(out, pen.width);
        out += '"';
    }
    const char* dash = svg_DashArray(pen.style);
    if (*dash) {
        out += " stroke-dasharray=\"";
        out += dash;
        out += '"';
    }
}

}  // namespace

const char* svg_DashArray(int penStyle) {
    // The cosmetic dash patterns of the host's graphics interface, in pixels.
    switch (penStyle) {
        case PS_DASH: return "18,6";
        case PS_DOT: return "3,3";
        case PS_DASHDOT: return "9,6,3,6";
        case PS_DASHDOTDOT: return "9,3,3,3,3,3";
        default: return "";
    }
}

CSvgDC::CSvgDC(int width, int height, const std::string& title) : m_width(width), m_height(height) {
    m_out = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" version=\"1.1\" width=\"";
    AppendInt(m_out, width);
    m_out += "\" height=\"";
    AppendInt(m_out, height);
    m_out += "\" viewBox=\"0 0 ";
    AppendInt(m_out, width);
    m_out += ' ';
    AppendInt(m_out, height);
    m_out += "\" xml:space=\"preserve\">\n";
    if (!title.empty()) {
        m_out += "<title>";
        AppendEscaped(m_out, title);
        m_out += "</title>\n";
    }
    m_out += "<rect width=\"100%\" height=\"100%\" fill=\"#ffffff\"/>\n";
    // Half-pixel offset: a one-pixel line then covers whole pixels, as on a screen.
    m_out += "<g transform=\"translate(0.5,0.5)\" fill=\"none\" stroke-linecap=\"butt\" shape-rendering=\"crispEdges\">\n";
}

int CSvgDC::GetDeviceCaps(int index) const {
    if (index == HORZRES) return m_width;
    if (index == VERTRES) return m_height;
    return 0;
}

void CSvgDC::BeginPane(int x, int y, int width, int height) {
    FlushPath();
    m_out += "<svg x=\"";
    AppendInt(m_out, x);
    m_out += "\" y=\"";
    AppendInt(m_out, y);
    m_out += "\" width=\"";
    AppendInt(m_out, width);
    m_out += "\" height=\"";
    AppendInt(m_out, height);
    m_out += "\" overflow=\"hidden\">\n";
    ++m_panes;
}

void CSvgDC::EndPane() {
    FlushPath();
    if (m_panes > 0) {
        m_out += "</svg>\n";
        --m_panes;
    }
}

std::string CSvgDC::Finish() {
    FlushPath();
    while (m_panes > 0) EndPane();
    m_out += "</g>\n</svg>\n";
    return std::move(m_out);
}

void CSvgDC::OnStateChange() {
    if (m_pathOpen && !(GetCurrentPen() == m_pathPen)) FlushPath();
}

void CSvgDC::OnLine(CPoint from, CPoint to) {
    if (m_pathOpen && !(GetCurrentPen() == m_pathPen)) FlushPath();
    if (!m_pathOpen) {
        m_pathOpen = true;
        m_pathPen = GetCurrentPen();
        m_emittedAny = false;
        m_col = Column{};
        m_last = {from.x + 1, from.y + 1};  // anything but from: the first line starts a subpath
    }
    if (from.x != m_last.x || from.y != m_last.y) {
        CloseColumn();
        m_pendingMove = true;
        AddPoint(from);
    }
    AddPoint(to);
}

void CSvgDC::OnPolyline(CPoint from, const CPoint* points, std::size_t count) {
    OnLine(from, points[0]);
    // Each further line starts where the last ended, in the same pen: only its
    // end is new. The points that stay in the open column, most of a dense
    // curve's, only move its extremes: that run is taken in a tight loop.
    std::size_t i = 1;
    while (i < count) {
        const std::size_t first = i;
        int low = m_col.low, high = m_col.high;
        for (; i < count && m_col.open && points[i].x == m_col.x; ++i) {
            low = std::min(low, points[i].y);
            high = std::max(high, points[i].y);
        }
        if (i > first) {
            m_col.low = low;
            m_col.high = high;
            m_col.count += static_cast<long>(i - first);
            m_col.last = points[i - 1].y;
            m_last = points[i - 1];
        }
        if (i < count) AddPoint(points[i++]);
    }
}

// Within one pixel column, joined lines cover the span between their lowest
// and highest point; the column is entered and left at its first and last
// point. Those four points draw the same pixels as every point of the run.
void CSvgDC::AddPoint(CPoint p) {
    m_last = p;
    if (m_col.open && p.x == m_col.x) {
        ++m_col.count;
        m_col.last = p.y;
        if (p.y < m_col.low) m_col.low = p.y;
        if (p.y > m_col.high) m_col.high = p.y;
        return;
    }
    CloseColumn();
    m_col.open = true;
    m_col.x = p.x;
    m_col.entry = m_col.last = m_col.low = m_col.high = p.y;
    m_col.count = 1;
}

void CSvgDC::CloseColumn() {
    if (!m_col.open) return;
    m_col.open = false;
    bool move = m_pendingMove;
    m_pendingMove = false;
    EmitPoint({m_col.x, m_col.entry}, move);
    if (m_col.count > 1) {
        // Visit the extreme farther from the exit first, so the path ends where it left.
        int nearLast = std::abs(m_col.last - m_col.low) <= std::abs(m_col.last - m_col.high) ? m_col.low : m_col.high;
        int farLast = nearLast == m_col.low ? m_col.high : m_col.low;
        EmitPoint({m_col.x, farLast}, false);
        EmitPoint({m_col.x, nearLast}, false);
        EmitPoint({m_col.x, m_col.last}, false);
    }
}

void CSvgDC::EmitPoint(CPoint p, bool move) {
    if (!move && m_emittedAny && p.x == m_emitted.x && p.y == m_emitted.y) return;
    if (!m_emittedAny) {
        m_out += "<path";
        AppendStroke(m_out, m_pathPen);
        m_out += " d=\"";
        move = true;
    }
    m_out += move ? 'M' : 'L';
    AppendInt(m_out, p.x);
    m_out += ' ';
    AppendInt(m_out, p.y);
    m_emitted = p;
    m_emittedAny = true;
    ++m_pathPoints;
}

void CSvgDC::FlushPath() {
    if (!m_pathOpen) return;
    CloseColumn();
    if (m_emittedAny) m_out += "\"/>\n";
    m_pathOpen = false;
    m_emittedAny = false;
    m_pendingMove = false;
}

void CSvgDC::OnRectangle(const CRect& r) {
    FlushPath();
    const CPen& pen = GetCurrentPen();
    const CBrush& brush = GetCurrentBrush();
    m_out += "<rect x=\"";
    AppendInt(m_out, r.left);
    m_out += "\" y=\"";
    AppendInt(m_out, r.top);
    m_out += "\" width=\"";
    AppendInt(m_out, r.Width() - 1);
    m_out += "\" height=\"";
    AppendInt(m_out, r.Height() - 1);
    m_out += "\" fill=\"";
    m_out += brush.hollow ? std::string("none") : Colour(brush.color);
    m_out += '"';
    if (pen.style == PS_NULL)
        m_out += " stroke=\"none\"";
    else
        AppendStroke(m_out, pen);
    m_out += "/>\n";
}

void CSvgDC::OnText(int x, int y, const std::string& text) {
    FlushPath();
    const CFont& font = GetCurrentFont();
    FontBox box = font_Box(font);
    double em = box.em;
    double ascent = box.ascent;
    double descent = box.descent;
    unsigned align = GetTextAlign();
    double baseline = y + ascent;
    if ((align & TA_BASELINE) == TA_BASELINE)
        baseline = y;
    else if (align & TA_BOTTOM)
        baseline = y - descent;
    const char* anchor = "start";
    CSize ext = OnMeasure(font, text);
    int left = x;
    if ((align & TA_CENTER) == TA_CENTER) {
        anchor = "middle";
        left = x - ext.cx / 2;
    } else if (align & TA_RIGHT) {
        anchor = "end";
        left = x - ext.cx;
    }
    // The text sits in the unshifted pixel grid, so undo the group's half pixel.
    if (GetBkMode() == OPAQUE) {
        m_out += "<rect x=\"";
        AppendReal(m_out, left - 0.5);
        m_out += "\" y=\"";
        AppendReal(m_out, baseline - ascent - 0.5);
        m_out += "\" width=\"";
        AppendInt(m_out, ext.cx);
        m_out += "\" height=\"";
        AppendReal(m_out, ascent + descent);
        m_out += "\" fill=\"#ffffff\" stroke=\"none\"/>\n";
    }
    m_out += "<text x=\"";
    AppendReal(m_out, x - 0.5);
    m_out += "\" y=\"";
    AppendReal(m_out, baseline - 0.5);
    m_out += "\" font-family=\"";
    m_out += kFamily;
    m_out += "\" font-size=\"";
    AppendReal(m_out, em);
    m_out += '"';
    if (font.weight >= 600) m_out += " font-weight=\"bold\"";
    if (*anchor != 's') {
        m_out += " text-anchor=\"";
        m_out += anchor;
        m_out += '"';
    }
    m_out += " fill=\"#000000\" stroke=\"none\">";
    AppendEscaped(m_out, text);
    m_out += "</text>\n";
}

CSize CSvgDC::OnMeasure(const CFont& font, const std::string& text) { return font_TextExtent(font, text); }
