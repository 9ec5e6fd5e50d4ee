// The moving average graph (kind 0): the series thin and light, the moving
// average bold, and the suggested warm-up as a vertical line, against the
// observation number.
#pragma once

#include "graph/BaseView.h"

class CMovView : public CBaseView {
public:
    int DrawGraph(CDC& dc) override;
};

inline const COLORREF kMovRaw = RGB(175, 175, 175);
inline const COLORREF kMovSmoothed = RGB(0, 0, 200);
inline const COLORREF kMovWarmup = RGB(220, 0, 0);
