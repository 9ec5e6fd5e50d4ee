// The table of observations as a Qt model: two columns per file (its time and
// value, headed by the file's identifier), one row per table row, the row's
// number in the vertical header and a replication end as a grey row of
// dashes. Rows are fetched from the document a page at a time when the view
// asks for them, and only a few pages are kept, so a table of 10^7 rows
// scrolls in the memory of a few thousand.
#pragma once

#include <QAbstractTableModel>

#include <cstdint>
#include <list>
#include <vector>

#include "graph/TableRows.h"

class CTableDoc;

class TableModel : public QAbstractTableModel {
    Q_OBJECT
public:
    static constexpr int kPageRows = 512;
    static constexpr std::size_t kPagesKept = 8;

    explicit TableModel(CTableDoc& doc, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    // Rows held now: never more than kPagesKept pages.
    std::size_t RowsHeld() const;

private:
    struct Page {
        std::int64_t first = 0;
        std::vector<TableRow> rows;
    };
    // The row at index, reading its page when it is not held; null past the end.
    const TableRow* Row(int row) const;

    CTableDoc& m_doc;
    int m_rows = 0;
    int m_files = 0;
    // Most recently used first.
    mutable std::list<Page> m_pages;
    mutable bool m_errorShown = false;
};
