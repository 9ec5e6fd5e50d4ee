// The file lists of the parameter dialogs: rows of data files, each with its
// replication treatment, or rows of pairs (file A and file B, each with its
// treatment). A cell is edited in a combo box offering the data group's files
// (or "All" and "Lumped"); Add, Edit, Delete and Browse work on the rows.
#pragma once

#include <QStringList>
#include <QWidget>

class QTableWidget;

class FileListWidget : public QWidget {
    Q_OBJECT
public:
    // filesPerRow is 1 (a file list) or 2 (a pairs list).
    FileListWidget(int filesPerRow, const QStringList& groupFiles, const QString& selectedFile,
                   QWidget* parent = nullptr);

    // Each row as its cells: file, treatment (then file B, treatment B).
    QList<QStringList> Rows() const;
    void SetRows(const QList<QStringList>& rows);
    // Selects a row and gives the list the focus; -1 only focuses.
    void FocusRow(int row);

    QTableWidget* Table() const { return m_table; }

    void AddRow();
    void EditRow();
    void DeleteRow();
    void BrowseFile();

private:
    int m_filesPerRow;
    QStringList m_groupFiles;
    QString m_selectedFile;
    QTableWidget* m_table;
};
