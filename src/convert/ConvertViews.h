// The summaries of the file conversions: a title, an empty line, then one
// labelled line per field of the document's summary (ConvertSummary.h), texts
// left-aligned and numbers right-aligned in the shared report formats. Each
// conversion's template names a view class of its own.
#pragma once

#include "report/TextView.h"

class CConvertView : public CTextView {
public:
    void WriteReport(FILE* stream) override;
};

class CExprtView : public CConvertView {};
class CImprtView : public CConvertView {};
class CLoadView : public CConvertView {};
class CAppendView : public CConvertView {};
class CDiffView : public CConvertView {};
