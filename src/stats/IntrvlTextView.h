// Report of the classical intervals on the mean, one line per row; the
// standardized time series report is the same with its own strings.
#pragma once

#include "report/TextView.h"

class CIntrvlTextView : public CTextView {
public:
    CIntrvlTextView();
    void WriteReport(FILE* stream) override;

protected:
    int m_nTitleId;
    int m_nHeader1Id;  // a format taking the level as a fraction
    int m_nHeader2Id;
};
