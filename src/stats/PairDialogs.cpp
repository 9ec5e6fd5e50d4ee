#include "stats/PairDialogs.h"

#include <unistd.h>

#include <cmath>

#include "datafile/DataFile.h"
#include "datafile/RepChecks.h"
#include "framework/Messages.h"

namespace {

int CheckFile(CMultiFileItem& item) {
    if (::access(item.m_strPath.c_str(), F_OK) != 0) return IDS_FILE_NOT_FOUND;
    item.m_nTreatment = op_ParseRepTreatment(item.m_strReps.c_str());
    if (rep_CheckTreatment(item.m_nTreatment)) return IDS_INVALID_REP_TREATMENT;
    int kind = 0, reinit = 0, count = 0;
    std::string title;
    if (op_CheckFileHdr(item.m_strPath.c_str(), &kind, &reinit, &count, &title, 2) == IDS_INVALID_HEADER)
        return IDS_INVALID_DATA_FILE;
    return rep_CheckObservationKind(kind, item.m_nTreatment);
}

// Row messages select the failing pair in the list; the level message moves to
// the level combo; the others leave the focus where it was.
const char* FocusFor(int id) {
    switch (id) {
        case IDS_INVALID_REP_TREATMENT:
        case IDS_TIME_PERSISTENT:
        case IDS_FILE_NOT_FOUND: return IDC_PAIRLIST;
        case IDS_BAD_CONFIDENCE_LEVEL: return IDC_LEVEL;
        default: return "";
    }
}

}  // namespace

int pair_CheckFiles(std::vector<CMultiFileItem>& items, int* failingIndex) {
    if (items.size() < 2) return IDS_NO_FILES;
    for (std::size_t i = 0; i + 1 < items.size(); i += 2) {
        if (failingIndex) *failingIndex = static_cast<int>(i / 2);
        if (int rc = CheckFile(items[i])) return rc;
        if (int rc = CheckFile(items[i + 1])) return rc;
        // Replication i of one file against all replications of the other has
        // no meaning: "All" pairs only with "All".
        if ((items[i].m_nTreatment == REP_ALL) != (items[i + 1].m_nTreatment == REP_ALL))
            return IDS_INVALID_REP_TREATMENT;
    }
    return 0;
}

int CComprDlg::Validate(int* failingIndex) {
    SetFocusControl("");
    if (int rc = pair_CheckFiles(m_items, failingIndex)) {
        SetFocusControl(FocusFor(rc));
        return rc;
    }
    double level = 0.0;
    int parsed = op_ParseNumber(m_strLevel.c_str(), &level);
    if (parsed != 0 || std::isnan(level) || level < 0.0 || level > 1.0) {
        SetFocusControl(IDC_LEVEL);
        return IDS_BAD_CONFIDENCE_LEVEL;
    }
    return 0;
}

int CVarDlg::Validate(int* failingIndex) {
    SetFocusControl("");
    if (int rc = pair_CheckFiles(m_items, failingIndex)) {
        SetFocusControl(FocusFor(rc));
        return rc;
    }
    // A text that is not a number leaves 0.0 behind, which the range refuses.
    double level = 0.0;
    op_ParseNumber(m_strLevel.c_str(), &level);
    if (std::isnan(level) || level <= 0.0 || level >= 1.0 || level > 100.0) {
        SetFocusControl(IDC_LEVEL);
        return IDS_BAD_CONFIDENCE_LEVEL;
    }
    return 0;
}
