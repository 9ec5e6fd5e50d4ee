#include "stats/PairDialogs.h"

#include <cmath>

#include "datafile/DataFile.h"
#include "dialog/DataFileCheck.h"
#include "framework/Messages.h"

namespace {

int CheckFile(CMultiFileItem& item) {
    DataFileCheck file{item.m_strPath, item.m_strReps};
    int rc = dlg_CheckDataFile(file, {FileCheck::Exists, FileCheck::Treatment, FileCheck::Header,
                                      FileCheck::Observations});
    item.m_nTreatment = file.treatment;
    return rc;
}

// Row messages select the failing pair in the list; the level message moves to
// the level combo; the others leave the focus where it was.
DlgControl FocusFor(int id) {
    switch (id) {
        case IDS_INVALID_REP_TREATMENT:
        case IDS_TIME_PERSISTENT:
        case IDS_FILE_NOT_FOUND: return DlgControl::FileList;
        case IDS_BAD_CONFIDENCE_LEVEL: return DlgControl::Level;
        default: return DlgControl::None;
    }
}

}  // namespace

int pair_CheckFiles(std::vector<CFilePairItem>& pairs, int* failingIndex) {
    if (pairs.empty()) return IDS_NO_FILES;
    for (std::size_t i = 0; i < pairs.size(); ++i) {
        if (failingIndex) *failingIndex = static_cast<int>(i);
        if (int rc = CheckFile(pairs[i].a)) return rc;
        if (int rc = CheckFile(pairs[i].b)) return rc;
        // Replication i of one file against all replications of the other has
        // no meaning: "All" pairs only with "All".
        if ((pairs[i].a.m_nTreatment == REP_ALL) != (pairs[i].b.m_nTreatment == REP_ALL))
            return IDS_INVALID_REP_TREATMENT;
    }
    return 0;
}

int CComprDlg::Validate(int* failingIndex) {
    SetFocusControl(DlgControl::None);
    if (int rc = pair_CheckFiles(m_pairs, failingIndex)) {
        SetFocusControl(FocusFor(rc));
        return rc;
    }
    double level = 0.0;
    int parsed = op_ParseNumber(m_strLevel.c_str(), &level);
    if (parsed != 0 || std::isnan(level) || level < 0.0 || level > 1.0) {
        SetFocusControl(DlgControl::Level);
        return IDS_BAD_CONFIDENCE_LEVEL;
    }
    return 0;
}

int CVarDlg::Validate(int* failingIndex) {
    SetFocusControl(DlgControl::None);
    if (int rc = pair_CheckFiles(m_pairs, failingIndex)) {
        SetFocusControl(FocusFor(rc));
        return rc;
    }
    // A text that is not a number leaves 0.0 behind, which the range refuses.
    double level = 0.0;
    op_ParseNumber(m_strLevel.c_str(), &level);
    if (std::isnan(level) || level <= 0.0 || level >= 1.0 || level > 100.0) {
        SetFocusControl(DlgControl::Level);
        return IDS_BAD_CONFIDENCE_LEVEL;
    }
    return 0;
}

std::vector<DlgField> CComprDlg::Fields() {
    std::vector<DlgField> fields = CBasePairsDlg::Fields();
    DlgField method;
    method.kind = DlgField::Kind::Choice;
    method.key = "method";
    method.label = "&Method:";
    method.value = &m_nMethod;
    method.items = {"Paired-t", "Two-sample-t"};
    method.values = {METHOD_PAIRED, METHOD_TWO_SAMPLE};
    fields.insert(fields.begin() + 2, method);
    return fields;
}
