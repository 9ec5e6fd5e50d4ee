// Parameter dialog of the moving average: the data file and its
// replications, a title, the window, the method (a combo: "Centred" for
// smoothing, "Trailing" for forecasting), the warm-up suggestion and the file
// that receives the smoothed series.
#pragma once

#include <string>

#include "dialog/FileDialogs.h"
#include "series/MovingAverage.h"

class CMoveDlg : public CBaseDlg {
public:
    static constexpr int kWindowLimit = 999999;

    std::string m_strWindow = "1";  // as typed
    std::string m_strMethod = "Centred";  // read by its first letter; empty or unknown: centred
    std::string m_strOutFile;       // empty: the smoothed series is not saved
    bool m_bWarmup = true;          // MSER-5 on the series

    int m_nWindow = 1;  // set by ExchangeFields

    // The window must be a whole number from 1 to 999999.
    bool ExchangeFields(std::string* message) override;
    int Validate(int* failingIndex) override;
    // Title, window, method, the warm-up check and the output file.
    std::vector<DlgField> Fields() override;

    // The method a combo text names: 'T' trailing, anything else centred.
    static MoveMethod MethodCode(const std::string& text);
};
