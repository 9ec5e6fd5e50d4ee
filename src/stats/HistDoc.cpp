#include "stats/HistDoc.h"

#include "datafile/DataFile.h"
#include "framework/Messages.h"
#include "stats/HistDlg.h"

int CHistDoc::InitFromDialog(CDialog& dialog) {
    auto* dlg = dynamic_cast<CHistDlg*>(&dialog);
    if (!dlg) return IDS_SOURCE_NOT_SPECIFIED;
    m_params = HistogramParams{};
    if (!dlg->m_strStart.empty()) m_params.start = dlg->m_dStart;
    if (!dlg->m_strWidth.empty()) m_params.width = dlg->m_dWidth;
    m_params.count = dlg->m_nCells;
    m_strHistTitle = dlg->m_strTitle;
    m_strFile = dlg->m_strFile;
    m_strReps = dlg->m_strReps;
    SetPathName(dlg->m_strFile, false);
    if (!OnOpenDocument(dlg->m_strFile.c_str())) return kOpenFailed;
    m_nTreatment = op_ParseRepTreatment(dlg->m_strReps.c_str());
    return Compute();
}

int CHistDoc::Compute() {
    m_results = HistogramResult{};
    if (!IsOpen()) return IDS_READ_ERROR;
    return hist_Compute(Reader(), m_nTreatment, m_params, &m_results);
}
