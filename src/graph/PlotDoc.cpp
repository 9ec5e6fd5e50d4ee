#include "graph/PlotDoc.h"

#include <limits>

#include "datafile/GraphScan.h"
#include "framework/Host.h"
#include "framework/Messages.h"
#include "graph/PlotDlg.h"

CPlotDoc::CPlotDoc() {
    // The graph keeps most of a tall frame; the legend gets the rest.
    m_nMinFirstPane = 450;
}

int CPlotDoc::ScanRange(double* bounds, const int* flags) {
    m_bWindowHoldsAll = false;
    if (flags[0] > 0 && flags[1] > 0 && flags[2] > 0 && flags[3] > 0) return 0;  // nothing left open
    RangeScan scan;
    op_RangeScanBegin(&scan, bounds, flags);
    const double all = std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
        CPlotEntry& e = m_entries[i];
        const bool whole = e.m_nTreatment == REP_LUMPED || e.m_nTreatment == REP_ALL;
        if (i == 0) {
            // The document's own file, open already: its replications are found on the way.
            CRecordReader& in = Reader();
            int rc = in.Seek(in.FirstRecord()) ? 0 : IDS_READ_ERROR;
            if (!rc && !whole) rc = in.SeekRep(e.m_nTreatment);
            if (!rc) rc = ReadPoints(&scan, all);
            if (rc) return rc;
            continue;
        }
        CRecordReader in;
        int rc = in.Open(e.m_strPath);
        if (rc == IDS_NO_FILE_OPEN) return IDS_FILE_NOT_FOUND;
        if (!rc && !whole) rc = in.SeekRep(e.m_nTreatment);
        if (!rc)
            rc = op_ReadGraphSeries(in, e.m_nTreatment, &scan, all, RecordsLeft(e.m_strPath, in), &e.m_xValues,
                                    &e.m_yValues, &e.m_nRead);
        if (rc) return rc;
        e.m_bRead = true;
        if (whole) {
            in.CountReps();
            e.m_nLimit = 0;
            for (const RepSpan& span : in.Index()) e.m_nLimit += static_cast<std::size_t>(span.obsCount);
        } else {
            e.m_nLimit = static_cast<std::size_t>(in.EntryObsCount(e.m_nTreatment));
        }
    }
    op_RangeScanEnd(&scan, bounds);
    ScanEnded(scan, flags);
    return 0;
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
    if (entry.m_bRead) {
        entry.m_nPoints = WindowPoints(entry.m_xValues, entry.m_yValues, entry.m_nRead, entry.m_nLimit);
        entry.m_bRead = false;
        entry.m_bLoaded = true;
        return 0;
    }
    CPlotDoc file;
    file.SetPathName(entry.m_strPath, false);
    if (!file.OnOpenDocument(entry.m_strPath.c_str())) return IDS_INVALID_DATA_FILE;
    file.m_nTreatment = entry.m_nTreatment;
    for (int i = 0; i < 4; ++i) file.m_range[i] = m_range[i];
    int rc = file.CheckTreatment();
    if (!rc) rc = file.LoadGraphPoints();
    if (!rc) {
        entry.m_xValues = std::move(file.m_xValues);
        entry.m_yValues = std::move(file.m_yValues);
        entry.m_nPoints = file.m_nPoints;
        entry.m_bLoaded = true;
    }
    file.OnCloseDocument();
    return rc;
}
