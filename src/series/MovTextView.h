// The moving average's report: the series, the window and method, for
// trailing averages the forecast and its error measures, and the MSER-5
// warm-up with the Batch/Truncate command line that applies it.
#pragma once

#include <string>

#include "report/TextView.h"

struct MoveResults;

class CMovTextView : public CTextView {
public:
    CMovTextView();
    void WriteReport(FILE* stream) override;
};

// The command line that truncates the warm-up found in file under the
// treatment text reps: oproc batch FILE [--reps R] --trunc-type O --trunc N.
std::string move_BatchCommand(const std::string& file, const std::string& reps, long truncation);
