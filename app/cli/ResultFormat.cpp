#include "ResultFormat.h"

#include <map>
#include <ostream>

#include "CliHost.h"
#include "report/ResultWriter.h"

namespace {

// Bound to every command's --format; each setup starts it afresh.
ResultFormat g_parsed = ResultFormat::Text;

}  // namespace

void cli_AddFormatOption(CLI::App* sub) {
    g_parsed = ResultFormat::Text;
    const std::map<std::string, ResultFormat> names{
        {"text", ResultFormat::Text}, {"json", ResultFormat::Json}, {"csv", ResultFormat::Csv}};
    sub->add_option("--format", g_parsed, "Results as the text report (default), JSON or CSV")
        ->transform(CLI::CheckedTransformer(names, CLI::ignore_case))
        ->option_text("text|json|csv");
}

ResultFormat cli_ParsedFormat() { return g_parsed; }

ResultFormat cli_Format() { return cli_Host().Format(); }

void cli_SetResults(ResultRecord record) { cli_Host().SetResults(std::move(record)); }

void cli_WriteResults(const std::string& command, int status, CliIO& io) {
    CliHost& host = cli_Host();
    const std::optional<ResultRecord>& record = host.Results();
    if (host.Format() == ResultFormat::Csv) {
        if (record && status == 0) res_WriteCsv(io.out, record->table);
        return;
    }
    if (host.Format() != ResultFormat::Json) return;
    ResultValue doc = ResultValue::Object();
    doc.Set("command", command);
    doc.Set("version", OPROC_VERSION);
    if (record) {
        doc.Set("parameters", record->parameters);
        doc.Set("results", record->results);
    }
    ResultValue messages = ResultValue::List();
    for (const auto& [id, text] : host.Messages())
        messages.Append(ResultValue::Object().Set("id", id).Set("text", text));
    doc.Set("messages", messages);
    if (status == 1) {
        ResultValue error = ResultValue::Object();
        if (host.Messages().empty()) {
            error.Set("id", 0).Set("text", "failed");
        } else {
            error.Set("id", host.Messages().back().first).Set("text", host.Messages().back().second);
        }
        doc.Set("error", std::move(error));
    }
    res_WriteJson(io.out, doc);
}
