// The device context of the desktop program: the core's drawing operations
// painted with a QPainter. Text is set in Liberation Sans and measured with
// the same advance widths as the SVG writer, so a window lays its graph out
// exactly as `--svg` does.
#pragma once

#include <QFont>
#include <QPainter>
#include <QPen>
#include <QPolygon>

#include "framework/DC.h"

class CQtDC : public CDC {
public:
    // painter is active on a device width x height device units large (what
    // HORZRES and VERTRES report). printing takes the paper path of the layout.
    CQtDC(QPainter& painter, int width, int height, bool printing = false);
    ~CQtDC() override;
    CQtDC(const CQtDC&) = delete;
    CQtDC& operator=(const CQtDC&) = delete;

    int GetDeviceCaps(int index) const override;
    bool IsPrinting() const override { return m_printing; }

    // Paints the joined lines gathered so far.
    void Flush();

    static QPen ToQPen(const CPen& pen);
    // The face at the size the font's em takes on a device of dpi dots per inch.
    static QFont ToQFont(const CFont& font, double dpi);

protected:
    void OnLine(CPoint from, CPoint to) override;
    void OnRectangle(const CRect& rect) override;
    void OnText(int x, int y, const std::string& text) override;
    CSize OnMeasure(const CFont& font, const std::string& text) override;
    void OnStateChange() override;

private:
    QPainter& m_painter;
    int m_width;
    int m_height;
    bool m_printing;
    // Lines drawn one after another with the same pen go out as one polyline:
    // a curve of many points costs one call, not one per point.
    QPolygon m_polyline;
    CPen m_polylinePen;
};
