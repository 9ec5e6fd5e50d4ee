#include "framework/Config.h"

#include <cstdlib>

namespace {

// Asked once per record written, so the environment is read only once.
int ReadPrecisionSetting() {
    const char* text = std::getenv("OPROC_DOUBLE_PRECISION");
    if (!text || !*text) return 1;
    char* end = nullptr;
    long value = std::strtol(text, &end, 10);
    return (end && *end == '\0') ? static_cast<int>(value) : 1;
}

int g_doublePrec = ReadPrecisionSetting();
int g_win95 = 0;

}  // namespace

int cfg_GetDoublePrecOutput() { return g_doublePrec; }

void cfg_SetDoublePrecOutput(int value) { g_doublePrec = value; }

int IsWin95() { return g_win95; }

void cfg_SetWin95ForTesting(int value) { g_win95 = value; }
