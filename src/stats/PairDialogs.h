// Parameter dialogs of the two pair analyses: comparison of means and
// comparison of variances. Both check the same file pairs; they differ in the
// range of confidence levels they take.
#pragma once

#include "dialog/FileDialogs.h"

// The file checks shared by the pair dialogs, pair by pair, A before B; the
// failing pair's index goes to *failingIndex. Refreshes each entry's treatment
// from its text.
int pair_CheckFiles(std::vector<CFilePairItem>& pairs, int* failingIndex);

class CComprDlg : public CBasePairsDlg {
public:
    enum { METHOD_PAIRED = 0, METHOD_TWO_SAMPLE = 1 };
    int m_nMethod = METHOD_PAIRED;

    std::vector<DlgField> Fields() override;

    // The level is taken as a fraction only: 0 to 1, both included.
    int Validate(int* failingIndex) override;
};

class CVarDlg : public CBasePairsDlg {
public:
    // Only levels strictly between 0 and 1 pass.
    int Validate(int* failingIndex) override;
};
