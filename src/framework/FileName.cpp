#include "framework/FileName.h"

#include <filesystem>

namespace fs = std::filesystem;

bool fn_SameFile(const std::string& a, const std::string& b) {
    if (a.empty() || b.empty()) return a == b;
    std::error_code ec;
    if (fs::equivalent(a, b, ec)) return true;
    // An output file usually does not exist yet: compare where the names point.
    fs::path pa = fs::weakly_canonical(fs::absolute(a, ec), ec);
    if (ec) return a == b;
    fs::path pb = fs::weakly_canonical(fs::absolute(b, ec), ec);
    if (ec) return a == b;
    return pa == pb;
}

bool fn_HasExtension(const std::string& path) { return fs::path(path).has_extension(); }
