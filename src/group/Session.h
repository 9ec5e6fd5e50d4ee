// What a host needs to run the component, the same for the terminal and the
// desktop: one session is one run of the application (start-up, the templates
// and the parameter dialogs kept for the run, shutdown), with the data group
// that commands start from.
//
//     CSession session(myHost);          // installs the host, starts up
//     if (int rc = session.OpenGroup("runs.dgr")) return rc;  // shown already
//     session.RunCommand("g_OnInterval", [](CDialog& d) {
//         auto& dlg = dynamic_cast<CIntrvlDlg&>(d);
//         dlg.AddFile("waits.dat", "All");
//         return true;
//     });
//
// The command's window reaches the host through IHost::ShowFrame as a
// CDocFrame: its caption, its frame class and its views (frame_Panes
// lays them out; frame_WriteSvg draws the graphs). Messages and prompts reach
// the host through IHost.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "framework/DocTemplate.h"
#include "framework/Host.h"

class CDialog;
class COutputDoc;
class COutputView;

// Stands in for the user at a command's dialog: edits its fields; false cancels.
using DialogFiller = std::function<bool(CDialog&)>;

class CSession {
public:
    // Installs host for the session's life and starts the component up.
    explicit CSession(IHost& host);
    // Shuts the component down and puts the previous host back.
    ~CSession();
    CSession(const CSession&) = delete;
    CSession& operator=(const CSession&) = delete;

    CWinApp& App() { return m_app; }

    // Opens the data group at path, or a new empty group for an empty path.
    // The process's current folder stays as it is. 0, or the id of the
    // message shown (15811 for no such file, 61699 for one that is not a group).
    int OpenGroup(const std::string& path);
    // The open group and its view; a new empty group until OpenGroup.
    COutputDoc& Group();
    COutputView& GroupView();

    // Runs a command entry (by export name, "g_OnPlot") from the group's view.
    // Without fill the host runs the dialog (IHost::RunDialog); with fill,
    // fill edits it and OK is pressed as a user would, validation included.
    // Returns the entry's result (-1 for an unknown name).
    int RunCommand(const std::string& exportName, const DialogFiller& fill = {});
    int RunCommand(int (*entry)(COutputView*), const DialogFiller& fill = {});

private:
    void EnsureGroup();

    ScopedHost m_scope;
    IHost& m_host;
    CWinApp m_app;
    std::unique_ptr<COutputDoc> m_doc;
    std::unique_ptr<COutputView> m_view;
};
