// The histogram's report: the file, the statistics beside the histogram, then
// one line per cell with its bounds, count (or time), relative and cumulative
// frequency.
#pragma once

#include <string>

#include "report/TextView.h"

struct HistogramResult;

class CHistTextView : public CTextView {
public:
    void WriteReport(FILE* stream) override;
    // The report of a result, whichever document holds it.
    void WriteResult(FILE* stream, const HistogramResult& r, const std::string& file, int treatment,
                     const std::string& title);
};

// A treatment as the reports name it: "All", "Lumped" or the number.
std::string hist_TreatmentName(int treatment);
