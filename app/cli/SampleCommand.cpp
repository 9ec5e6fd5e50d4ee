// oproc sample DIR: writes the sample data files of the queueing model.
#include <ostream>

#include "Command.h"
#include "datafile/SampleModel.h"
#include "framework/Host.h"

namespace {

struct Options {
    std::string dir;
    SampleOptions sample;
};
Options g_opt;

CLI::App* Setup(CLI::App& app) {
    g_opt = Options{};
    CLI::App* sub = app.add_subcommand("sample", "Write sample data files from a small queueing simulation");
    sub->add_option("DIR", g_opt.dir, "Folder to write the files into (created if missing)")->required();
    sub->add_option("--seed", g_opt.sample.seed, "Random number seed; the same seed gives the same files")
        ->type_name("INT")
        ->capture_default_str();
    sub->add_option("--reps", g_opt.sample.reps, "Number of replications")
        ->check(CLI::Range(1, 100000))
        ->type_name("INT")
        ->capture_default_str();
    sub->add_option("--horizon", g_opt.sample.horizon, "Simulated time per replication")
        ->check(CLI::Range(1.0, 1e9))
        ->type_name("NUMBER")
        ->capture_default_str();
    sub->add_option("--service-rate", g_opt.sample.serviceRate,
                    "Customers the server completes per time unit (a second design to compare against)")
        ->check(CLI::Range(0.01, 1000.0))
        ->type_name("NUMBER")
        ->capture_default_str();
    sub->footer(
        "Files: a single-server queue at utilisation 0.9 that starts empty in each replication.\n"
        "  waits.dat     Tally: each customer's wait in queue\n"
        "  queue.dat     DSTAT: number in queue\n"
        "  workload.dat  CSTAT: unfinished work at the server\n"
        "  served.dat    Counter: customers served so far\n"
        "  meanwait.dat  Output: the average wait of each replication");
    return sub;
}

int Run(CliIO& io) {
    int rc = sample_Write(g_opt.dir, g_opt.sample);
    if (rc) {
        AfxMessageBox(rc);
        return cli_Status(rc);
    }
    for (const SampleFile& f : sample_Files()) io.out << g_opt.dir << '/' << f.name << "  " << f.describe << '\n';
    return cli_Status(0);
}

CommandRegistrar g_reg(10, Setup, Run);

}  // namespace
