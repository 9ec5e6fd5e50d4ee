// A device context that writes an SVG document. Text is set in Liberation Sans
// (falling back to the faces it is metric-compatible with) and measured with
// that face's advance widths. Lines drawn one after another with the same pen
// become one path; within one pixel column a run of joined lines is reduced to
// the points that change what is drawn, so that a curve of millions of points
// costs a few points per column.
#pragma once

#include <string>
#include <vector>

#include "framework/DC.h"

class CSvgDC : public CDC {
public:
    // width and height in device units (pixels); title goes into <title>.
    CSvgDC(int width, int height, const std::string& title = "");

    int GetDeviceCaps(int index) const override;

    // Starts a pane: a clipped region at (x, y) whose drawing uses coordinates
    // local to it, as a child window of a split frame would.
    void BeginPane(int x, int y, int width, int height);
    void EndPane();

    // Closes every open element and returns the document.
    std::string Finish();

    // Points written into paths so far (for measuring the reduction).
    long PathPoints() const { return m_pathPoints; }

protected:
    void OnLine(CPoint from, CPoint to) override;
    void OnPolyline(CPoint from, const CPoint* points, std::size_t count) override;
    void OnRectangle(const CRect& rect) override;
    void OnText(int x, int y, const std::string& text) override;
    CSize OnMeasure(const CFont& font, const std::string& text) override;
    void OnStateChange() override;

private:
    struct Column {
        bool open = false;
        int x = 0;
        int entry = 0, last = 0, low = 0, high = 0;
        bool lowFirst = false;
        long count = 0;
    };

    void AddPoint(CPoint p);
    void CloseColumn();
    void EmitPoint(CPoint p, bool move);
    void FlushPath();

    int m_width;
    int m_height;
    std::string m_out;
    int m_panes = 0;

    // The open path: its pen, the last point given and the pixel column being reduced.
    bool m_pathOpen = false;
    CPen m_pathPen;
    CPoint m_last;
    CPoint m_emitted;
    bool m_emittedAny = false;
    bool m_pendingMove = false;
    Column m_col;
    long m_pathPoints = 0;
};

// The text a device context names for a pen style's dashes ("" for solid).
const char* svg_DashArray(int penStyle);
