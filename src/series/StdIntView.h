// The standardized time series intervals' chart: the classical one under its
// own title.
#pragma once

#include "stats/IntrvlView.h"

class CStdIntView : public CIntrvlView {
public:
    CStdIntView() : CIntrvlView(15953) {}
};
