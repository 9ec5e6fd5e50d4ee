#include "Command.h"

#include <algorithm>
#include <iostream>

#include "CliHost.h"
#include "ResultFormat.h"
#include "framework/Config.h"
#include "group/Session.h"

namespace {

std::vector<CliCommand>& Commands() {
    static std::vector<CliCommand> commands;
    return commands;
}

std::vector<DemoStep>& Steps() {
    static std::vector<DemoStep> steps;
    return steps;
}

CliHost* g_host = nullptr;
CSession* g_session = nullptr;

}  // namespace

CommandRegistrar::CommandRegistrar(int order, CLI::App* (*setup)(CLI::App&), int (*run)(CliIO&)) {
    Commands().push_back({order, setup, run});
}

DemoRegistrar::DemoRegistrar(DemoStep step) { Steps().push_back(std::move(step)); }

const std::vector<CliCommand>& cli_Commands() {
    std::vector<CliCommand>& c = Commands();
    std::stable_sort(c.begin(), c.end(), [](const CliCommand& a, const CliCommand& b) { return a.order < b.order; });
    return c;
}

std::vector<DemoStep> cli_DemoSteps() {
    std::vector<DemoStep> steps = Steps();
    std::stable_sort(steps.begin(), steps.end(), [](const DemoStep& a, const DemoStep& b) { return a.order < b.order; });
    return steps;
}

CliHost& cli_Host() { return *g_host; }

CSession& cli_Session() { return *g_session; }

int cli_Status(int rc) { return (rc != 0 || (g_host && g_host->MessageShown())) ? 1 : 0; }

int cli_Run(const std::vector<std::string>& args, CliIO& io) {
    CLI::App app{"oproc: output processor for discrete-event simulation.\n"
                 "Analyses, graphs and conversions of simulation output data files.",
                 "oproc"};
    app.require_subcommand(1);
    // Global options may come after the command too: a command passes what it
    // does not know up to here.
    app.fallthrough();
    app.set_version_flag("--version", "oproc 0.1");
    bool single = false, quiet = false;
    app.add_flag("--single-precision", single, "Write data files with 4-byte records for this run");
    app.add_flag("--quiet,-q", quiet, "No notes and no progress on stderr; messages still show");

    std::vector<std::pair<CLI::App*, int (*)(CliIO&)>> subs;
    for (const CliCommand& c : cli_Commands()) subs.emplace_back(c.setup(app), c.run);

    // CLI11 would call a mistyped command an unexpected argument.
    for (const std::string& a : args) {
        if (a.empty() || a[0] == '-') continue;
        auto named = [&a](const auto& sub) { return sub.first->check_name(a); };
        if (std::none_of(subs.begin(), subs.end(), named)) {
            io.err << "oproc: unknown command '" << a << "'\nRun with --help for the list of commands.\n";
            return 2;
        }
        break;
    }

    // CLI11 parses from the back of the vector.
    std::vector<std::string> reversed(args.rbegin(), args.rend());
    try {
        app.parse(reversed);
    } catch (const CLI::ParseError& e) {
        int status = app.exit(e, io.out, io.err);
        return status == 0 ? 0 : 2;
    }

    CliHost host(io.out, io.err);
    host.SetQuiet(quiet);
    host_ClearSubject();
    // Each command line is one run of the application: its templates, and
    // dialogs that start empty.
    CSession session(host);
    CliHost* previousCli = g_host;
    CSession* previousSession = g_session;
    g_host = &host;
    g_session = &session;
    int previousPrecision = cfg_GetDoublePrecOutput();
    if (single) cfg_SetDoublePrecOutput(0);

    host.SetFormat(cli_ParsedFormat());
    int status = 2;
    std::string command;
    try {
        for (auto& [sub, run] : subs)
            if (sub->parsed()) {
                command = sub->get_name();
                for (const CLI::App* nested : sub->get_subcommands()) command += ' ' + nested->get_name();
                status = run(io);
            }
        cli_WriteResults(command, status, io);
    } catch (const CLI::ParseError& e) {
        io.err << e.what() << std::endl;
        status = 2;
    }
    host.FlushNotes();
    cfg_SetDoublePrecOutput(previousPrecision);
    g_host = previousCli;
    g_session = previousSession;
    return status;
}
