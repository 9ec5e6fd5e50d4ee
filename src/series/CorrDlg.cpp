#include "series/CorrDlg.h"

#include "dialog/DataFileCheck.h"
#include "framework/IntField.h"
#include "framework/Messages.h"

bool CCorrDlg::ExchangeFields(std::string* message) {
    if (ddx_IntField(m_strMaxLags, 0, kMaxLagsLimit, &m_nMaxLags, message)) return true;
    SetFocusControl(DlgControl::MaxLags);
    return false;
}

int CCorrDlg::Validate(int*) {
    auto fail = [this](int id, DlgControl control) {
        SetFocusControl(control);
        return id;
    };
    SetFocusControl(DlgControl::None);
    if (m_strFile.empty()) return fail(IDS_SOURCE_NOT_SPECIFIED, DlgControl::DataFile);
    DataFileCheck file{m_strFile, m_strReps};
    if (int rc = dlg_CheckDataFile(file, {FileCheck::Exists})) return fail(rc, DlgControl::DataFile);
    if (dlg_SameFileName(m_strOutFile, m_strFile)) return fail(IDS_SAME_OUTPUT_FILE, DlgControl::OutputFile);
    if (int rc = dlg_CheckDataFile(file, {FileCheck::Header, FileCheck::Treatment}))
        return fail(rc, dlg_FileFocus(file.failed));
    if (m_nMaxLags <= 0) return fail(IDS_MAX_LAGS_POSITIVE, DlgControl::MaxLags);
    if (int rc = dlg_CheckDataFile(file, {FileCheck::EnoughReps, FileCheck::NotTimePersistent}))
        return fail(rc, dlg_FileFocus(file.failed));
    return 0;
}

std::vector<DlgField> CCorrDlg::Fields() {
    std::vector<DlgField> fields = CBaseDlg::Fields();
    DlgField lags;
    lags.key = "maxLags";
    lags.label = "&Maximum Lags:";
    lags.control = DlgControl::MaxLags;
    lags.text = &m_strMaxLags;
    DlgField out;
    out.kind = DlgField::Kind::SaveFile;
    out.key = "outFile";
    out.label = "&Save Autocorrelation Values in File:";
    out.control = DlgControl::OutputFile;
    out.text = &m_strOutFile;
    out.maxLength = 255;
    out.filter = msg_Text(16071);
    fields.push_back(lags);
    fields.push_back(out);
    return fields;
}
