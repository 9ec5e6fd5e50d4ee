#include "FileListWidget.h"

#include <QComboBox>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTableWidget>
#include <QVBoxLayout>

#include "QtHost.h"
#include "framework/Messages.h"

namespace {

constexpr int IDS_FILE_LIST_FILTER = 15912;

// Edits a cell in an editable combo box that offers choices.
class ChoiceDelegate : public QStyledItemDelegate {
public:
    ChoiceDelegate(QStringList choices, QObject* parent) : QStyledItemDelegate(parent), m_choices(std::move(choices)) {}

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex&) const override {
        auto* box = new QComboBox(parent);
        box->setEditable(true);
        box->addItems(m_choices);
        return box;
    }
    void setEditorData(QWidget* editor, const QModelIndex& index) const override {
        static_cast<QComboBox*>(editor)->setEditText(index.data(Qt::EditRole).toString());
    }
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override {
        model->setData(index, static_cast<QComboBox*>(editor)->currentText(), Qt::EditRole);
    }

private:
    QStringList m_choices;
};

bool IsFileColumn(int column) { return column % 2 == 0; }

}  // namespace

FileListWidget::FileListWidget(int filesPerRow, const QStringList& groupFiles, const QString& selectedFile,
                               QWidget* parent)
    : QWidget(parent),
      m_filesPerRow(filesPerRow),
      m_groupFiles(groupFiles),
      m_selectedFile(selectedFile),
      m_table(new QTableWidget(0, 2 * filesPerRow)) {
    m_table->setObjectName(QStringLiteral("files"));
    QStringList headers = filesPerRow == 1 ? QStringList{tr("Data File"), tr("Replications")}
                                           : QStringList{tr("Data File A"), tr("Replications A"), tr("Data File B"),
                                                         tr("Replications B")};
    m_table->setHorizontalHeaderLabels(headers);
    m_table->verticalHeader()->hide();
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                             QAbstractItemView::AnyKeyPressed);
    auto* files = new ChoiceDelegate(groupFiles, this);
    auto* reps = new ChoiceDelegate({QStringLiteral("All"), QStringLiteral("Lumped")}, this);
    for (int c = 0; c < m_table->columnCount(); ++c) {
        m_table->setItemDelegateForColumn(c, IsFileColumn(c) ? static_cast<QStyledItemDelegate*>(files) : reps);
        m_table->horizontalHeader()->setSectionResizeMode(
            c, IsFileColumn(c) ? QHeaderView::Stretch : QHeaderView::ResizeToContents);
    }

    auto* buttons = new QVBoxLayout;
    auto button = [this, buttons](const QString& text, void (FileListWidget::*slot)()) {
        auto* b = new QPushButton(text);
        b->setAutoDefault(false);
        connect(b, &QPushButton::clicked, this, slot);
        buttons->addWidget(b);
    };
    button(tr("&Add..."), &FileListWidget::AddRow);
    button(tr("&Edit..."), &FileListWidget::EditRow);
    button(tr("&Delete"), &FileListWidget::DeleteRow);
    button(tr("&Browse..."), &FileListWidget::BrowseFile);
    buttons->addStretch();

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_table, 1);
    layout->addLayout(buttons);
}

QList<QStringList> FileListWidget::Rows() const {
    QList<QStringList> rows;
    for (int r = 0; r < m_table->rowCount(); ++r) {
        QStringList cells;
        bool empty = true;
        for (int c = 0; c < m_table->columnCount(); ++c) {
            QTableWidgetItem* item = m_table->item(r, c);
            cells << (item ? item->text().trimmed() : QString());
            empty = empty && cells.back().isEmpty();
        }
        if (!empty) rows << cells;
    }
    return rows;
}

void FileListWidget::SetRows(const QList<QStringList>& rows) {
    m_table->setRowCount(0);
    for (const QStringList& cells : rows) {
        int r = m_table->rowCount();
        m_table->insertRow(r);
        for (int c = 0; c < m_table->columnCount(); ++c)
            m_table->setItem(r, c, new QTableWidgetItem(c < cells.size() ? cells[c] : QString()));
    }
    if (!rows.isEmpty()) m_table->selectRow(0);
}

void FileListWidget::FocusRow(int row) {
    if (row >= 0 && row < m_table->rowCount()) m_table->setCurrentCell(row, 0);
    m_table->setFocus();
}

void FileListWidget::AddRow() {
    // A new row starts with the group's selected file, else its first file not listed yet.
    QStringList listed;
    for (const QStringList& row : Rows())
        for (int c = 0; c < row.size(); c += 2) listed << row[c];
    QString file = m_selectedFile;
    if (file.isEmpty() || listed.contains(file)) {
        file.clear();
        for (const QString& f : m_groupFiles)
            if (!listed.contains(f)) {
                file = f;
                break;
            }
    }
    int r = m_table->rowCount();
    m_table->insertRow(r);
    for (int c = 0; c < m_table->columnCount(); ++c)
        m_table->setItem(r, c, new QTableWidgetItem(c == 0 ? file : QString()));
    m_table->setCurrentCell(r, 0);
    m_table->editItem(m_table->item(r, 0));
}

void FileListWidget::EditRow() {
    QTableWidgetItem* item = m_table->currentItem();
    if (!item) {
        AfxMessageBox(15841);  // "No item is selected."
        return;
    }
    m_table->editItem(item);
}

void FileListWidget::DeleteRow() {
    int r = m_table->currentRow();
    if (r < 0) {
        AfxMessageBox(15841);
        return;
    }
    m_table->removeRow(r);
}

void FileListWidget::BrowseFile() {
    int r = m_table->currentRow();
    int c = m_table->currentColumn();
    if (r < 0) {
        AddRow();
        r = m_table->currentRow();
        c = 0;
    }
    if (!IsFileColumn(c)) --c;
    QString path = QFileDialog::getOpenFileName(this, tr("Data File"), QString(),
                                                QtHost::QtFileFilter(msg_Text(IDS_FILE_LIST_FILTER)));
    if (path.isEmpty()) return;
    m_table->item(r, c)->setText(path);
}
