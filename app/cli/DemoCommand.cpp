// oproc demo [DIR]: makes sample data and runs every analysis on it, printing
// each command and its report, and writes an index page of reports and graphs.
#include <filesystem>
#include <fstream>
#include <ostream>
#include <sstream>

#include "Command.h"
#include "datafile/SampleModel.h"
#include "framework/Host.h"

namespace fs = std::filesystem;

namespace {

std::string g_dir;
SampleOptions g_sample;

CLI::App* Setup(CLI::App& app) {
    g_dir = "oproc-demo";
    g_sample = SampleOptions{};
    CLI::App* sub = app.add_subcommand("demo", "Make sample data and run every analysis on it");
    sub->add_option("DIR", g_dir, "Folder for the sample data, outputs and index.html")->capture_default_str();
    sub->add_option("--seed", g_sample.seed, "Random number seed of the sample data")->capture_default_str();
    return sub;
}

std::string Html(const std::string& text) {
    std::string out;
    for (char c : text) {
        switch (c) {
            case '<': out += "&lt;"; break;
            case '>': out += "&gt;"; break;
            case '&': out += "&amp;"; break;
            default: out += c;
        }
    }
    return out;
}

struct Shown {
    DemoStep step;
    std::string report;
    std::string messages;
    int status;
};

void WriteIndex(const std::vector<Shown>& shown) {
    std::ofstream html("index.html");
    html << "<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>oproc demo</title>\n"
            "<style>body{font-family:sans-serif;margin:2em}section{display:flex;gap:2em;align-items:flex-start;"
            "border-top:1px solid #ccc;padding:1em 0}pre{font-family:'Courier New',monospace;font-size:12px}"
            "code{background:#f4f4f4}</style></head><body>\n<h1>oproc demo</h1>\n";
    for (const Shown& s : shown) {
        html << "<h2>" << Html(s.step.title) << "</h2>\n<p><code>oproc";
        for (const std::string& a : s.step.args) html << ' ' << Html(a);
        html << "</code></p>\n<section><pre>" << Html(s.report + s.messages) << "</pre>";
        if (!s.step.svg.empty()) html << "<img src=\"" << Html(s.step.svg) << "\" alt=\"" << Html(s.step.title) << "\">";
        html << "</section>\n";
    }
    html << "</body></html>\n";
}

int Run(CliIO& io) {
    int rc = sample_Write(g_dir, g_sample);
    if (rc) {
        AfxMessageBox(rc);
        return cli_Status(rc);
    }
    fs::current_path(g_dir);
    io.out << "Sample data written to " << g_dir << "/\n";
    std::vector<Shown> shown;
    int worst = 0;
    for (const DemoStep& step : cli_DemoSteps()) {
        std::ostringstream out, err;
        CliIO capture{out, err};
        int status = cli_Run(step.args, capture);
        io.out << "\n$ oproc";
        for (const std::string& a : step.args) io.out << ' ' << a;
        io.out << '\n' << out.str() << err.str();
        shown.push_back({step, out.str(), err.str(), status});
        if (status > worst) worst = status;
    }
    WriteIndex(shown);
    io.out << "\nIndex of reports and graphs: " << (fs::current_path() / "index.html").string() << '\n';
    return worst;
}

CommandRegistrar g_reg(900, Setup, Run);

DemoRegistrar g_info({10, "The sample files", {"info", "waits.dat", "queue.dat", "meanwait.dat"}, ""});

}  // namespace
