// The rows of a table of observations, made from the data files as they are
// read, so that no file is ever held. Files stand side by side: row k holds
// the k-th observation of the current replication of every file (an empty
// cell where a file has fewer), and when every file has ended its
// replication a replication-end row follows, unless no file has more.
// Rows are numbered from 1 across the whole table; replication-end rows have
// no number. A window of times and a range of row numbers narrow the table.
//
// Reading is sequential; for a window that scrolls, a mark is kept every
// kMarkEvery rows so that any row is reached by a seek and a short read.
#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <vector>

class CRecordReader;
struct DataFileHeader;

struct TableSource {
    std::string path;
    int treatment = 1;  // a replication number, REP_ALL or REP_LUMPED
};

// What narrows the table: times outside [from, to] are left out; the rows
// numbered first .. first + count - 1 are shown.
struct TableWindow {
    double from = -std::numeric_limits<double>::infinity();
    double to = std::numeric_limits<double>::infinity();
    std::int64_t first = 1;
    std::int64_t count = std::numeric_limits<std::int64_t>::max();
};

struct TableCell {
    bool filled = false;
    double time = 0.0;
    double value = 0.0;
};

struct TableRow {
    std::int64_t obs = 0;          // the row's number; 0 for a replication end
    std::vector<TableCell> cells;  // one per file
    bool IsRepEnd() const { return obs == 0; }
};

class CTableRows {
public:
    static constexpr std::int64_t kMarkEvery = 4096;

    CTableRows();
    ~CTableRows();
    CTableRows(const CTableRows&) = delete;
    CTableRows& operator=(const CTableRows&) = delete;

    // Opens every file and stands before the first row. 0, or the data
    // layer's id for a file that cannot be opened or has no such replication.
    int Open(const std::vector<TableSource>& files, const TableWindow& window);
    void Close();

    // The next row of the table; false after the last (or on a read error).
    bool Next(TableRow* row);
    // Rows returned since the first (the index of the next row).
    std::int64_t Position() const { return m_row; }
    // Stands before row index i (0-based, replication ends included); false
    // when the table has fewer rows.
    bool SeekRow(std::int64_t i);
    // Rows in the table: one pass to the end the first time (marks are kept
    // on the way), then known. The position does not change.
    std::int64_t Count();
    // 0, or 15834 once a read error has ended the table.
    int Error() const { return m_error; }
    std::size_t Files() const { return m_files.size(); }
    const DataFileHeader& Header(std::size_t i) const;

private:
    enum class State : std::uint8_t { Active, Between, Finished };
    struct File {
        std::unique_ptr<CRecordReader> in;
        int treatment = 1;
        State state = State::Active;
    };
    // Where every file stands before a row, and the table's own counters.
    struct Mark {
        std::vector<std::int64_t> pos;
        std::vector<State> state;
        std::int64_t obs = 0;
        bool done = false;
    };

    bool Produce(TableRow* row);
    bool ReadCell(File& f, TableCell* cell);
    bool StartNextReplication(File& f);
    Mark Save() const;
    void Restore(const Mark& m);

    std::vector<File> m_files;
    TableWindow m_window;
    std::int64_t m_last = 0;   // the last row number shown
    std::int64_t m_obs = 0;    // row numbers given so far, shown or not
    std::int64_t m_row = 0;    // rows returned
    bool m_done = false;
    int m_error = 0;
    std::vector<Mark> m_marks;  // m_marks[k] stands before row k * kMarkEvery
    std::int64_t m_count = -1;
};
