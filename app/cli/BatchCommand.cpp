// oproc batch FILE: Batch/Truncate from the command line. Each option is the
// text a user would type into the dialog field of the same name and goes
// through the dialog's own field exchange and checks.
#include <ostream>

#include "Command.h"
#include "GroupArgs.h"
#include "MessageSubject.h"
#include "OptionChecks.h"
#include "ResultFormat.h"
#include "group/Commands.h"
#include "series/FiltrDlg.h"

namespace {

struct Options {
    std::string file;
    std::string reps;
    std::string title;
    std::string truncType;
    std::string trunc;
    std::string batchType;
    std::string batchSize;
    std::string out;
    CliGroup group;
};
Options g_opt;

CLI::App* Setup(CLI::App& app) {
    g_opt = Options{};
    CLI::App* sub = app.add_subcommand("batch", "Batch/Truncate: batch means of a data file, with a correlation test");
    sub->add_option("FILE", g_opt.file, "Data file (.dat or .flt; #N: of the --group)")->required();
    sub->add_option("--reps", g_opt.reps, "Replications: a number, All or Lumped")
        ->check(cli_RepsText)
        ->type_name("REPS")
        ->default_str("1");
    sub->add_option("--title", g_opt.title, "Title of the summary and of the output file");
    sub->add_option("--trunc-type", g_opt.truncType, "Unit of the initial truncation: Time or Observation")
        ->check(cli_UnitText)
        ->type_name("UNIT")
        ->default_str("from the data kind");
    cli_AddNumber(sub, "--trunc", g_opt.trunc, "Initial observations or time truncated")->default_str("0");
    sub->add_option("--batch-type", g_opt.batchType, "Unit of batching: Time or Observation")
        ->check(cli_UnitText)
        ->type_name("UNIT")
        ->default_str("no batching");
    cli_AddNumber(sub, "--batch-size", g_opt.batchSize, "Time span or observations per batch")
        ->default_str("ten batches of the first replication");
    sub->add_option("--out", g_opt.out, "File for the batch means (.flt added when there is no extension)");
    g_opt.group.AddOption(sub);
    cli_AddFormatOption(sub);
    sub->footer(
        "Units are Time or Observation, or a start of either (T, obs); numbers lie in 0..999999.\n"
        "Batching by time always truncates by time.");
    return sub;
}

// The dialog's fields from the command line; the command entry does the rest,
// the ".flt" of an output name included, so that both hosts write the same file.
int Run(CliIO&) {
    std::string file = g_opt.group.Resolve(g_opt.file);
    if (g_opt.reps.empty()) cli_Host().Note(cli_ReplicationNote(file, "--reps "));
    return cli_RunEntry<CFiltrDlg>(g_OnFilter, g_opt.group, [&](CFiltrDlg& dlg) {
        dlg.m_strFile = file;
        dlg.m_strReps = g_opt.reps;
        dlg.m_strTitle = g_opt.title;
        dlg.m_strTruncType = g_opt.truncType;
        dlg.m_strTrunc = g_opt.trunc;
        dlg.m_strBatchType = g_opt.batchType;
        dlg.m_strBatchSize = g_opt.batchSize;
        dlg.m_strOutFile = g_opt.out;
    });
}

CommandRegistrar g_reg(300, Setup, Run);

DemoRegistrar g_demoTally({300,
                           "Batch/Truncate: waits in batches of 50 observations after 100 are dropped",
                           {"batch", "--group", "samples.dgr", "#1", "--title", "Waiting time in queue", "--trunc-type", "Observation",
                            "--trunc", "100", "--batch-type", "Observation", "--batch-size", "50", "--out",
                            "waits_batched"},
                           ""});
DemoRegistrar g_demoDstat({301,
                           "Batch/Truncate: queue length in batches of 100 time units after time 200",
                           {"batch", "queue.dat", "--trunc-type", "Time", "--trunc", "200", "--batch-type", "Time",
                            "--batch-size", "100", "--out", "queue_batched.flt"},
                           ""});
DemoRegistrar g_demoAll({302,
                         "Batch/Truncate: every replication of the workload, ten batches each by default",
                         {"batch", "workload.dat", "--reps", "All", "--trunc", "200", "--batch-type", "Time", "--out",
                          "workload_batched.flt"},
                         ""});

}  // namespace
