// Registry of the oproc commands. Each command file registers itself with a
// setup function (adds its subcommand and options) and a run function; main and
// the demo both go through cli_Run, so a demo step is exactly a command line.
#pragma once

#include <CLI/CLI.hpp>

#include <iosfwd>
#include <string>
#include <vector>

// Streams a command writes to: reports to out, messages to err.
struct CliIO {
    std::ostream& out;
    std::ostream& err;
};

struct CliCommand {
    int order;                           // place in the help listing
    CLI::App* (*setup)(CLI::App& app);   // adds the subcommand; resets its options
    int (*run)(CliIO& io);               // runs after parsing; returns the exit status
};

class CommandRegistrar {
public:
    CommandRegistrar(int order, CLI::App* (*setup)(CLI::App&), int (*run)(CliIO&));
};

// A demo step: a titled command line, run in the demo folder. svg names the
// drawing the command writes, if any, for the demo's index page.
struct DemoStep {
    int order;
    std::string title;
    std::vector<std::string> args;
    std::string svg;
};

class DemoRegistrar {
public:
    explicit DemoRegistrar(DemoStep step);
};

const std::vector<CliCommand>& cli_Commands();
std::vector<DemoStep> cli_DemoSteps();  // sorted by order

// Parses and runs one command line (without the program name).
int cli_Run(const std::vector<std::string>& args, CliIO& io);

// Exit status of a command that ended with result id rc (0 or a message id):
// 1 when rc is non-zero or the command showed a message, else 0.
int cli_Status(int rc);
