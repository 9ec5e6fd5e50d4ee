// A device context that keeps every drawing operation with the state it was
// drawn in, so tests can check a graph's geometry. Text is measured as a
// fixed-pitch face: every character half the cell height wide (at least one
// unit), the extent's height the cell height; simple to work out by hand.
#pragma once

#include <string>
#include <vector>

#include "framework/DC.h"

struct DrawOp {
    enum Kind { kLine, kRect, kText } kind = kLine;
    CPoint from;       // lines: start; text: reference point
    CPoint to;         // lines: end
    CRect rect;        // rectangles, normalised
    std::string text;  // text
    CPen pen;
    CFont font;
    CBrush brush;
    unsigned align = 0;
    int bkMode = 0;
};

class CRecordingDC : public CDC {
public:
    explicit CRecordingDC(int horzRes = 800, int vertRes = 600, bool printing = false)
        : m_horzRes(horzRes), m_vertRes(vertRes), m_printing(printing) {}

    int GetDeviceCaps(int index) const override;
    bool IsPrinting() const override { return m_printing; }

    const std::vector<DrawOp>& Ops() const { return m_ops; }
    std::vector<DrawOp> Lines() const { return Only(DrawOp::kLine); }
    std::vector<DrawOp> Texts() const { return Only(DrawOp::kText); }
    std::vector<DrawOp> Rects() const { return Only(DrawOp::kRect); }
    // The first text op whose text equals text; null when none.
    const DrawOp* FindText(const std::string& text) const;
    void Clear() { m_ops.clear(); }

    static int CharWidth(const CFont& font);

protected:
    void OnLine(CPoint from, CPoint to) override;
    void OnRectangle(const CRect& rect) override;
    void OnText(int x, int y, const std::string& text) override;
    CSize OnMeasure(const CFont& font, const std::string& text) override;

private:
    std::vector<DrawOp> Only(DrawOp::Kind kind) const;
    DrawOp Stamp(DrawOp::Kind kind) const;

    int m_horzRes;
    int m_vertRes;
    bool m_printing;
    std::vector<DrawOp> m_ops;
};
