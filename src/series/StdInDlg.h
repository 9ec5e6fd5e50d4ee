// Parameter dialog of the standardized time series intervals: the classical
// interval dialog under its own caption.
#pragma once

#include "stats/IntrvlDlg.h"

class CStdInDlg : public CIntrvlDlg {
public:
    // "Standardized Time Series Conf. Interval on Mean"
    CStdInDlg() : CIntrvlDlg(15918) {}
};
