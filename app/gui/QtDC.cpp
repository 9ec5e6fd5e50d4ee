#include "QtDC.h"

#include <QStringList>

#include "framework/FontMetrics.h"
#include "framework/SvgDC.h"

namespace {

QColor ToQColor(COLORREF c) { return QColor(GetRValue(c), GetGValue(c), GetBValue(c)); }

}  // namespace

CQtDC::CQtDC(QPainter& painter, int width, int height, bool printing)
    : m_painter(painter), m_width(width), m_height(height), m_printing(printing) {
    // Crisp one-pixel lines as the host's graphics interface draws them; text stays smooth.
    m_painter.setRenderHint(QPainter::Antialiasing, false);
    m_painter.setRenderHint(QPainter::TextAntialiasing, true);
}

CQtDC::~CQtDC() { Flush(); }

int CQtDC::GetDeviceCaps(int index) const {
    if (index == HORZRES) return m_width;
    if (index == VERTRES) return m_height;
    return 0;
}

QPen CQtDC::ToQPen(const CPen& pen) {
    if (pen.style == PS_NULL) return QPen(Qt::NoPen);
    // Width 0 is cosmetic: one device pixel whatever the transformation.
    QPen q(ToQColor(pen.color), pen.width > 1 ? pen.width : 0);
    // A flat cap leaves out a line's last pixel, as LineTo does.
    q.setCapStyle(Qt::FlatCap);
    q.setJoinStyle(Qt::MiterJoin);
    if (const char* dashes = svg_DashArray(pen.style); *dashes) {
        QList<qreal> pattern;
        for (const QString& part : QString::fromLatin1(dashes).split(u','))
            pattern << part.toDouble() / (pen.width > 1 ? pen.width : 1);
        q.setDashPattern(pattern);
    }
    return q;
}

QFont CQtDC::ToQFont(const CFont& font, double dpi) {
    QFont q;
    q.setFamilies({QStringLiteral("Liberation Sans"), QStringLiteral("Arial"), QStringLiteral("Helvetica")});
    q.setStyleHint(QFont::SansSerif);
    q.setPointSizeF(font_Box(font).em * 72.0 / dpi);
    q.setWeight(font.weight >= 600 ? QFont::Bold : QFont::Normal);
    // The widths come from the face's design advances: no hinting, no kerning.
    q.setHintingPreference(QFont::PreferNoHinting);
    q.setKerning(false);
    return q;
}

void CQtDC::OnStateChange() {
    if (!m_polyline.isEmpty() && !(GetCurrentPen() == m_polylinePen)) Flush();
}

void CQtDC::OnLine(CPoint from, CPoint to) {
    QPoint start(from.x, from.y);
    if (!m_polyline.isEmpty() && (m_polyline.last() != start || !(GetCurrentPen() == m_polylinePen))) Flush();
    if (m_polyline.isEmpty()) {
        m_polylinePen = GetCurrentPen();
        m_polyline << start;
    }
    m_polyline << QPoint(to.x, to.y);
}

void CQtDC::Flush() {
    if (m_polyline.isEmpty()) return;
    m_painter.setPen(ToQPen(m_polylinePen));
    m_painter.setBrush(Qt::NoBrush);
    m_painter.drawPolyline(m_polyline);
    m_polyline.clear();
}

void CQtDC::OnRectangle(const CRect& r) {
    Flush();
    const CBrush& brush = GetCurrentBrush();
    m_painter.setPen(ToQPen(GetCurrentPen()));
    m_painter.setBrush(brush.hollow ? QBrush(Qt::NoBrush) : QBrush(ToQColor(brush.color)));
    // The outline covers the first Width() columns: the right and bottom edge stay out.
    m_painter.drawRect(QRect(r.left, r.top, r.Width() - 1, r.Height() - 1));
}

void CQtDC::OnText(int x, int y, const std::string& text) {
    Flush();
    const CFont& font = GetCurrentFont();
    FontBox box = font_Box(font);
    unsigned align = GetTextAlign();
    double baseline = y + box.ascent;
    if ((align & TA_BASELINE) == TA_BASELINE)
        baseline = y;
    else if (align & TA_BOTTOM)
        baseline = y - box.descent;
    double width = font_TextExtent(font, text).cx;
    double left = x;
    if ((align & TA_CENTER) == TA_CENTER)
        left = x - width / 2;
    else if (align & TA_RIGHT)
        left = x - width;
    if (GetBkMode() == OPAQUE)
        m_painter.fillRect(QRectF(left, baseline - box.ascent, width, box.ascent + box.descent), Qt::white);
    m_painter.setFont(ToQFont(font, m_painter.device()->logicalDpiY()));
    m_painter.setPen(Qt::black);
    m_painter.drawText(QPointF(left, baseline), QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
}

CSize CQtDC::OnMeasure(const CFont& font, const std::string& text) { return font_TextExtent(font, text); }
