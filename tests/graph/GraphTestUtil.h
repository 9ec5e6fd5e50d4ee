// Helpers for the graph tests: a laid-out screen or printer and text lookups.
#pragma once

#include <string>
#include <vector>

#include "framework/RecordingDC.h"
#include "graph/GraphLayout.h"

// Lays the module's layout out for a client area on the given context.
inline void test_Layout(CRecordingDC& dc, int width, int height) {
    g_Layout = GraphLayout{};
    LayoutPlotArea(CRect{0, 0, width, height}, dc);
}

inline std::vector<std::string> test_TextsOf(const std::vector<DrawOp>& ops) {
    std::vector<std::string> out;
    for (const DrawOp& op : ops)
        if (op.kind == DrawOp::kText) out.push_back(op.text);
    return out;
}

// Text ops whose reference point is below y (the x-axis labels and titles).
inline std::vector<DrawOp> test_TextsBetween(const CRecordingDC& dc, int yLow, int yHigh) {
    std::vector<DrawOp> out;
    for (const DrawOp& op : dc.Texts())
        if (op.from.y >= yLow && op.from.y < yHigh) out.push_back(op);
    return out;
}
