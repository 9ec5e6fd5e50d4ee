#include "graph/TableDoc.h"

#include "datafile/DataFile.h"
#include "framework/Messages.h"
#include "graph/TableDlg.h"

int CTableDoc::InitFromDialog(CDialog& dialog) {
    auto* dlg = dynamic_cast<CTableDlg*>(&dialog);
    if (!dlg) return IDS_NO_FILES;
    m_results = TableResults{};
    m_results.title = dlg->m_strTitle;
    TableWindow& w = m_results.window;
    m_results.timesGiven[0] = dlg->m_dBeginTime >= 0.0;
    m_results.timesGiven[1] = dlg->m_dEndTime >= 0.0;
    if (m_results.timesGiven[0]) w.from = dlg->m_dBeginTime;
    if (m_results.timesGiven[1]) w.to = dlg->m_dEndTime;
    w.first = dlg->m_nFirst;
    if (dlg->m_nCount > 0) w.count = dlg->m_nCount;
    XMin() = dlg->m_dBeginTime;
    XMax() = dlg->m_dEndTime;

    std::vector<TableSource> sources;
    for (const CMultiFileItem& item : dlg->m_items) sources.push_back({item.m_strPath, item.m_nTreatment});
    if (sources.empty()) return IDS_NO_FILES;
    if (int rc = m_rows.Open(sources, w)) {
        m_rows.Close();
        return rc == IDS_NO_FILE_OPEN ? IDS_FILE_NOT_FOUND : rc;
    }
    for (std::size_t i = 0; i < sources.size(); ++i) {
        const DataFileHeader& h = m_rows.Header(i);
        TableFileResult f;
        f.path = sources[i].path;
        f.reps = dlg->m_items[i].m_strReps;
        f.treatment = sources[i].treatment;
        f.ident = h.ident;
        while (!f.ident.empty() && f.ident.back() == ' ') f.ident.pop_back();
        f.title = h.title;
        f.kind = h.kind;
        f.isDouble = h.isDouble != 0;
        m_results.files.push_back(std::move(f));
    }
    SetTitle(m_results.title.empty() ? sources.front().path : m_results.title);
    return 0;
}

void CTableDoc::OnCloseDocument() {
    m_rows.Close();
    CGraphDoc::OnCloseDocument();
}

CTableRows& CTableDoc::Rows() {
    m_rows.SeekRow(0);
    return m_rows;
}

int CTableDoc::FetchRows(std::int64_t first, std::int64_t count, std::vector<TableRow>* out) {
    out->clear();
    if (count < 1 || !m_rows.SeekRow(first)) return m_rows.Error();
    TableRow row;
    while (static_cast<std::int64_t>(out->size()) < count && m_rows.Next(&row)) out->push_back(row);
    return m_rows.Error();
}
