// --format text|json|csv: a command's results as the fixed-column report (the
// default, unchanged), as one JSON object, or as CSV rows, for scripts.
//
// A command takes the option with one line in its setup:
//
//     cli_AddFormatOption(sub);
//
// An analysis run through its command entry (cli_RunEntry) needs nothing
// more: the host takes the results of the window the entry opens from the
// command's row (AnalysisFactory::results in group/CommandTable.cpp, made by a
// function beside the document, e.g. stats/IntervalExport.h). A command that
// prints without a window (info, group list) checks cli_Format() and, when it
// is not text, hands its record to cli_SetResults instead of printing.
//
// The JSON object holds "command", "version", "parameters", "results" and
// "messages" (each message shown on the way, {"id": N, "text": "..."}); a run
// that ends in a message (exit status 1) adds "error", the last message. CSV
// writes the record's table, and nothing for a failing run.
#pragma once

#include <string>

#include "Command.h"
#include "report/ResultValue.h"

enum class ResultFormat { Text, Json, Csv };

// Adds --format to sub.
void cli_AddFormatOption(CLI::App* sub);

// The format of the command being run.
ResultFormat cli_Format();
// The results of the command being run, for a command that makes them itself.
void cli_SetResults(ResultRecord record);

// For cli_Run: the format the last parse gave, and the output of a finished
// run of command (its name, "group list") that exited with status.
ResultFormat cli_ParsedFormat();
void cli_WriteResults(const std::string& command, int status, CliIO& io);
