// --group G.dgr for analysis commands: the data group the analysis starts
// from, as the desktop program starts every analysis from a group's window.
// With it a file argument may be written #N (or #N@REPS) for the group's Nth
// file. Paths typed on the command line keep meaning what they mean in the
// shell: the group's folder is current only while the group is read.
//
// An analysis command runs through its command entry like this:
//
//     int Run(CliIO&) {
//         std::vector<FileArg> files = g_opt.group.ParseFileArgs(g_opt.files);  // may throw: exit 2
//         return cli_RunEntry<CIntrvlDlg>(g_OnInterval, g_opt.group, [&](CIntrvlDlg& dlg) {
//             for (const FileArg& f : files) dlg.AddFile(f.path, f.reps);
//             dlg.m_strTitle = g_opt.title;
//         });
//     }
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "CliHost.h"
#include "Command.h"
#include "FileArgs.h"
#include "framework/Dialog.h"

class COutputDoc;
class COutputView;

class CliGroup {
public:
    CliGroup();
    ~CliGroup();
    // Movable, so that a command's options can be reset as a whole.
    CliGroup(CliGroup&&) noexcept;
    CliGroup& operator=(CliGroup&&) noexcept;

    // Adds --group to sub and forgets an earlier value and group.
    void AddOption(CLI::App* sub);
    bool Given() const { return !m_path.empty(); }

    // Reads the group named by --group, or makes an empty one without it; a
    // second call only repeats the first one's result. 0 or the id of the
    // message shown.
    int Open();
    // The group's view; the command entries take it. Open first.
    COutputView* View() const { return m_view.get(); }

    // The path a file argument names: #N is the group's Nth file (from 1);
    // anything else is returned as it is. Opens the group when needed. Throws
    // CLI::ValidationError for #N when N is not in the group, or for #N
    // without --group.
    std::string Resolve(const std::string& arg);
    // FILE@REPS arguments with #N resolved.
    FileArg ParseFileArg(const std::string& arg);
    std::vector<FileArg> ParseFileArgs(const std::vector<std::string>& args);

private:
    int Read();

    std::string m_path;
    bool m_opened = false;
    int m_openResult = 0;
    std::unique_ptr<COutputDoc> m_doc;
    std::unique_ptr<COutputView> m_view;
    std::vector<std::string> m_files;  // the items' paths, absolute
};

// Runs an analysis through its command entry with the group's view: the
// terminal host fills the entry's dialog (which must be a Dlg) with fill,
// validates it as OK would, and prints the report of the window the entry
// opens. fill may return bool: false cancels the dialog (show why first).
// Returns the exit status.
template <class Dlg, class Fill>
int cli_RunEntry(int (*entry)(COutputView*), CliGroup& group, Fill fill) {
    if (int rc = group.Open()) return cli_Status(rc);
    cli_Host().SetDialogFiller([&fill](CDialog& d) {
        auto* dlg = dynamic_cast<Dlg*>(&d);
        if (!dlg) return false;
        if constexpr (std::is_same_v<decltype(fill(*dlg)), bool>)
            return fill(*dlg);
        else
            fill(*dlg);
        return true;
    });
    int rc = entry(group.View());
    cli_Host().SetDialogFiller(nullptr);
    return cli_Status(rc);
}
