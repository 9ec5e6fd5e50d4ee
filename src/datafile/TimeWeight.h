// How a time-persistent quantity fills the time between two of its records,
// the rules Batch/Truncate batches by and the bar chart averages by: a step
// (the value holds until the next record) for DSTAT, Counter and Frequency;
// a line (the value moves linearly to the next record) for the other kinds.
#pragma once

#include "datafile/FileGlobals.h"

inline bool op_StepWeighted(int kind) {
    return kind == KIND_DSTAT || kind == KIND_COUNTER || kind == KIND_FREQUENCY;
}

// The area under the quantity from (t0, v0) to (t1, v1) by the rule; step is a
// template argument so that a per-record loop carries no test of it.
template <bool step>
inline double op_WeightedArea(double t0, double v0, double t1, double v1) {
    if constexpr (step)
        return (t1 - t0) * v0;
    else
        return (t1 - t0) * (v0 + v1) * 0.5;
}
