// Parameter dialog of the histogram: the data file and its replications, a
// title, and the cells (first lower bound, width, count), each left empty for
// the data to decide.
#pragma once

#include <string>

#include "dialog/FileDialogs.h"

class CHistDlg : public CBaseDlg {
public:
    std::string m_strStart;  // as typed; empty: from the data
    std::string m_strWidth;
    std::string m_strCells;

    // Filled by the field exchange and the checks.
    double m_dStart = 0.0;
    double m_dWidth = 0.0;
    int m_nCells = 0;  // 0: from the data

    // The cell count, when given, is a whole number from 1 to 200.
    bool ExchangeFields(std::string* message) override;
    int Validate(int* failingIndex) override;
    // Title, then the cells.
    std::vector<DlgField> Fields() override;
};
