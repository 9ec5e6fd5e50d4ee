// Report of the standard deviation intervals: identifiers cut at 16
// characters, no continuation line.
#pragma once

#include "stats/IntrvlTextView.h"

class CSdIntTextView : public CIntrvlTextView {
public:
    CSdIntTextView();
    void WriteReport(FILE* stream) override;
};
