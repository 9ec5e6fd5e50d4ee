// oproc table FILE[@REPS]... [--from T] [--to T] [--first N] [--count N]
// [--format text|csv|json]: the records of data files side by side, streamed
// from the files as they are written out.
#include <map>

#include "CliHost.h"
#include "Command.h"
#include "FileArgs.h"
#include "GroupArgs.h"
#include "graph/TableDlg.h"
#include "group/Commands.h"

namespace {

struct Options {
    std::vector<std::string> files;
    std::string title, from, to, first, count;
    std::string format = "text";
    CliGroup group;
};
Options g_opt;

const std::map<std::string, ReportFormat> kFormats = {
    {"text", ReportFormat::Text},
    {"csv", ReportFormat::Csv},
    {"json", ReportFormat::Json},
};

CLI::App* Setup(CLI::App& app) {
    g_opt = Options{};
    CLI::App* sub = app.add_subcommand("table", "The observations of data files side by side, one row per observation");
    sub->add_option("FILE", g_opt.files, "Data files, each FILE or FILE@REPS (a number, All or Lumped)")->required();
    sub->add_option("--title", g_opt.title, "Title printed under the report title");
    sub->add_option("--from", g_opt.from, "Leave out observations before this time");
    sub->add_option("--to", g_opt.to, "Leave out observations after this time");
    sub->add_option("--first", g_opt.first, "First row shown (rows are numbered from 1)");
    sub->add_option("--count", g_opt.count, "Number of rows shown (default: to the end)");
    sub->add_option("--format", g_opt.format, "text (fixed columns), csv or json")
        ->check(CLI::IsMember({"text", "csv", "json"}))
        ->capture_default_str();
    g_opt.group.AddOption(sub);
    sub->footer(
        "Row k holds the k-th observation of the current replication of every file; when every file has\n"
        "ended its replication a replication-end row follows (text: dashes; csv: a row without obs;\n"
        "json: []). CSV columns: obs,time_1,value_1,time_2,value_2,...; numbers are the shortest text\n"
        "that reads back to the stored number in the file's precision. Rows are written as they are\n"
        "read, so a table of any length takes little memory.");
    return sub;
}

int Run(CliIO&) {
    std::vector<FileArg> files = g_opt.group.ParseFileArgs(g_opt.files);
    cli_Host().SetPagedFormat(kFormats.at(g_opt.format));
    return cli_RunEntry<CTableDlg>(g_OnTable, g_opt.group, [&](CTableDlg& dlg) {
        dlg.m_items.clear();
        for (const FileArg& f : files) dlg.AddFile(f.path, f.reps);
        dlg.m_strTitle = g_opt.title;
        dlg.m_strBeginTime = g_opt.from;
        dlg.m_strEndTime = g_opt.to;
        dlg.m_strFirst = g_opt.first;
        dlg.m_strCount = g_opt.count;
    });
}

CommandRegistrar g_reg(620, Setup, Run);

DemoRegistrar g_demo({620, "Table: queue length and unfinished work side by side, first 20 rows of replication 1",
                      {"table", "queue.dat@1", "workload.dat@1", "--count", "20"},
                      ""});

}  // namespace
