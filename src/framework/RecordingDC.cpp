#include "framework/RecordingDC.h"

#include <cstdlib>

int CRecordingDC::GetDeviceCaps(int index) const {
    if (index == HORZRES) return m_horzRes;
    if (index == VERTRES) return m_vertRes;
    return 0;
}

const DrawOp* CRecordingDC::FindText(const std::string& text) const {
    for (const DrawOp& op : m_ops)
        if (op.kind == DrawOp::kText && op.text == text) return &op;
    return nullptr;
}

int CRecordingDC::CharWidth(const CFont& font) {
    int w = std::abs(font.height) / 2;
    return w < 1 ? 1 : w;
}

DrawOp CRecordingDC::Stamp(DrawOp::Kind kind) const {
    DrawOp op;
    op.kind = kind;
    op.pen = GetCurrentPen();
    op.font = GetCurrentFont();
    op.brush = GetCurrentBrush();
    op.align = GetTextAlign();
    op.bkMode = GetBkMode();
    return op;
}

void CRecordingDC::OnLine(CPoint from, CPoint to) {
    DrawOp op = Stamp(DrawOp::kLine);
    op.from = from;
    op.to = to;
    m_ops.push_back(std::move(op));
}

void CRecordingDC::OnRectangle(const CRect& rect) {
    DrawOp op = Stamp(DrawOp::kRect);
    op.rect = rect;
    m_ops.push_back(std::move(op));
}

void CRecordingDC::OnText(int x, int y, const std::string& text) {
    DrawOp op = Stamp(DrawOp::kText);
    op.from = {x, y};
    op.text = text;
    m_ops.push_back(std::move(op));
}

CSize CRecordingDC::OnMeasure(const CFont& font, const std::string& text) {
    return {CharWidth(font) * static_cast<int>(text.size()), std::abs(font.height)};
}

std::vector<DrawOp> CRecordingDC::Only(DrawOp::Kind kind) const {
    std::vector<DrawOp> out;
    for (const DrawOp& op : m_ops)
        if (op.kind == kind) out.push_back(op);
    return out;
}
