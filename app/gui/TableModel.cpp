#include "TableModel.h"

#include <QBrush>
#include <QPalette>
#include <QTimer>

#include <algorithm>
#include <limits>

#include "framework/Host.h"
#include "graph/TableDoc.h"

namespace {

QString Head(const TableFileResult& f) {
    if (!f.ident.empty()) return QString::fromStdString(f.ident);
    const std::size_t slash = f.path.find_last_of("/\\");
    return QString::fromStdString(slash == std::string::npos ? f.path : f.path.substr(slash + 1));
}

}  // namespace

TableModel::TableModel(CTableDoc& doc, QObject* parent) : QAbstractTableModel(parent), m_doc(doc) {
    // The first count reads the files through once; a view asks for it at once anyway.
    m_rows = static_cast<int>(std::min<std::int64_t>(doc.RowCount(), std::numeric_limits<int>::max()));
    m_files = static_cast<int>(doc.Results().files.size());
}

int TableModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : m_rows; }

int TableModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : 2 * m_files; }

std::size_t TableModel::RowsHeld() const {
    std::size_t n = 0;
    for (const Page& p : m_pages) n += p.rows.size();
    return n;
}

const TableRow* TableModel::Row(int row) const {
    const std::int64_t first = row - row % kPageRows;
    auto it = std::find_if(m_pages.begin(), m_pages.end(), [first](const Page& p) { return p.first == first; });
    if (it != m_pages.end()) {
        m_pages.splice(m_pages.begin(), m_pages, it);
    } else {
        if (m_pages.size() >= kPagesKept) m_pages.pop_back();
        m_pages.push_front(Page{first, {}});
        int rc = m_doc.FetchRows(first, kPageRows, &m_pages.front().rows);
        if (rc && !m_errorShown) {
            // Not from inside a paint: the box would repaint the view under it.
            m_errorShown = true;
            QTimer::singleShot(0, [rc] { AfxMessageBox(rc); });
        }
    }
    const std::vector<TableRow>& rows = m_pages.front().rows;
    const std::size_t at = static_cast<std::size_t>(row - first);
    return at < rows.size() ? &rows[at] : nullptr;
}

QVariant TableModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    if (role == Qt::TextAlignmentRole) return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole && role != Qt::BackgroundRole) return {};
    const TableRow* row = Row(index.row());
    if (!row) return {};
    if (row->IsRepEnd()) {
        if (role == Qt::BackgroundRole) return QBrush(QPalette().color(QPalette::Midlight));
        return QString(12, u'-');
    }
    if (role != Qt::DisplayRole) return {};
    const std::size_t file = static_cast<std::size_t>(index.column() / 2);
    if (file >= row->cells.size() || !row->cells[file].filled) return {};
    const TableCell& cell = row->cells[file];
    // As the text report prints them: six significant digits.
    return QString::number(index.column() % 2 ? cell.value : cell.time, 'g', 6);
}

QVariant TableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole) return {};
    if (orientation == Qt::Horizontal) {
        const auto& files = m_doc.Results().files;
        if (section < 0 || section / 2 >= static_cast<int>(files.size())) return {};
        return Head(files[static_cast<std::size_t>(section / 2)]) + (section % 2 ? tr("\nValue") : tr("\nTime"));
    }
    const TableRow* row = Row(section);
    return row && !row->IsRepEnd() ? QVariant(QString::number(row->obs)) : QVariant(QString());
}
