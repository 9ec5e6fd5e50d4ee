// The summaries of the file conversions: a title, an empty line, then one
// labelled line per field in the shared report formats.
#pragma once

#include "report/TextView.h"

class CExprtView : public CTextView {
public:
    void WriteReport(FILE* stream) override;
};

class CImprtView : public CTextView {
public:
    void WriteReport(FILE* stream) override;
};

class CLoadView : public CTextView {
public:
    void WriteReport(FILE* stream) override;
};
