#include <bit>
#include <cstring>

#include "datafile/DataFile.h"
#include "datafile/RecordReader.h"
#include "datafile/RepMean.h"
#include "framework/Config.h"
#include "framework/Messages.h"

static_assert(std::endian::native == std::endian::little, "records are stored little-endian");

namespace {

constexpr int kSeekToEnd = 0;
constexpr int kSeekToEndMarker = -9999;
constexpr int kTextLineBuffer = 80;

// Reads a record as binary or as a text line; false at end of file or error.
bool ReadRecord(FILE* f, int isDouble, bool binary, double* time, double* value) {
    if (binary) {
        op_ReadPair(f, isDouble, time, value);
        return !std::feof(f) && !std::ferror(f);
    }
    char line[kTextLineBuffer];
    if (!std::fgets(line, kTextLineBuffer, f)) return false;
    op_ReadTextPair(line, time, value);
    return true;
}

}  // namespace

template <typename T>
static void ReadTwo(FILE* f, double* time, double* value) {
    T rec[2];
    if (std::fread(rec, sizeof rec, 1, f) == 1) {
        *time = rec[0];
        *value = rec[1];
    }
}

void op_ReadPair(FILE* f, int isDouble, double* time, double* value) {
    if (isDouble) {
        ReadTwo<double>(f, time, value);
    } else {
        ReadTwo<float>(f, time, value);
    }
}

int op_WritePair(FILE* f, const double* time, const double* value) {
    if (!f) return 0;
    if (cfg_GetDoublePrecOutput()) {
        double rec[2] = {*time, *value};
        std::fwrite(rec, sizeof rec, 1, f);
    } else {
        float rec[2] = {static_cast<float>(*time), static_cast<float>(*value)};
        std::fwrite(rec, sizeof rec, 1, f);
    }
    return 0;
}

void op_ReadTextPair(const char* line, double* time, double* value) { std::sscanf(line, "%lf %lf", time, value); }

int op_SeekRep(FILE* f, int isDouble, int rep, int* repFound, bool binary) {
    *repFound = rep;
    double time = 0.0;
    double value = 0.0;
    if (rep == kSeekToEnd || rep == kSeekToEndMarker) {
        long pos = std::ftell(f);
        for (;;) {
            pos = std::ftell(f);
            if (!ReadRecord(f, isDouble, binary, &time, &value)) break;
            if (rep == kSeekToEndMarker && binary && value == MARK_END) break;
        }
        std::clearerr(f);
        std::fseek(f, pos, SEEK_SET);
        return 0;
    }
    if (rep == REP_LUMPED) {
        op_ReadObs(f, isDouble, REP_LUMPED, KIND_NONE, &time, &value);
        return 0;
    }
    if (rep >= 1) {
        *repFound = 1;
        while (*repFound < rep) {
            bool got = ReadRecord(f, isDouble, binary, &time, &value);
            if (std::ferror(f)) return IDS_READ_ERROR;
            if (!got) break;
            if (time > -1.0 || value == MARK_SKIP) continue;
            ++*repFound;
        }
        if (*repFound == rep) {
            long pos = std::ftell(f);
            bool got = ReadRecord(f, isDouble, binary, &time, &value);
            if (std::ferror(f)) return IDS_READ_ERROR;
            if (!got) {
                *repFound = 0;
                return IDS_INVALID_REP_TREATMENT;
            }
            std::fseek(f, pos, SEEK_SET);
            op_ReadObs(f, isDouble, rep, KIND_NONE, &time, &value);
            return 0;
        }
    }
    *repFound = 0;
    return IDS_INVALID_REP_TREATMENT;
}

void op_ReadObs(FILE* f, int isDouble, int treatment, int kind, double* time, double* value) {
    if (kind == KIND_NONE) {
        if (NO_RESYNC) return;
        for (;;) {
            op_ReadPair(f, isDouble, time, value);
            if (std::feof(f) || std::ferror(f)) {
                *time = *value = -1.0;
                return;
            }
            if (*time < 0.0 && *value == MARK_SKIP) return;
        }
    }
    RepMean mean;
    for (;;) {
        double t = 0.0;
        double v = 0.0;
        op_ReadPair(f, isDouble, &t, &v);
        if (std::feof(f) || std::ferror(f)) {
            *time = *value = -1.0;
            return;
        }
        if (t < 0.0 && v == MARK_SKIP) continue;
        if (treatment != REP_REPMEANS) {
            *time = t;
            *value = v;
            return;
        }
        if (t >= 0.0) {
            mean.Add(kind, t, v);
            continue;
        }
        mean.Close(t, v, time, value);
        return;
    }
}

int op_CountReps(const char* path) {
    CRecordReader reader;
    if (int rc = reader.Open(path)) return rc == IDS_INVALID_HEADER ? IDS_READ_ERROR : IDS_OPEN_ERROR;
    return reader.CountReps();
}

void op_SeekLastRecord(FILE* f, bool isDouble) { std::fseek(f, isDouble ? -16L : -8L, SEEK_END); }
