#include "graph/PlotDoc.h"

#include "datafile/GraphScan.h"
#include "framework/Host.h"
#include "framework/Messages.h"
#include "graph/PlotDlg.h"

CPlotDoc::CPlotDoc() {
    // The graph keeps most of a tall frame; the legend gets the rest.
    m_nMinFirstPane = 450;
}

bool CPlotDoc::IsInWindow(double t, double value) const {
    return XMin() <= t && t <= XMax() && YMin() <= value && value <= YMax();
}

int CPlotDoc::ScanRange(double* bounds, const int* flags) {
    std::vector<RangeSource> files;
    for (const CPlotEntry& e : m_entries) files.push_back({e.m_strPath, e.m_nTreatment});
    return op_ScanRangeFiles(files, bounds, flags);
}

int CPlotDoc::InitFromDialog(CDialog& dialog) {
    auto& dlg = static_cast<CPlotDlg&>(dialog);
    m_strYLabel = dlg.m_strYLabel;
    XMin() = dlg.m_dBeginTime;
    XMax() = dlg.m_dEndTime;
    YMin() = dlg.m_dMinValue;
    YMax() = dlg.m_dMaxValue;
    m_strXLabel = dlg.m_strXLabel;
    m_strGraphTitle = dlg.m_strTitle;
    m_entries.clear();
    for (const CMultiFileItem& item : dlg.m_items) {
        CPlotEntry e;
        e.m_strPath = item.m_strPath;
        e.m_nTreatment = item.m_nTreatment;
        m_entries.push_back(std::move(e));
    }
    if (m_entries.empty()) return IDS_NO_FILES;

    CPlotEntry& first = m_entries.front();
    SetPathName(first.m_strPath, false);
    SetTitle(first.m_strPath);
    if (!OnOpenDocument(first.m_strPath.c_str())) return IDS_INVALID_DATA_FILE;
    m_nTreatment = first.m_nTreatment;
    if (int rc = LoadGraphData()) {
        OnCloseDocument();
        return rc;
    }
    first.m_nPoints = m_nPoints;
    first.m_bLoaded = true;

    for (std::size_t i = 1; i < m_entries.size(); ++i) {
        if (int rc = LoadEntry(m_entries[i])) {
            AfxMessageBox(rc);
            break;
        }
    }
    OnCloseDocument();
    return 0;
}

int CPlotDoc::LoadEntry(CPlotEntry& entry) {
    CPlotDoc file;
    file.SetPathName(entry.m_strPath, false);
    if (!file.OnOpenDocument(entry.m_strPath.c_str())) return IDS_INVALID_DATA_FILE;
    file.m_nTreatment = entry.m_nTreatment;
    for (int i = 0; i < 4; ++i) file.m_range[i] = m_range[i];
    int rc = file.CheckTreatment();
    if (!rc) {
        int first = 0, count = 0;
        file.GetRepRange(&first, &count);
        file.m_xValues.assign(static_cast<std::size_t>(count) + 1, 0.0);
        file.m_yValues.assign(static_cast<std::size_t>(count) + 1, 0.0);
        rc = file.LoadGraphPoints();
    }
    if (!rc) {
        entry.m_xValues = std::move(file.m_xValues);
        entry.m_yValues = std::move(file.m_yValues);
        entry.m_nPoints = file.m_nPoints;
        entry.m_bLoaded = true;
    }
    file.OnCloseDocument();
    return rc;
}
