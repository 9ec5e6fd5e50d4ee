// The correlogram summary.
#pragma once

#include "report/TextView.h"

class CCorrTextView : public CTextView {
public:
    void WriteReport(FILE* stream) override;
};
