#include "OptionChecks.h"

#include <cctype>

#include "datafile/DataFile.h"

namespace {

// The type names stand alone in --help, without the validators' own names beside them.
CLI::Validator Unnamed(CLI::Validator v) { return v.description(""); }

const CLI::Validator kNumber = Unnamed(CLI::Number);
const CLI::Validator kInt = Unnamed(CLI::TypeValidator<long>("INT"));

bool StartsWord(std::string text, const std::string& word) {
    for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return !text.empty() && word.compare(0, text.size(), text) == 0;
}

}  // namespace

CLI::Option* cli_AddNumber(CLI::App* sub, const std::string& name, std::string& text, const std::string& help) {
    return sub->add_option(name, text, help)->check(kNumber)->type_name("NUMBER");
}

CLI::Option* cli_AddInt(CLI::App* sub, const std::string& name, std::string& text, const std::string& help) {
    return sub->add_option(name, text, help)->check(kInt)->type_name("INT");
}

const CLI::Validator cli_RepsText(
    [](std::string& text) -> std::string {
        if (op_ParseRepTreatment(text.c_str()) != REP_INVALID) return "";
        return "'" + text + "' is not a replication number, All or Lumped";
    },
    "", "replications");

const CLI::Validator cli_UnitText(
    [](std::string& text) -> std::string {
        // Plurals too, as people write them.
        if (StartsWord(text, "times") || StartsWord(text, "observations")) return "";
        return "'" + text + "' is neither Time nor Observation";
    },
    "", "unit");
