// The Barchart dialog: one data file under a replication treatment, a title,
// what a bar is, and the display window (each a text; empty means "from the
// data").
#pragma once

#include <string>

#include "dialog/FileDialogs.h"

enum { BARS_DEFAULT = -1, BARS_REPLICATIONS = 0, BARS_OBSERVATIONS = 1 };

class CBarchDlg : public CBaseDlg {
public:
    int Validate(int* failingIndex) override;

    // BARS_DEFAULT: replications when the treatment spans more than one, else observations.
    int m_nBars = BARS_DEFAULT;
    std::string m_strBeginTime;
    std::string m_strEndTime;
    std::string m_strMinValue;
    std::string m_strMaxValue;

    // Parsed by Validate; -1 for an empty time, 0.0 for an empty value.
    double m_dBeginTime = -1.0;
    double m_dEndTime = -1.0;
    double m_dMinValue = 0.0;
    double m_dMaxValue = 0.0;

private:
    int Fail(int id, DlgControl control);
};
