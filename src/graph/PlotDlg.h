// The Plot dialog: data files with their replications, titles, and the time
// window and value range shown (each a text; empty means "from the data").
#pragma once

#include <string>

#include "dialog/FileDialogs.h"

class CPlotDlg : public CBaseMultiDlg {
public:
    CPlotDlg();

    int Validate(int* failingIndex) override;
    // Title, axis labels, time window and value range: a plot has no level.
    std::vector<DlgField> Fields() override;

    static constexpr std::size_t kMaxLabel = 128;

    std::string m_strXLabel;
    std::string m_strYLabel;
    std::string m_strBeginTime;
    std::string m_strEndTime;
    std::string m_strMinValue;
    std::string m_strMaxValue;

    // Parsed by Validate; -1 for an empty time, 0.0 for an empty value.
    double m_dBeginTime = 0.0;
    double m_dEndTime = 0.0;
    double m_dMinValue = 0.0;
    double m_dMaxValue = 0.0;

private:
    int Fail(int id, DlgControl control);
};
