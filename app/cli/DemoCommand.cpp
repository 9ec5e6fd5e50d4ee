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
    sub->add_option("--seed", g_sample.seed, "Random number seed of the sample data")
        ->type_name("INT")
        ->capture_default_str();
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

// An argument as a POSIX shell reads it back: bare when it holds only safe
// characters, else in single quotes (a quote inside as '\'').
std::string ShellQuoted(const std::string& arg) {
    const bool bare = !arg.empty() && arg.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                                            "0123456789@%+=:,./_-") == std::string::npos;
    if (bare) return arg;
    std::string out = "'";
    for (char c : arg) out += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return out + "'";
}

std::string CommandLine(const std::vector<std::string>& args) {
    std::string line = "oproc";
    for (const std::string& a : args) line += ' ' + ShellQuoted(a);
    return line;
}

// The same drawing as PNG and PDF beside a step's SVG.
std::string Beside(const std::string& svg, const char* ext) {
    return fs::path(svg).replace_extension(ext).string();
}

void AddOtherForms(DemoStep& step) {
    if (step.svg.empty()) return;
    step.args.insert(step.args.end(), {"--png", Beside(step.svg, ".png"), "--pdf", Beside(step.svg, ".pdf")});
}

struct Shown {
    DemoStep step;
    std::string report;
    std::string messages;
    int status;
};

std::string Anchor(std::size_t i) { return "step" + std::to_string(i + 1); }

// One section per step: the command line, then the report and, when the step
// draws, its graph beside it (below it on a narrow window).
void WriteIndex(const std::vector<Shown>& shown) {
    std::ofstream html("index.html");
    html << "<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>oproc demo</title>\n<style>\n"
            "body{font-family:sans-serif;margin:2em;color:#222}\n"
            // Two columns of short entries; a long title wraps inside its column.
            "nav ol{columns:2 24em;column-gap:3em;max-width:64em;padding-left:1.5em}\n"
            "nav li{break-inside:avoid;margin:0 0 .3em 0;overflow-wrap:anywhere}\n"
            "section{border-top:1px solid #ccc;padding:1em 0}\n"
            ".pair{display:flex;gap:1.5em;align-items:flex-start}\n"
            "@media (max-width:1100px){.pair{flex-wrap:wrap}}\n"
            "pre{font-family:'Liberation Mono','Courier New',monospace;font-size:12px;background:#f8f8f8;"
            "padding:.6em;margin:0;overflow-x:auto;max-width:100%}\n"
            "pre{flex:0 0 auto}figure{margin:0;flex:1 1 0;min-width:360px;max-width:800px}\n"
            "figure img{border:1px solid #ddd;width:100%;height:auto}\n"
            "figcaption{font-size:12px;color:#666}\n"
            "code{background:#f4f4f4;padding:.1em .3em}.status{color:#b00}\n"
            "</style></head><body>\n<h1>oproc demo</h1>\n"
            "<p>Every command below ran on the sample data in this folder; each report is shown as printed, "
            "beside the graph the command wrote.</p>\n<nav><ol>\n";
    for (std::size_t i = 0; i < shown.size(); ++i)
        html << "<li><a href=\"#" << Anchor(i) << "\">" << Html(shown[i].step.title) << "</a></li>\n";
    html << "</ol></nav>\n";
    for (std::size_t i = 0; i < shown.size(); ++i) {
        const Shown& s = shown[i];
        html << "<section id=\"" << Anchor(i) << "\"><h2>" << Html(s.step.title) << "</h2>\n<p><code>"
             << Html(CommandLine(s.step.args)) << "</code>";
        if (s.status != 0) html << " <span class=\"status\">exit status " << s.status << "</span>";
        html << "</p>\n<div class=\"pair\">";
        std::string text = s.report + s.messages;
        if (!text.empty()) html << "<pre>" << Html(text) << "</pre>";
        if (!s.step.svg.empty() && fs::exists(s.step.svg)) {
            html << "<figure><img src=\"" << Html(s.step.svg) << "\" alt=\"" << Html(s.step.title)
                 << "\"><figcaption>";
            const char* sep = "";
            for (const std::string& file : {s.step.svg, Beside(s.step.svg, ".png"), Beside(s.step.svg, ".pdf")}) {
                if (!fs::exists(file)) continue;
                html << sep << "<a href=\"" << Html(file) << "\">" << Html(file) << "</a>";
                sep = " &middot; ";
            }
            html << "</figcaption></figure>";
        }
        html << "</div></section>\n";
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
    for (DemoStep step : cli_DemoSteps()) {
        AddOtherForms(step);
        std::ostringstream out, err;
        CliIO capture{out, err};
        int status = cli_Run(step.args, capture);
        io.out << "\n$ " << CommandLine(step.args) << '\n' << out.str() << err.str();
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
