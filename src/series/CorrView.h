// The correlogram chart: a bar per lag from lag - 1 to lag, as high as the
// autocorrelation, in one colour above zero and another below.
#pragma once

#include <string>
#include <vector>

#include "graph/BaseView.h"

class CCorrView : public CBaseView {
public:
    CCorrView() { m_nGraphKind = GK_CORRELOGRAM; }

    int DrawGraph(CDC& dc) override;
    // Takes the lags, the largest lag and the title of its CCorrDoc.
    void OnInitialUpdate() override;

    // Correlations of lags 1, 2, ...; the first maxLags are drawn.
    void SetLags(const std::vector<double>& correlations, int maxLags, const std::string& title);

    std::vector<double> m_correlations;
    int m_nMaxLags = 0;
    std::string m_strTitle;
};

inline const COLORREF kCorrPositive = RGB(0, 0, 255);
inline const COLORREF kCorrNegative = RGB(255, 0, 0);
