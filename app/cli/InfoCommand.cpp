// oproc info FILE...: what a data file holds: its header and its replications.
#include <ostream>

#include "Command.h"
#include "GroupArgs.h"
#include "ResultFormat.h"
#include "datafile/FileGlobals.h"
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
    cli_AddFormatOption(sub);
    return sub;
}

// One file for scripts, without the list per replication (which the CSV row
// leaves out).
ResultValue Value(const DataFileInfo& info) {
    long total = 0;
    for (long n : info.observations) total += n;
    const bool counted = info.repsError == 0;
    ResultValue v = ResultValue::Object();
    v.Set("file", info.path).Set("identifier", info.ident).Set("title", info.title);
    v.Set("kind", info.kind).Set("kind_text", op_KindText(info.kind));
    v.Set("time_persistent", op_IsTimePersistent(info.kind));
    v.Set("type_text", info.typeText).Set("reinitialised", info.reinitialised);
    v.Set("record_bytes", info.doubles ? 8 : 4).Set("count_field", info.countField);
    v.Set("replications", counted ? ResultValue(info.replications) : ResultValue());
    v.Set("observations", counted ? ResultValue(total) : ResultValue());
    return v;
}

int Run(CliIO& io) {
    int rc = 0;
    std::vector<std::string> files;
    for (const std::string& f : g_files) files.push_back(g_group.Resolve(f));
    if (int r = g_group.Open()) return cli_Status(r);
    ResultRecord record;
    ResultValue described = ResultValue::List();
    ResultValue given = ResultValue::List();
    for (const std::string& f : files) {
        given.Append(f);
        DataFileInfo info;
        host_SetSubjectFile(f);
        if (int r = op_ReadDataFileInfo(f, &info)) {
            AfxMessageBox(r);
            if (!rc) rc = r;
            continue;
        }
        if (cli_Format() == ResultFormat::Text) {
            io.out << op_DataFileInfoText(info);
            continue;
        }
        ResultValue v = Value(info);
        record.table.Append(v);
        ResultValue reps = ResultValue::List();
        for (std::size_t r = 0; r < info.observations.size(); ++r)
            reps.Append(ResultValue::Object().Set("replication", r + 1).Set("observations", info.observations[r]));
        v.Set("per_replication", std::move(reps));
        described.Append(std::move(v));
    }
    record.parameters.Set("files", std::move(given));
    record.results.Set("files", std::move(described));
    if (cli_Format() != ResultFormat::Text) cli_SetResults(std::move(record));
    return cli_Status(rc);
}

CommandRegistrar g_reg(20, Setup, Run);

}  // namespace
