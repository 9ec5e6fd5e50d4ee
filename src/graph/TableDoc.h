// The table of observations: the (time, value) records of one or more data
// files side by side, each under its own replication treatment, inside a
// window of times and a range of rows. The rows are never held: they are read
// from the files when they are wanted, in order for a terminal and a page at
// a time for a window that scrolls (FetchRows), so that a table of any length
// fits in a few megabytes.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "graph/GraphDoc.h"
#include "graph/TableRows.h"

// A file of the table as its heading names it.
struct TableFileResult {
    std::string path;
    std::string reps;   // the treatment as the user wrote it
    int treatment = 1;
    std::string ident;  // the header's identifier, trimmed
    std::string title;
    int kind = 0;
    bool isDouble = true;
};

struct TableResults {
    std::string title;
    std::vector<TableFileResult> files;
    TableWindow window;        // the times and rows asked for
    bool timesGiven[2] = {false, false};
};

class CTableDoc : public CGraphDoc {
public:
    // Takes the files, title, times and rows of a CTableDlg and opens every
    // file at its treatment's first record; 0 or a message id.
    int InitFromDialog(CDialog& dlg) override;
    void OnCloseDocument() override;

    const TableResults& Results() const { return m_results; }

    // Rows first .. first + count - 1 (0-based, replication ends included)
    // into out, which is cleared first; fewer at the end of the table.
    // 0 or 15834 after a read error.
    int FetchRows(std::int64_t first, std::int64_t count, std::vector<TableRow>* out);
    // Rows in the table; the first call reads the files through once.
    std::int64_t RowCount() { return m_rows.Count(); }
    // The rows in order, for a whole-table writer: positioned at the first.
    CTableRows& Rows();

private:
    TableResults m_results;
    CTableRows m_rows;
};
