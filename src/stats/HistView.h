// The histogram chart (graph kind 2): a bar of relative frequency (or of the
// proportion of time) per cell, what fell outside the cells noted in the title.
#pragma once

#include <string>

#include "graph/BaseView.h"

struct HistogramResult;

class CHistView : public CBaseView {
public:
    CHistView() { m_nGraphKind = GK_HISTOGRAM; }

    int DrawGraph(CDC& dc) override;
    // The chart of a result, whichever document holds it.
    void DrawResult(CDC& dc, const HistogramResult& r, const std::string& title, const std::string& xTitle);
};

inline const COLORREF kHistBar = RGB(70, 110, 200);
