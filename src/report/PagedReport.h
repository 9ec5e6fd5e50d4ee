// A report too long to hold as text. Its view keeps only the heading as its
// text; the lines of the body are made when they are wanted: a page at a time
// for a window that scrolls (a virtual list over BodyLineCount lines), all in
// order for a terminal or a file (WriteAll), in the report's fixed columns or
// as CSV or JSON for scripts.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>

enum class ReportFormat { Text, Csv, Json };

class CPagedReport {
public:
    virtual ~CPagedReport() = default;

    // Lines in the body; may read the whole data once.
    virtual std::int64_t BodyLineCount() = 0;
    // Up to count lines of the body from line first (0-based), each ending in
    // a newline; fewer at the end.
    virtual std::string BodyLines(std::int64_t first, std::int64_t count) = 0;
    // The whole report in the format, heading included, written as it is
    // made. 0, or the id of a message (already shown) that cut it short.
    virtual int WriteAll(std::ostream& out, ReportFormat format) = 0;
};
