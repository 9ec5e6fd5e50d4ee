#include "framework/IntField.h"

#include <cerrno>
#include <cstdlib>

namespace {

const char* SkipBlanks(const char* p) {
    while (*p == ' ' || *p == '\t') ++p;
    return p;
}

}  // namespace

bool ddx_IntField(const std::string& text, int min, int max, int* value, std::string* message) {
    const char* p = SkipBlanks(text.c_str());
    const char first = *p;
    const char* digits = (first == '+' || first == '-') ? p + 1 : p;
    char* end = nullptr;
    errno = 0;
    long v = (*digits >= '0' && *digits <= '9') ? std::strtol(p, &end, 10) : 0;
    // The framework takes a zero only when the text starts with the digit 0,
    // so "-0" and "+0" are not integers to it.
    bool integer = end != nullptr && *SkipBlanks(end) == '\0' && (v != 0 || first == '0');
    if (!integer) {
        *message = "Please enter an integer.";
        return false;
    }
    if (errno == ERANGE || v < min || v > max) {
        *message = "Please enter an integer between " + std::to_string(min) + " and " + std::to_string(max) + ".";
        return false;
    }
    *value = static_cast<int>(v);
    return true;
}
