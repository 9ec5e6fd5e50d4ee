#include "datafile/FileGlobals.h"

int NO_RESYNC = 1;

void op_InitFileGlobals() { NO_RESYNC = 1; }

const char* op_KindText(int kind) {
    static const char* const kTexts[] = {"DSTAT", "CSTAT", "Tally", "Output", "Filtered", "Counter", "Frequency"};
    return (kind >= 1 && kind <= 7) ? kTexts[kind - 1] : "";
}
