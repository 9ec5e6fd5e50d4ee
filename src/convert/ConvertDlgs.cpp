#include "convert/ConvertDlgs.h"

#include <filesystem>

#include "datafile/DataFile.h"
#include "datafile/RepChecks.h"
#include "dialog/DataFileCheck.h"
#include "framework/Messages.h"

namespace {

// The checks of a text source that every text-reading conversion makes.
int CheckTextSource(const std::string& file, const std::string& out, DlgControl* focus) {
    *focus = DlgControl::DataFile;
    if (file.empty()) return IDS_SOURCE_NOT_SPECIFIED;
    if (file != "-") {
        std::error_code ec;
        if (!std::filesystem::exists(file, ec)) return IDS_FILE_NOT_FOUND;
    }
    *focus = DlgControl::OutputFile;
    if (file == "-" && out.empty()) return IDS_DEST_NOT_SPECIFIED;
    if (dlg_SameFileName(out, file)) return IDS_SAME_OUTPUT_FILE;
    *focus = DlgControl::None;
    return 0;
}

// The checks of a data file that a conversion reads under a treatment: the
// source of an append or of a DIF file.
int CheckDataSource(DataFileCheck& file, const std::string& out, DlgControl* focus) {
    *focus = DlgControl::DataFile;
    if (file.path.empty()) return IDS_SOURCE_NOT_SPECIFIED;
    if (int rc = dlg_CheckDataFile(file, {FileCheck::Exists})) return rc;
    if (dlg_SameFileName(out, file.path)) {
        *focus = DlgControl::OutputFile;
        return IDS_SAME_OUTPUT_FILE;
    }
    if (int rc = dlg_CheckDataFile(file, {FileCheck::HeaderReadable, FileCheck::Treatment, FileCheck::EnoughReps})) {
        *focus = dlg_FileFocus(file.failed);
        return rc;
    }
    *focus = DlgControl::None;
    return 0;
}

DlgField OutputField(const char* label, std::string& name, std::string filter) {
    DlgField f;
    f.kind = DlgField::Kind::SaveFile;
    f.key = "outFile";
    f.label = label;
    f.control = DlgControl::OutputFile;
    f.text = &name;
    f.filter = std::move(filter);
    return f;
}

}  // namespace

int conv_OpenSource(CSingleDoc& doc, const CBaseDlg& dlg, const std::string& output) {
    if (dlg_SameFileName(output, dlg.m_strFile)) return IDS_SAME_OUTPUT_FILE;
    int treatment = 1;
    if (int rc = rep_CheckTreatmentText(dlg.m_strReps, &treatment)) return rc;
    doc.SetPathName(dlg.m_strFile, false);
    if (!doc.OnOpenDocument(dlg.m_strFile.c_str())) return -1;
    doc.m_nTreatment = treatment;
    return 0;
}

std::string conv_DefaultOutput(const std::string& source, const char* ext) {
    if (source.empty() || source == "-") return {};
    return std::filesystem::path(source).replace_extension(ext).string();
}

int CExprtDlg::Validate(int*) {
    SetFocusControl(DlgControl::DataFile);
    if (m_strFile.empty()) return IDS_SOURCE_NOT_SPECIFIED;
    DataFileCheck file{m_strFile, ""};
    if (int rc = dlg_CheckDataFile(file, {FileCheck::Exists})) return rc;
    if (dlg_SameFileName(m_strOutFile, m_strFile)) {
        SetFocusControl(DlgControl::OutputFile);
        return IDS_SAME_OUTPUT_FILE;
    }
    if (int rc = dlg_CheckDataFile(file, {FileCheck::Header})) return rc;
    SetFocusControl(DlgControl::None);
    return 0;
}

// The fields of the conversions' dialogs.
namespace {

DlgField SourceField(std::string& file, const char* filter) {
    DlgField f = dlg_TextField("source", "&Text File:", DlgControl::DataFile, file, 255);
    f.kind = DlgField::Kind::OpenFile;
    f.filter = filter;
    return f;
}

DlgField SaveFileField(std::string& file, const char* label, std::string filter) {
    DlgField f = dlg_TextField("outFile", label, DlgControl::OutputFile, file, 255);
    f.kind = DlgField::Kind::SaveFile;
    f.filter = std::move(filter);
    return f;
}

// Single or double precision records, or what the configuration says.
DlgField PrecisionField(int& precision) {
    DlgField f;
    f.kind = DlgField::Kind::Choice;
    f.key = "precision";
    f.label = "&Precision:";
    f.value = &precision;
    f.items = {"As Configured", "Double (8-byte records)", "Single (4-byte records)"};
    f.values = {-1, 1, 0};
    return f;
}

constexpr const char* kExportFilter = "Export Files (*.dax)|*.dax|All Files (*.*)|*.*||";
constexpr const char* kTextFilter = "Text Files (*.txt;*.csv)|*.txt;*.csv|All Files (*.*)|*.*||";
constexpr int IDS_DATA_FILE_FILTER = 15912;

}  // namespace

