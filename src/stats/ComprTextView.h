// The report of the comparison of means.
#pragma once

#include "report/TextView.h"

class CComprTextView : public CTextView {
public:
    void WriteReport(FILE* stream) override;
};
