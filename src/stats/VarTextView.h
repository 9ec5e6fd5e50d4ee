// The report of the comparison of variances.
#pragma once

#include "report/TextView.h"

class CVarTextView : public CTextView {
public:
    void WriteReport(FILE* stream) override;
};