std::vector<DlgField> CExprtDlg::Fields() {
    return {SaveFileField(m_strOutFile, "&Export to File:", kExportFilter)};
}

std::vector<DlgField> CImprtDlg::Fields() {
    DlgField source = SourceField(m_strFile, kExportFilter);
    source.label = "&Export File:";
    return {source, SaveFileField(m_strOutFile, "&Data File:", msg_Text(IDS_DATA_FILE_FILTER)),
            PrecisionField(m_nPrecision)};
}

std::vector<DlgField> CLoadDlg::Fields() {
    DlgField kind = dlg_TextField("kind", "Data &Kind (1 to 7):", DlgControl::DataKind, m_strKind);
    for (int k = 1; k <= 7; ++k) kind.items.push_back(std::to_string(k));
    return {SourceField(m_strFile, kTextFilter),
            SaveFileField(m_strOutFile, "&Data File:", msg_Text(IDS_DATA_FILE_FILTER)),
            kind,
            dlg_TextField("ident", "&Identifier:", DlgControl::None, m_strIdent, 24),
            dlg_TextField("title", "T&itle:", DlgControl::None, m_strTitle, 60),
            PrecisionField(m_nPrecision)};
}

int CImprtDlg::Validate(int*) {
    DlgControl focus;
    int rc = CheckTextSource(m_strFile, m_strOutFile, &focus);
    SetFocusControl(focus);
    return rc;
}

int CLoadDlg::Validate(int*) {
    DlgControl focus;
    int rc = CheckTextSource(m_strFile, m_strOutFile, &focus);
    SetFocusControl(focus);
    if (rc) return rc;
    m_nKind = KIND_TALLY;
    if (!m_strKind.empty()) {
        if (m_strKind.size() != 1 || m_strKind[0] < '1' || m_strKind[0] > '7') {
            SetFocusControl(DlgControl::DataKind);
            return IDS_BAD_DATA_KIND;
        }
        m_nKind = m_strKind[0] - '0';
    }
    return 0;
}

int CAppendDlg::Validate(int*) {
    // The file the command will extend: a name without an extension gets .dat on OK.
    std::string destPath = m_strOutFile;
    if (!destPath.empty() && !std::filesystem::path(destPath).has_extension()) destPath += ".dat";
    DlgControl focus;
    DataFileCheck source{m_strFile, m_strReps};
    int rc = CheckDataSource(source, destPath, &focus);
    SetFocusControl(focus);
    if (rc) return rc;
    SetFocusControl(DlgControl::OutputFile);
    if (destPath.empty()) return IDS_DEST_NOT_SPECIFIED;
    DataFileCheck dest{destPath, ""};
    if (int rc2 = dlg_CheckDataFile(dest, {FileCheck::Exists, FileCheck::HeaderReadable})) return rc2;
    if (dest.kind != source.kind) return IDS_FILE_KIND_MISMATCH;
    // The treatment is what the user changes to satisfy the destination.
    SetFocusControl(DlgControl::Replications);
    if (int rc2 = rep_CheckAppendReinit(op_GetFileReinit(destPath.c_str()), source.treatment)) return rc2;
    SetFocusControl(DlgControl::None);
    return 0;
}

// The destination is chosen among existing files: it is extended, not made.
std::vector<DlgField> CAppendDlg::Fields() { return {OutputField("&Append to File:", m_strOutFile, msg_Text(15937))}; }

int CDiffDlg::Validate(int*) {
    DlgControl focus;
    DataFileCheck source{m_strFile, m_strReps};
    int rc = CheckDataSource(source, m_strOutFile, &focus);
    SetFocusControl(focus);
    return rc;
}

std::vector<DlgField> CDiffDlg::Fields() {
    std::vector<DlgField> fields = CBaseDlg::Fields();
    fields.push_back(OutputField("&DIF File:", m_strOutFile, "DIF Files (*.dif)|*.dif|All Files (*.*)|*.*||"));
    return fields;
}
