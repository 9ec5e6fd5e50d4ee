// What a conversion tells its user: a titled list of labelled fields from
// which both the text summary and the results for scripts are made, so that
// the two always agree. Each conversion document gives its list; one view
// (ConvertViews.h) prints any of them.
#pragma once

#include <string>
#include <vector>

#include "datafile/FileGlobals.h"
#include "report/ResultValue.h"

struct SummaryField {
    int labelId;        // the report's label; 0: for scripts only
    const char* key;    // the name scripts read it by
    ResultValue value;  // a text or a whole number
    bool parameter;     // what the user asked for, rather than what the run found
};

struct ConversionSummary {
    // Starts with the title and the two files every conversion names.
    ConversionSummary(int titleId, const std::string& source, const std::string& destination);

    ConversionSummary& Text(int labelId, const char* key, std::string value, bool parameter = false);
    ConversionSummary& Count(int labelId, const char* key, long value, bool parameter = false);
    // The data kind's text for the report, its code and text for scripts.
    ConversionSummary& Kind(int kind);
    // "Double" or "Single".
    ConversionSummary& Precision(int isDouble);

    int titleId;
    std::vector<SummaryField> fields;
};

// The documents of the conversions.
class CConversion {
public:
    virtual ~CConversion() = default;
    virtual ConversionSummary Summary() const = 0;
};

// The summary's parameters and results, by key.
ResultRecord conv_ResultRecord(const ConversionSummary& summary);

// AnalysisFactory::results of a conversion document.
template <class Doc>
ResultRecord conv_Results(const Doc& doc) {
    return conv_ResultRecord(doc.Summary());
}

// The records a conversion copies, counted as its summary reports them.
struct RecordTally {
    int replications = 0;  // closing markers
    long observations = 0;
    long records = 0;      // every record, markers included
    bool ended = false;    // the -1.0 marker went by
    bool open = false;     // observations since the last closing marker

    void Add(double t, double v) {
        ++records;
        if (t <= MARK_END) {
            if (v == MARK_SKIP) return;
            ++replications;
            ended = v == MARK_END;
            open = false;
        } else {
            ++observations;
            open = true;
        }
    }
    // Whether the records made a whole file: ended by the -1.0 marker, or
    // batch output, whose last replication may end with the file (it is
    // then counted).
    bool Whole(int kind) {
        if (ended) return true;
        if (kind != KIND_FILTERED) return false;
        if (open) ++replications;
        open = false;
        return true;
    }
};
