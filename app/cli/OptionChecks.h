// Checks of option texts that CLI11 makes before a command runs. The options
// stay texts (a dialog field takes them as typed and applies its own range
// and messages); a text that cannot be what the option asks for at all is a
// usage error, with CLI11's message and status 2.
#pragma once

#include <CLI/CLI.hpp>

#include <string>

// A number (NUMBER in --help) or a whole number (INT).
CLI::Option* cli_AddNumber(CLI::App* sub, const std::string& name, std::string& text, const std::string& help);
CLI::Option* cli_AddInt(CLI::App* sub, const std::string& name, std::string& text, const std::string& help);

// A replication treatment: a replication number, All or Lumped, read as the
// Replications field reads them (by the first letter).
extern const CLI::Validator cli_RepsText;
// A unit of Batch/Truncate: Time or Observation, or a start of either word.
extern const CLI::Validator cli_UnitText;
