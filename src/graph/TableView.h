// The table's view: text only. Its held text is the heading (the files, then
// the column heads); the rows are made from the document when they are
// wanted, as lines of fixed columns (%12.6g) or as CSV or JSON.
#pragma once

#include "report/PagedReport.h"
#include "report/TextView.h"

class CTableDoc;
struct TableRow;

class CTableView : public CTextView, public CPagedReport {
public:
    // The heading only: a table of any length is never held.
    void WriteReport(FILE* stream) override;

    std::int64_t BodyLineCount() override;
    std::string BodyLines(std::int64_t first, std::int64_t count) override;
    int WriteAll(std::ostream& out, ReportFormat format) override;

    // One row as a line of the text body, newline included.
    void AppendTextLine(const TableRow& row, std::string& out) const;

private:
    CTableDoc* Doc() const;
};
