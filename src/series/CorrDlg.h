// Parameter dialog of the correlogram: data file, replications, title, the
// maximum lag and the file the correlations are saved in.
#pragma once

#include <string>

#include "dialog/FileDialogs.h"

class CCorrDlg : public CBaseDlg {
public:
    static constexpr int kMaxLagsLimit = 9999;

    std::string m_strMaxLags;  // as typed
    int m_nMaxLags = 0;        // set by ExchangeFields
    std::string m_strOutFile;  // empty: the correlations are not saved

    // The framework's field exchange before validation: the maximum lags must
    // be an integer from 0 to 9999. False with the framework's text.
    bool ExchangeFields(std::string* message) override;
    int Validate(int* failingIndex) override;
    std::vector<DlgField> Fields() override;
};

// The maximum lag when none is given, for the file under the treatment text
// reps (CorrDefaultLags.cpp); 0 when the file or the treatment cannot be read.
int corr_DefaultMaxLags(const std::string& path, const std::string& reps);
