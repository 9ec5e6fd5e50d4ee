// Report of the one-way analysis of variance: the groups, the ANOVA table (or
// Welch's test), and one table of simultaneous intervals per method.
#pragma once

#include "report/TextView.h"

struct OnewayResult;

class COnewyTextView : public CTextView {
public:
    void WriteReport(FILE* stream) override;
    // The report of a result, whichever document holds it.
    void WriteResult(FILE* stream, const OnewayResult& result);

private:
    void WriteTest(FILE* out, double f, double critical, double p, bool rejected, double alpha);
    void WriteComparisons(FILE* out, const OnewayResult& result, int method);
};
