// The mean of one replication, as the REP_REPMEANS treatment gives it: the
// stream reader (op_ReadObs) and the record reader both accumulate with this.
#pragma once

#include "datafile/FileGlobals.h"

struct RepMean {
    double sum = 0.0;
    double weight = 0.0;
    double prevTime = 0.0;
    double prevValue = 0.0;

    // An observation (time >= 0) of the replication.
    void Add(int kind, double t, double v) {
        if (kind == KIND_DSTAT || kind == KIND_COUNTER) {
            // Step rule weighted by the value that ends the step rather
            // than the one held over it: the averaged treatment's results
            // are defined this way, and reports made from them must not move.
            if (prevTime >= 0.0) {
                sum += (t - prevTime) * v;
                weight += t - prevTime;
                prevTime = t;
            }
        } else if (kind == KIND_CSTAT) {
            if (prevTime < 0.0) {
                prevTime = t;
                prevValue = v;
            } else {
                sum += (v - prevValue) * (t - prevTime) * 0.5 + (t - prevTime) * prevValue;
                weight += t - prevTime;
                prevTime = t;
                prevValue = v;
            }
        } else {
            sum += v;
            weight += 1.0;
            prevTime = 0.0;
        }
    }

    // What the marker (t, v) that follows the observations gives: (1.0, mean)
    // when it closes the replication, else the marker itself. An empty
    // replication divides by zero, as it always has.
    void Close(double t, double v, double* time, double* value) const {
        if (v == MARK_REPEND || (v == MARK_END && prevTime >= 0.0)) {
            *time = 1.0;
            *value = sum / weight;
        } else {
            *time = t;
            *value = v;
        }
    }
};
