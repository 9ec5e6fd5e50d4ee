// A device context that paints with cairo, for graphs written as PNG or PDF.
// It draws what the SVG writer draws: Liberation Sans placed by the core's
// own advance widths, one-pixel lines on whole pixels, the same dash patterns
// and colours, so the three forms of a graph agree.
#pragma once

#include <cairo.h>

#include "framework/DC.h"

class CCairoDC : public CDC {
public:
    // cr paints a width x height device-unit area (already scaled to the
    // surface's density).
    CCairoDC(cairo_t* cr, int width, int height);
    ~CCairoDC() override;
    CCairoDC(const CCairoDC&) = delete;
    CCairoDC& operator=(const CCairoDC&) = delete;

    int GetDeviceCaps(int index) const override;

    // A clipped pane at (x, y) with coordinates local to it, as CSvgDC has.
    void BeginPane(int x, int y, int width, int height);
    void EndPane();
    // Strokes the joined lines gathered so far.
    void Flush();

protected:
    void OnLine(CPoint from, CPoint to) override;
    void OnRectangle(const CRect& rect) override;
    void OnText(int x, int y, const std::string& text) override;
    CSize OnMeasure(const CFont& font, const std::string& text) override;
    void OnStateChange() override;

private:
    void SetPen(const CPen& pen);

    cairo_t* m_cr;
    int m_width;
    int m_height;
    // Lines drawn one after another with the same pen become one path.
    bool m_pathOpen = false;
    CPen m_pathPen;
    CPoint m_last;
};
