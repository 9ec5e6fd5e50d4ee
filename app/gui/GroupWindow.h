// The data group window: the group's files, one description line each in a
// fixed-pitch list, over the core's group document and view (COutputDoc,
// COutputView). Files are added from a file dialog or dropped on the window,
// removed after the user confirms; a line is refreshed when its file changes
// on disk; double-clicking a line shows what the file holds.
#pragma once

#include <QFileSystemWatcher>
#include <QTimer>
#include <QWidget>

#include "group/OutputDoc.h"
#include "group/OutputView.h"

class QListWidget;
class QMimeData;

class GroupWindow : public QWidget {
    Q_OBJECT
public:
    explicit GroupWindow(QWidget* parent = nullptr);
    ~GroupWindow() override;

    // An empty group, titled title until it is saved.
    void NewGroup(const QString& title);
    // Loads the group file at path; false after the core's message.
    bool Open(const QString& path);
    // Saves to the group's file, or asks for one when it has none; false when not saved.
    bool Save();
    bool SaveAs();
    bool SaveTo(const QString& path);
    // Offers to save a modified group; false when the user cancels.
    bool MaybeSave();

    // Adds each file to the end of the group; a file that cannot be described
    // stays in the group and its message is shown.
    void AddFiles(const QStringList& paths);
    void AddFilesFromDialog();
    void RemoveSelected();
    // Shows the header and replications of the file on row.
    void ShowInfo(int row);
    // Describes again the files that changed since their lines were made.
    void Refresh();

    COutputDoc& Document() { return m_doc; }
    COutputView& View() { return m_view; }
    QListWidget* List() const { return m_list; }
    QString Path() const;
    QString Title() const;

    // The data files (.dat, .flt, .cor) among dropped ones.
    static QStringList DroppedDataFiles(const QMimeData* data);

signals:
    void Changed();
    void Saved(const QString& path);

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void Reload();
    void UpdateCaption();
    void WatchFiles();

    COutputDoc m_doc;
    COutputView m_view;
    QListWidget* m_list;
    QFileSystemWatcher m_watcher;
    // A file being written changes many times a second: refresh once it rests.
    QTimer m_refreshTimer;
};
