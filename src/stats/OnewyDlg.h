// Parameter dialog of the one-way analysis of variance: the interval dialog's
// list of data files (one group per entry), title and level, and the choice
// of comparisons.
#pragma once

#include "stats/IntrvlDlg.h"
#include "stats/Oneway.h"

class COnewyDlg : public CIntrvlDlg {
public:
    COnewyDlg() = default;

    // The interval dialog's checks, then a level that leaves some error
    // probability and some confidence (0 and 100 percent: 15813).
    int Validate(int* failingIndex) override;
    std::vector<DlgField> Fields() override;

    int m_nMethod = ONEWAY_CLASSICAL;  // or one of ONEWAY_TUKEY, _SCHEFFE, _BONFERRONI
    bool m_bUnequalVariances = false;  // Welch's test and Games-Howell intervals
};
