#include "MessageSubject.h"

#include <cmath>
#include <cstdio>

#include "datafile/DataFile.h"
#include "framework/Dialog.h"
#include "framework/Host.h"
#include "framework/Messages.h"

namespace {

// Messages about the file being read or checked; the others are about a
// field, the whole command, or several files at once.
bool AboutFile(int id) {
    switch (id) {
        case IDS_NO_FILE_OPEN:
        case IDS_TIME_PERSISTENT:
        case IDS_FILE_NOT_FOUND:
        case IDS_INVALID_DATA_FILE:
        case 15831:  // too few data points for the lags
        case IDS_OPEN_ERROR:
        case IDS_WRITE_ERROR:
        case IDS_READ_ERROR:
        case IDS_END_OF_FILE:
        case IDS_NO_OBSERVATIONS:
        case IDS_ALREADY_IN_GROUP:
        case IDS_INVALID_HEADER:
        case IDS_NO_OBSERVATIONS_FOUND:
        case IDS_LUMPED_NOT_ALLOWED:
        case IDS_ERROR_ACCESSING_FILE:
        case IDS_FAILED_TO_OPEN_DOC:
        case IDS_FAILED_TO_SAVE_DOC:
        case IDS_BAD_FORMAT: return true;
        default: return false;
    }
}

bool AboutReplications(int id) { return id == IDS_INVALID_REP_TREATMENT || id == IDS_NOT_ENOUGH_REPS; }

std::string Replications(const std::string& path, int count) {
    return path + " has " + std::to_string(count) + (count == 1 ? " replication" : " replications");
}

std::string FileOrReplications(int id, const std::string& path) {
    if (path.empty()) return "";
    if (AboutReplications(id)) {
        // A count that is really a message id: no replication ended properly.
        const int count = op_CountReps(path.c_str());
        if (count >= 0 && count < 15000) return Replications(path, count);
    }
    return "file " + path;
}

const char* Option(DlgControl control) {
    switch (control) {
        case DlgControl::Level: return "--level";
        case DlgControl::OutputFile: return "--out";
        case DlgControl::MaxLags: return "--max-lags";
        case DlgControl::Truncation: return "--trunc";
        case DlgControl::BatchSize: return "--batch-size";
        case DlgControl::BeginTime: return "--from";
        case DlgControl::EndTime: return "--to";
        case DlgControl::MinValue: return "--min";
        case DlgControl::MaxValue: return "--max";
        default: return nullptr;
    }
}

}  // namespace

std::string cli_MessageSubject(int id) {
    const MessageSubject& s = host_Subject();
    if (const char* option = Option(s.control)) return std::string("option ") + option;
    switch (s.control) {
        case DlgControl::FileList:
            // The list's own checks (no files at all) name no file.
            if (id == IDS_NO_FILES) return "";
            [[fallthrough]];
        case DlgControl::DataFile:
        case DlgControl::Replications: return FileOrReplications(id, s.file);
        default: break;
    }
    if (AboutFile(id) || AboutReplications(id)) return FileOrReplications(id, s.file);
    return "";
}

std::string cli_ReplicationNote(const std::string& path, const std::string& choose) {
    // The end marker holds minus the number of the replication it closes, so
    // the last record tells the count without a pass over the file (the
    // header's count field is often left at 1).
    int err = 0;
    FILE* f = op_OpenDataFile(&err, path.c_str(), 2, true);
    if (!f) return "";
    DataFileHeader h;
    double t = 0.0, v = 0.0;
    if (op_ReadFileHdr(f, false, &h) == 0) {
        op_SeekLastRecord(f, h.isDouble != 0);
        op_ReadPair(f, h.isDouble, &t, &v);
    }
    const bool read = !std::ferror(f) && !std::feof(f);
    std::fclose(f);
    if (!read || v != -1.0 || !(t <= -2.0 && t >= -1e9) || t != std::floor(t)) return "";
    return "note: " + Replications(path, static_cast<int>(-t)) + "; replication 1 is read (choose with " + choose +
           "N, " + choose + "All or " + choose + "Lumped)";
}
