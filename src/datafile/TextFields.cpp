#include <cctype>
#include <cstdlib>
#include <cstring>

#include "datafile/DataFile.h"
#include "framework/Messages.h"

int op_ParseNumber(const char* text, double* out) {
    char* end = nullptr;
    *out = std::strtod(text, &end);
    if (end != text + std::strlen(text)) {
        *out = 0.0;
        return IDS_INVALID_NUMBER;
    }
    // A negative zero is no number a user means.
    if (text[0] == '-' && *out == 0.0) {
        *out = 0.0;
        return IDS_INVALID_NUMBER;
    }
    return 0;
}

void op_TrimRight(char* text) {
    std::size_t n = std::strlen(text);
    while (n > 0 && std::isspace(static_cast<unsigned char>(text[n - 1]))) --n;
    text[n] = '\0';
}

bool op_IsAlpha(const char* text) {
    for (; *text; ++text)
        if (!std::isalpha(static_cast<unsigned char>(*text))) return false;
    return true;
}

bool op_IsDigits(const char* text) {
    for (; *text; ++text)
        if (!std::isdigit(static_cast<unsigned char>(*text))) return false;
    return true;
}

int op_ParseRepTreatment(const char* text) {
    if (!*text) return REP_FIRST;
    if (op_IsAlpha(text)) {
        switch (std::toupper(static_cast<unsigned char>(text[0]))) {
            case 'L':
                return REP_LUMPED;
            case 'A':
            case 'R':
                return REP_ALL;
            default:
                return REP_INVALID;
        }
    }
    if (op_IsDigits(text) && std::strlen(text) <= 9) return std::atoi(text);
    return REP_INVALID;
}

void op_PickNonEmpty(std::string& target, const std::string& first, const std::string& second) {
    if (target.empty()) target = second.empty() ? first : second;
}
