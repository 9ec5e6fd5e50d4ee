// The Table dialog: data files with their replications, a title, a window of
// times and a range of rows (each a text; empty means "all").
#pragma once

#include <cstdint>
#include <string>

#include "dialog/FileDialogs.h"

class CTableDlg : public CBaseMultiDlg {
public:
    int Validate(int* failingIndex) override;

    std::string m_strBeginTime;
    std::string m_strEndTime;
    std::string m_strFirst;
    std::string m_strCount;

    // Parsed by Validate: -1 for an empty time, row 1 and no limit (0) for
    // an empty range. Counts typed as reals are cut to their whole part.
    double m_dBeginTime = -1.0;
    double m_dEndTime = -1.0;
    std::int64_t m_nFirst = 1;
    std::int64_t m_nCount = 0;

private:
    int Fail(int id, DlgControl control);
};
