#include "series/MoveDlg.h"

#include <cctype>

#include "dialog/DataFileCheck.h"
#include "framework/IntField.h"
#include "framework/Messages.h"

MoveMethod CMoveDlg::MethodCode(const std::string& text) {
    if (!text.empty() && std::toupper(static_cast<unsigned char>(text[0])) == 'T') return MOVE_TRAILING;
    return MOVE_CENTRED;
}

std::vector<DlgField> CMoveDlg::Fields() {
    std::vector<DlgField> fields = CBaseDlg::Fields();
    fields.push_back(dlg_TextField("window", "&Window (observations):", DlgControl::Window, m_strWindow));
    DlgField method = dlg_TextField("method", "&Method:", DlgControl::Method, m_strMethod);
    method.items = {"Centred", "Trailing"};
    fields.push_back(method);
    DlgField warmup;
    warmup.kind = DlgField::Kind::Check;
    warmup.key = "warmup";
    warmup.label = "Suggest a Warm-&up Period";
    warmup.check = &m_bWarmup;
    fields.push_back(warmup);
    DlgField out =
        dlg_TextField("outFile", "&Save Moving Averages in File:", DlgControl::OutputFile, m_strOutFile, 255);
    out.kind = DlgField::Kind::SaveFile;
    out.filter = msg_Text(15912);
    fields.push_back(out);
    return fields;
}

bool CMoveDlg::ExchangeFields(std::string* message) {
    if (ddx_IntField(m_strWindow, 1, kWindowLimit, &m_nWindow, message)) return true;
    SetFocusControl(DlgControl::Window);
    return false;
}

int CMoveDlg::Validate(int*) {
    auto fail = [this](int id, DlgControl control) {
        SetFocusControl(control);
        return id;
    };
    SetFocusControl(DlgControl::None);
    if (m_strFile.empty()) return fail(IDS_SOURCE_NOT_SPECIFIED, DlgControl::DataFile);
    DataFileCheck file{m_strFile, m_strReps};
    if (int rc = dlg_CheckDataFile(file, {FileCheck::Exists})) return fail(rc, DlgControl::DataFile);
    if (dlg_SameFileName(m_strOutFile, m_strFile)) return fail(IDS_SAME_OUTPUT_FILE, DlgControl::OutputFile);
    if (int rc = dlg_CheckDataFile(file, {FileCheck::Header, FileCheck::Treatment, FileCheck::EnoughReps,
                                          FileCheck::NotTimePersistent}))
        return fail(rc, dlg_FileFocus(file.failed));
    return 0;
}
