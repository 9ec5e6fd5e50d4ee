#include "dialog/FileDialogs.h"

#include "datafile/DataFile.h"

CMultiFileItem::CMultiFileItem(std::string path, std::string reps)
    : m_strPath(std::move(path)), m_strReps(std::move(reps)), m_nTreatment(op_ParseRepTreatment(m_strReps.c_str())) {}

void CBaseMultiDlg::AddFile(const std::string& path, const std::string& reps) { m_items.emplace_back(path, reps); }

DlgField dlg_TitleField(std::string& title) {
    DlgField f;
    f.key = "title";
    f.label = "&Title:";
    f.text = &title;
    return f;
}

DlgField dlg_LevelField(std::string& level) {
    DlgField f;
    f.key = "level";
    f.label = "&Confidence Level:";
    f.control = DlgControl::Level;
    f.text = &level;
    f.items = {"0.99", "0.95", "0.90"};
    f.maxLength = 128;
    return f;
}

DlgField dlg_ScaleField(bool& scale) {
    DlgField f;
    f.kind = DlgField::Kind::Check;
    f.key = "scale";
    f.label = "&Scale Display";
    f.check = &scale;
    return f;
}

std::vector<DlgField> CBaseDlg::Fields() { return {dlg_TitleField(m_strTitle)}; }

std::vector<DlgField> CBaseMultiDlg::Fields() {
    return {dlg_TitleField(m_strTitle), dlg_LevelField(m_strLevel), dlg_ScaleField(m_bScale)};
}

std::vector<DlgField> CBasePairsDlg::Fields() {
    return {dlg_TitleField(m_strTitle), dlg_LevelField(m_strLevel), dlg_ScaleField(m_bScale)};
}
