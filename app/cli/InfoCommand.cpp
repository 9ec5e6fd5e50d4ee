// oproc info FILE...: what a data file holds: its header and its replications.
#include <ostream>

#include "Command.h"
#include "GroupArgs.h"
#include "datafile/FileInfo.h"
#include "framework/Host.h"

namespace {

std::vector<std::string> g_files;
CliGroup g_group;

CLI::App* Setup(CLI::App& app) {
    g_files.clear();
    CLI::App* sub = app.add_subcommand("info", "Show the header and replications of data files");
    sub->add_option("FILE", g_files, "Data files (#N: the Nth file of the --group)")->required();
    g_group.AddOption(sub);
    return sub;
}

int Describe(const std::string& path, CliIO& io) {
    std::string text;
    host_SetSubjectFile(path);
    if (int rc = op_DescribeDataFile(path, text)) return AfxMessageBox(rc), rc;
    io.out << text;
    return 0;
}

int Run(CliIO& io) {
    int rc = 0;
    std::vector<std::string> files;
    for (const std::string& f : g_files) files.push_back(g_group.Resolve(f));
    if (int r = g_group.Open()) return cli_Status(r);
    for (const std::string& f : files)
        if (int r = Describe(f, io); r && !rc) rc = r;
    return cli_Status(rc);
}

CommandRegistrar g_reg(20, Setup, Run);

}  // namespace
