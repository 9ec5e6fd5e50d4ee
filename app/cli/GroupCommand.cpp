// oproc group new|add|remove|list G.dgr: make and keep data groups, the list
// of data files that analyses start from.
#include <cstdio>
#include <filesystem>
#include <ostream>
#include <set>

#include "CliHost.h"
#include "Command.h"
#include "ResultFormat.h"
#include "framework/Host.h"
#include "framework/Messages.h"
#include "group/OutputDoc.h"
#include "group/OutputView.h"
#include "group/Session.h"

namespace fs = std::filesystem;

namespace {

struct Options {
    std::string group;
    std::vector<std::string> files;
    std::vector<int> indexes;
    bool force = false;
    CLI::App* newCmd = nullptr;
    CLI::App* addCmd = nullptr;
    CLI::App* removeCmd = nullptr;
    CLI::App* listCmd = nullptr;
};
Options g_opt;

CLI::App* Setup(CLI::App& app) {
    g_opt = Options{};
    CLI::App* sub = app.add_subcommand("group", "Make and keep data groups (.dgr): lists of data files to analyse");
    sub->require_subcommand(1);
    const char* groupHelp = "Data group file (.dgr is added to a name without extension)";

    g_opt.newCmd = sub->add_subcommand("new", "Make an empty data group");
    g_opt.newCmd->add_option("GROUP", g_opt.group, groupHelp)->required();
    g_opt.newCmd->add_flag("--force", g_opt.force, "Replace an existing group file");

    g_opt.addCmd = sub->add_subcommand("add", "Add data files to the end of a data group");
    g_opt.addCmd->add_option("GROUP", g_opt.group, groupHelp)->required();
    g_opt.addCmd->add_option("FILE", g_opt.files, "Data files")->required();

    g_opt.removeCmd = sub->add_subcommand("remove", "Remove files from a data group by their numbers in its list");
    g_opt.removeCmd->add_option("GROUP", g_opt.group, groupHelp)->required();
    g_opt.removeCmd->add_option("INDEX", g_opt.indexes, "Numbers of the files, as group list shows them")
        ->required()
        ->check(CLI::PositiveNumber);

    g_opt.listCmd = sub->add_subcommand("list", "List the files of a data group, refreshing the lines of changed files");
    g_opt.listCmd->add_option("GROUP", g_opt.group, groupHelp)->required();
    cli_AddFormatOption(g_opt.listCmd);

    sub->footer(
        "Each line of a group shows the file's path, its number of replications, its data kind and\n"
        "its title. Analyses take a group with --group GROUP and its files as #N (#N@REPS).");
    return sub;
}

// A command-line path as the shell means it, whole.
std::string Absolute(const std::string& path) {
    std::error_code ec;
    return fs::absolute(path, ec).lexically_normal().string();
}

std::string GroupPath(const std::string& name) {
    fs::path p(name);
    if (!p.has_extension()) p += ".dgr";
    return p.string();
}

void PrintList(const COutputView& view, std::ostream& out) {
    char number[16];
    for (int i = 0; i < view.List().GetCount(); ++i) {
        std::snprintf(number, sizeof number, "#%-3d ", i + 1);
        out << number << view.List().GetText(i) << '\n';
    }
}

int New(CliIO&) {
    std::string path = GroupPath(g_opt.group);
    std::error_code ec;
    if (fs::exists(path, ec) && !g_opt.force) {
        AfxMessageBox(path + " already exists; give --force to replace it with an empty group.");
        return cli_Status(0);
    }
    COutputDoc doc;
    doc.OnNewDocument();
    return cli_Status(doc.OnSaveDocument(path.c_str()) ? 0 : IDS_FAILED_TO_SAVE_DOC);
}

int Add(CliIO& io) {
    std::string path = Absolute(GroupPath(g_opt.group));
    std::vector<std::string> files;
    for (const std::string& f : g_opt.files) files.push_back(Absolute(f));
    CSession& session = cli_Session();
    if (session.OpenGroup(path)) return cli_Status(0);
    COutputDoc& doc = session.Group();
    COutputView& view = session.GroupView();
    for (const std::string& f : files) {
        std::error_code ec;
        // Each file that stays out is named on the message's second line.
        host_SetSubjectFile(f);
        // What a file-open dialog would offer: existing files only.
        if (!fs::is_regular_file(f, ec)) {
            AfxMessageBox(IDS_FILE_NOT_FOUND);
            continue;
        }
        view.AddFile(f);
    }
    if (doc.IsModified() && !doc.OnSaveDocument(path.c_str())) return cli_Status(0);
    PrintList(view, io.out);
    return cli_Status(0);
}

int Remove(CliIO& io) {
    std::string path = Absolute(GroupPath(g_opt.group));
    CSession& session = cli_Session();
    if (session.OpenGroup(path)) return cli_Status(0);
    COutputDoc& doc = session.Group();
    std::set<int> doomed(g_opt.indexes.begin(), g_opt.indexes.end());
    for (int n : doomed)
        if (n > doc.GetItemCount())
            throw CLI::ValidationError("INDEX", std::to_string(n) + " is not in the group, which holds " +
                                                    std::to_string(doc.GetItemCount()) + " files");
    // In one pass, so that the numbers keep naming the files the user saw.
    std::set<int> indexes;
    for (int n : doomed) indexes.insert(n - 1);
    doc.RemoveItems(indexes);
    if (!doc.OnSaveDocument(path.c_str())) return cli_Status(0);
    session.GroupView().OnUpdate();
    PrintList(session.GroupView(), io.out);
    return cli_Status(0);
}

// The group's files for scripts: each line's fields as the list shows them
// (a line is the path, then the replications, data kind and title, or the
// path and an error).
ResultRecord ListRecord(const std::string& path, COutputDoc& doc, const COutputView& view) {
    ResultRecord record;
    record.parameters.Set("group", path);
    ResultValue files = ResultValue::List();
    for (int i = 0; i < view.List().GetCount() && i < doc.GetItemCount(); ++i) {
        const std::string line = view.List().GetText(i);
        const std::string& item = doc.GetItem(i)->m_strPath;
        ResultValue f = ResultValue::Object().Set("number", i + 1).Set("file", item);
        std::string rest = line.starts_with(item + ", ") ? line.substr(item.size() + 2) : std::string();
        const std::size_t comma = rest.find(", ");
        const std::size_t second = comma == std::string::npos ? comma : rest.find(", ", comma + 2);
        const bool described = comma != std::string::npos && rest.find_first_not_of(" 0123456789") == rest.find(',');
        if (described) {
            f.Set("replications", std::stol(rest.substr(0, comma)));
            f.Set("kind", rest.substr(comma + 2, second == std::string::npos ? second : second - comma - 2));
            f.Set("title", second == std::string::npos ? std::string() : rest.substr(second + 2));
        } else {
            f.Set("replications", ResultValue()).Set("kind", ResultValue()).Set("title", ResultValue());
        }
        f.Set("line", line);
        files.Append(std::move(f));
    }
    record.table = files;
    record.results.Set("files", std::move(files));
    return record;
}

int List(CliIO& io) {
    std::string path = Absolute(GroupPath(g_opt.group));
    CSession& session = cli_Session();
    if (session.OpenGroup(path)) return cli_Status(0);
    session.GroupView().OnInitialUpdate();
    if (cli_Format() == ResultFormat::Text)
        PrintList(session.GroupView(), io.out);
    else
        cli_SetResults(ListRecord(path, session.Group(), session.GroupView()));
    return cli_Status(0);
}

int Run(CliIO& io) {
    if (g_opt.newCmd->parsed()) return New(io);
    if (g_opt.addCmd->parsed()) return Add(io);
    if (g_opt.removeCmd->parsed()) return Remove(io);
    return List(io);
}

CommandRegistrar g_reg(15, Setup, Run);

DemoRegistrar g_demoNew({12, "A data group of the sample files", {"group", "new", "--force", "samples.dgr"}, ""});
DemoRegistrar g_demoAdd({13,
                         "The files join the group; each line shows replications, data kind and title",
                         {"group", "add", "samples.dgr", "waits.dat", "queue.dat", "workload.dat", "served.dat",
                          "meanwait.dat"},
                         ""});

}  // namespace
