#include "dialog/DataFileCheck.h"

#include <filesystem>

#include "datafile/DataFile.h"
#include "datafile/RepChecks.h"
#include "framework/Host.h"
#include "framework/Messages.h"

namespace {

int RunStep(DataFileCheck& f, FileCheck step) {
    switch (step) {
        case FileCheck::Exists: {
            std::error_code ec;
            return std::filesystem::exists(f.path, ec) ? 0 : IDS_FILE_NOT_FOUND;
        }
        case FileCheck::Treatment: return rep_CheckTreatment(f.treatment) ? IDS_INVALID_REP_TREATMENT : 0;
        case FileCheck::Header:
        case FileCheck::HeaderReadable: {
            int reinit = 0, count = 0;
            std::string title;
            int rc = op_CheckFileHdr(f.path.c_str(), &f.kind, &reinit, &count, &title, 2);
            if (rc == IDS_INVALID_HEADER) return IDS_INVALID_DATA_FILE;
            // Most dialogs leave other failures to the document that reads the file.
            if (step == FileCheck::Header) return 0;
            return rc == IDS_NO_FILE_OPEN ? IDS_FILE_NOT_FOUND : rc;
        }
        case FileCheck::EnoughReps: return rep_CheckEnoughReps(f.path.c_str(), f.treatment);
        case FileCheck::NotTimePersistent: return op_IsTimePersistent(f.kind) ? IDS_TIME_PERSISTENT : 0;
        case FileCheck::Observations: return rep_CheckObservationKind(f.kind, f.treatment);
    }
    return 0;
}

}  // namespace

int dlg_CheckDataFile(DataFileCheck& file, std::initializer_list<FileCheck> steps) {
    file.treatment = op_ParseRepTreatment(file.reps.c_str());
    host_SetSubjectFile(file.path);
    for (FileCheck step : steps) {
        if (int rc = RunStep(file, step)) {
            file.failed = step;
            return rc;
        }
    }
    return 0;
}

DlgControl dlg_FileFocus(FileCheck failed) {
    return failed == FileCheck::Treatment || failed == FileCheck::EnoughReps ? DlgControl::Replications
                                                                             : DlgControl::DataFile;
}

bool dlg_SameFileName(const std::string& a, const std::string& b) {
    namespace fs = std::filesystem;
    if (a.empty() || b.empty()) return false;
    std::error_code ec;
    if (fs::equivalent(a, b, ec)) return true;
    fs::path pa = fs::weakly_canonical(fs::absolute(a, ec), ec);
    fs::path pb = fs::weakly_canonical(fs::absolute(b, ec), ec);
    return pa == pb;
}

double dlg_AlphaFromLevel(const std::string& level) {
    double value = 0.0;
    op_ParseNumber(level.c_str(), &value);
    return value > 1.0 ? 1.0 - value / 100.0 : 1.0 - value;
}
