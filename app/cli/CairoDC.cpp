#include "CairoDC.h"

#include <cstdlib>
#include <vector>

#include "framework/FontMetrics.h"
#include "framework/SvgDC.h"

namespace {

void SetColour(cairo_t* cr, COLORREF c) {
    cairo_set_source_rgb(cr, GetRValue(c) / 255.0, GetGValue(c) / 255.0, GetBValue(c) / 255.0);
}

}  // namespace

CCairoDC::CCairoDC(cairo_t* cr, int width, int height) : m_cr(cr), m_width(width), m_height(height) {
    cairo_set_source_rgb(m_cr, 1, 1, 1);
    cairo_paint(m_cr);
    // The SVG's half-pixel offset: a one-pixel line covers whole pixels.
    cairo_translate(m_cr, 0.5, 0.5);
    cairo_set_line_cap(m_cr, CAIRO_LINE_CAP_BUTT);
    cairo_set_line_join(m_cr, CAIRO_LINE_JOIN_MITER);
    // Text is placed by the core's design advances: no hinting of metrics.
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_set_font_options(m_cr, options);
    cairo_font_options_destroy(options);
}

CCairoDC::~CCairoDC() { Flush(); }

int CCairoDC::GetDeviceCaps(int index) const {
    if (index == HORZRES) return m_width;
    if (index == VERTRES) return m_height;
    return 0;
}

void CCairoDC::BeginPane(int x, int y, int width, int height) {
    Flush();
    cairo_save(m_cr);
    cairo_translate(m_cr, x, y);
    // The clip lies on whole pixels of the unshifted grid.
    cairo_rectangle(m_cr, -0.5, -0.5, width, height);
    cairo_clip(m_cr);
}

void CCairoDC::EndPane() {
    Flush();
    cairo_restore(m_cr);
}

void CCairoDC::SetPen(const CPen& pen) {
    SetColour(m_cr, pen.color);
    const double width = pen.width > 1 ? pen.width : 1;
    cairo_set_line_width(m_cr, width);
    std::vector<double> dashes;
    for (const char* p = svg_DashArray(pen.style); *p;) {
        char* end = nullptr;
        dashes.push_back(std::strtod(p, &end));
        p = *end == ',' ? end + 1 : end;
    }
    cairo_set_dash(m_cr, dashes.data(), static_cast<int>(dashes.size()), 0);
    // Crisp lines as on a screen (the SVG's crispEdges); text stays smooth.
    cairo_set_antialias(m_cr, CAIRO_ANTIALIAS_NONE);
}

void CCairoDC::OnStateChange() {
    if (m_pathOpen && !(GetCurrentPen() == m_pathPen)) Flush();
}

void CCairoDC::OnLine(CPoint from, CPoint to) {
    if (GetCurrentPen().style == PS_NULL) return;
    if (m_pathOpen && (from.x != m_last.x || from.y != m_last.y || !(GetCurrentPen() == m_pathPen))) Flush();
    if (!m_pathOpen) {
        m_pathPen = GetCurrentPen();
        m_pathOpen = true;
        cairo_move_to(m_cr, from.x, from.y);
        m_last = from;
    }
    // A dense curve repeats points; they add nothing to the path.
    if (to.x != m_last.x || to.y != m_last.y) cairo_line_to(m_cr, to.x, to.y);
    m_last = to;
}

void CCairoDC::Flush() {
    if (!m_pathOpen) return;
    SetPen(m_pathPen);
    cairo_stroke(m_cr);
    m_pathOpen = false;
}

void CCairoDC::OnRectangle(const CRect& r) {
    Flush();
    const CBrush& brush = GetCurrentBrush();
    const CPen& pen = GetCurrentPen();
    cairo_rectangle(m_cr, r.left, r.top, r.Width() - 1, r.Height() - 1);
    if (!brush.hollow) {
        SetColour(m_cr, brush.color);
        cairo_set_antialias(m_cr, CAIRO_ANTIALIAS_NONE);
        if (pen.style == PS_NULL) {
            cairo_fill(m_cr);
            return;
        }
        cairo_fill_preserve(m_cr);
    }
    if (pen.style == PS_NULL) {
        cairo_new_path(m_cr);
        return;
    }
    SetPen(pen);
    cairo_stroke(m_cr);
}

void CCairoDC::OnText(int x, int y, const std::string& text) {
    Flush();
    const CFont& font = GetCurrentFont();
    const FontBox box = font_Box(font);
    const unsigned align = GetTextAlign();
    double baseline = y + box.ascent;
    if ((align & TA_BASELINE) == TA_BASELINE)
        baseline = y;
    else if (align & TA_BOTTOM)
        baseline = y - box.descent;
    const int width = font_TextExtent(font, text).cx;
    int left = x;
    if ((align & TA_CENTER) == TA_CENTER)
        left = x - width / 2;
    else if (align & TA_RIGHT)
        left = x - width;
    // Text sits in the unshifted pixel grid, as in the SVG.
    cairo_save(m_cr);
    cairo_translate(m_cr, -0.5, -0.5);
    if (GetBkMode() == OPAQUE) {
        cairo_set_antialias(m_cr, CAIRO_ANTIALIAS_NONE);
        cairo_set_source_rgb(m_cr, 1, 1, 1);
        cairo_rectangle(m_cr, left, baseline - box.ascent, width, box.ascent + box.descent);
        cairo_fill(m_cr);
    }
    cairo_set_antialias(m_cr, CAIRO_ANTIALIAS_DEFAULT);
    cairo_select_font_face(m_cr, font_Face(font.weight >= 600).family, CAIRO_FONT_SLANT_NORMAL,
                           font.weight >= 600 ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(m_cr, box.em);
    cairo_set_source_rgb(m_cr, 0, 0, 0);
    cairo_move_to(m_cr, left, baseline);
    cairo_show_text(m_cr, text.c_str());
    cairo_restore(m_cr);
}

CSize CCairoDC::OnMeasure(const CFont& font, const std::string& text) { return font_TextExtent(font, text); }
