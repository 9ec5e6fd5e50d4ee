// The Batch/Truncate summary: what was truncated, the batches formed, what was
// left over at the end, and the correlation estimate with its test.
#pragma once

#include "report/TextView.h"

class CFiltrDoc;

class CFiltrView : public CTextView {
public:
    CFiltrView();
    void WriteReport(FILE* stream) override;

private:
    const CFiltrDoc* Doc() const;
};
