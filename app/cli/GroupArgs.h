// --group G.dgr for analysis commands: the data group the analysis starts
// from. Every command entry starts from a group's view, so the command line
// names one too (an empty group when --group is not given).
// With it a file argument may be written #N (or #N@REPS) for the group's Nth
// file. Paths typed on the command line keep meaning what they mean in the
// shell; the group's own relative paths lead from its folder.
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

#include <string>
#include <type_traits>
#include <vector>

#include "CliHost.h"
#include "Command.h"
#include "FileArgs.h"
#include "group/Session.h"

class COutputView;

class CliGroup {
public:
    // Adds --group to sub and forgets an earlier value and group.
    void AddOption(CLI::App* sub);
    bool Given() const { return !m_path.empty(); }

    // Opens the group named by --group in the session, or an empty one
    // without it; a second call only repeats the first one's result. 0 or the
    // id of the message shown.
    int Open();

    // The path a file argument names: #N is the group's Nth file (from 1);
    // anything else is returned as it is. Opens the group when needed. Throws
    // CLI::ValidationError for #N when N is not in the group, or for #N
    // without --group.
    std::string Resolve(const std::string& arg);
    // FILE@REPS arguments with #N resolved.
    FileArg ParseFileArg(const std::string& arg);
    std::vector<FileArg> ParseFileArgs(const std::vector<std::string>& args);

private:
    std::string m_path;
    bool m_opened = false;
    int m_openResult = 0;
    std::vector<std::string> m_files;  // the items' paths, absolute
};

// Runs an analysis through its command entry with the group's view: fill
// fills the entry's dialog (which must be a Dlg), which is then validated as
// OK would, and the report of the window the entry opens is printed. fill may
// return bool: false cancels the dialog (show why first). Returns the exit
// status.
template <class Dlg, class Fill>
int cli_RunEntry(int (*entry)(COutputView*), CliGroup& group, Fill fill) {
    if (int rc = group.Open()) return cli_Status(rc);
    int rc = cli_Session().RunCommand(entry, [&fill](CDialog& d) {
        auto* dlg = dynamic_cast<Dlg*>(&d);
        if (!dlg) return false;
        if constexpr (std::is_same_v<decltype(fill(*dlg)), bool>)
            return fill(*dlg);
        else
            fill(*dlg);
        return true;
    });
    return cli_Status(rc);
}
