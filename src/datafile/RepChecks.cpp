#include "datafile/RepChecks.h"

#include "datafile/DataFile.h"
#include "datafile/RecordReader.h"
#include "framework/Messages.h"

int rep_CheckTreatment(int treatment) {
    if (treatment == REP_INVALID) return IDS_INVALID_REP_TREATMENT;
    if (treatment < 1 && treatment != REP_LUMPED && treatment != REP_ALL) return IDS_INVALID_REP_TREATMENT;
    return 0;
}

int rep_CheckTreatmentText(const std::string& text, int* treatment) {
    *treatment = op_ParseRepTreatment(text.c_str());
    return rep_CheckTreatment(*treatment);
}

int rep_CheckEnoughReps(const char* path, int treatment) {
    if (treatment < 1) return 0;
    // The count's failures are message ids from 15832 up, and a count is
    // never below 1; below those ids the file needs reading only until
    // enough replications have gone by.
    if (treatment > IDS_OPEN_ERROR) return op_CountReps(path) < treatment ? IDS_NOT_ENOUGH_REPS : 0;
    if (treatment == 1) return 0;
    CRecordReader in;
    if (in.Open(path) != 0 || in.CountReaches(treatment)) return 0;
    return in.CountReps() < treatment ? IDS_NOT_ENOUGH_REPS : 0;
}

int rep_CheckObservationKind(int kind, int treatment) {
    if (op_IsTimePersistent(kind)) return IDS_TIME_PERSISTENT;
    if (kind == KIND_OUTPUT && treatment != REP_LUMPED) return IDS_TIME_PERSISTENT;
    return 0;
}

int rep_CheckSameKind(const char* source, const char* destination) {
    return op_GetFileKind(source) != op_GetFileKind(destination) ? IDS_FILE_KIND_MISMATCH : 0;
}

int rep_CheckSameKinds(const std::vector<std::string>& paths) {
    for (std::size_t i = 1; i < paths.size(); ++i)
        if (op_GetFileKind(paths[i].c_str()) != op_GetFileKind(paths[0].c_str())) return IDS_FILES_KIND_MISMATCH;
    return 0;
}

int rep_CheckAppendReinit(int destinationReinit, int treatment) {
    if (treatment != REP_LUMPED && destinationReinit != 1) return IDS_APPEND_NEEDS_LUMPED;
    if (treatment == REP_LUMPED && destinationReinit == 1) return IDS_APPEND_NEEDS_NONLUMPED;
    return 0;
}

int rep_CheckNotLumped(int treatment) { return treatment == REP_LUMPED ? IDS_LUMPED_NOT_ALLOWED : 0; }
