// Constants of the data-file layer: replication treatments, data kinds, marker
// values and the shared limits. Treatments are 16-bit values sign-extended to int.
#pragma once

#include <cstdint>

inline constexpr int REP_ALL = static_cast<std::int16_t>(0xFFFF);       // -1
inline constexpr int REP_REPMEANS = static_cast<std::int16_t>(0xFFFE);  // -2
inline constexpr int REP_INVALID = static_cast<std::int16_t>(0xFFFD);   // -3
inline constexpr int REP_LUMPED = static_cast<std::int16_t>(0xFFFC);    // -4
inline constexpr int REP_SPARE = static_cast<std::int16_t>(0xFFFB);     // -5, nothing reads it
inline constexpr int REP_FIRST = 1;

inline constexpr int KIND_NONE = 0;  // makes op_ReadObs a positioning call
inline constexpr int KIND_DSTAT = 1;
inline constexpr int KIND_CSTAT = 2;
inline constexpr int KIND_TALLY = 3;
inline constexpr int KIND_OUTPUT = 4;
inline constexpr int KIND_FILTERED = 5;
inline constexpr int KIND_COUNTER = 6;
inline constexpr int KIND_FREQUENCY = 7;

inline constexpr double MARK_REPEND = 0.0;
inline constexpr double MARK_END = -1.0;
inline constexpr double MARK_SKIP = -2.0;
inline constexpr double BIG_VALUE = 1e20;
inline constexpr double Z_ONE_SIDED_05 = 1.645;
inline constexpr double Z_TWO_SIDED_05 = 1.96;

inline constexpr int MAX_POINTS = 5000;
inline constexpr int MAX_SHORT = 32767;
inline constexpr int SPARE_INT_1 = 10;
inline constexpr int SPARE_INT_2 = 6;
inline constexpr int SPARE_INT_3 = 8;
inline constexpr int SPARE_INT_4 = 10;

// Non-zero turns off the forward skip of op_ReadObs. Start-up sets it to 1;
// it is a variable only so that the skip itself can be exercised.
extern int NO_RESYNC;

// Sets the layer's globals; called once at module start-up.
void op_InitFileGlobals();

// Time-persistent kinds (DSTAT, CSTAT, Counter, Frequency) hold level changes,
// not observations.
inline bool op_IsTimePersistent(int kind) {
    return kind == KIND_DSTAT || kind == KIND_CSTAT || kind == KIND_COUNTER || kind == KIND_FREQUENCY;
}

// Type text of a data kind ("DSTAT" ... "Frequency"); empty outside 1..7.
const char* op_KindText(int kind);
