// The entries of the parameter dialogs, kept across runs: each command's
// dialog object is made at start-up and given the entries of the last run,
// and its entries are saved whenever the user confirms it.
#pragma once

#include <QString>

class CDialog;
class CWinApp;
class QSettings;

// Makes the dialog object of every command that has one and loads its entries.
void gui_RestoreDialogs(CWinApp& app, QSettings& settings);
// Saves the entries of one command's dialog (by its template name).
void gui_SaveDialog(const QString& templateName, CDialog& dlg, QSettings& settings);
void gui_LoadDialog(const QString& templateName, CDialog& dlg, QSettings& settings);
