#include "FileArgs.h"

#include <filesystem>

FileArg cli_ParseFileArg(const std::string& arg) {
    std::error_code ec;
    auto at = arg.rfind('@');
    if (at == std::string::npos || std::filesystem::exists(arg, ec)) return {arg, ""};
    return {arg.substr(0, at), arg.substr(at + 1)};
}
