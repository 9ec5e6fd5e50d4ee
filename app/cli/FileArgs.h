// Command-line file arguments: FILE or FILE@REPS, where REPS is the text a user
// types into a "Replications" field.
#pragma once

#include <string>

struct FileArg {
    std::string path;
    std::string reps;  // empty when not given
};

// A whole argument that names an existing file is a path even if it holds '@';
// otherwise the text after the last '@' is the treatment.
FileArg cli_ParseFileArg(const std::string& arg);
