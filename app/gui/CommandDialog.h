// A command's parameter dialog on screen, over the core's dialog object: the
// shared layout its base names (one data file with its replications, a list
// of files, or a list of pairs), then the fields the dialog lists. OK stores
// the entries in the dialog object and runs its own checks; a failure shows
// the system's message and puts the focus back on the field at fault. The
// object outlives the window, so the next run opens with the same entries.
#pragma once

#include <QDialog>
#include <QMap>
#include <QStringList>

#include <functional>
#include <vector>

#include "framework/Dialog.h"

class CDialog;
class FileListWidget;
class QComboBox;

class CommandDialog : public QDialog {
    Q_OBJECT
public:
    // groupFiles are offered in the file fields; selectedFile is the group's selection.
    CommandDialog(CDialog& dlg, const QString& caption, const QStringList& groupFiles, const QString& selectedFile,
                  QWidget* parent = nullptr);

    void accept() override;

    // The widget that edits a field of the dialog (its key: "title", "level",
    // "file", "reps", "files"), for the tests that drive the dialog.
    QWidget* FieldWidget(const QString& key) const;

private:
    void Load();
    void Store();
    void Focus(DlgControl control, int row);

    CDialog& m_dlg;
    std::vector<DlgField> m_fields;
    std::vector<QWidget*> m_fieldWidgets;
    QComboBox* m_file = nullptr;
    QComboBox* m_reps = nullptr;
    FileListWidget* m_list = nullptr;
    QMap<DlgControl, QWidget*> m_focus;
};

// Runs the dialog modally; IDOK or IDCANCEL as the core's host answers.
int gui_RunCommandDialog(CDialog& dlg, const QString& caption, const QStringList& groupFiles,
                         const QString& selectedFile, QWidget* parent);
