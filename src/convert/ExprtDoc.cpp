#include "convert/ExprtDoc.h"

#include <cstring>

#include "convert/ConvertDlgs.h"
#include "convert/TextNumbers.h"
#include "convert/TextOutput.h"
#include "datafile/DataFile.h"
#include "dialog/DataFileCheck.h"
#include "framework/Messages.h"

int CExprtDoc::InitFromDialog(CDialog& dialog) {
    auto* dlg = dynamic_cast<CExprtDlg*>(&dialog);
    if (!dlg) return IDS_SOURCE_NOT_SPECIFIED;
    m_results = ExportResults{};
    m_results.source = dlg->m_strFile;
    m_results.destination = dlg->m_strOutFile.empty() ? conv_DefaultOutput(dlg->m_strFile, "dax") : dlg->m_strOutFile;
    if (dlg_SameFileName(m_results.destination, m_results.source)) return IDS_SAME_OUTPUT_FILE;
    SetPathName(dlg->m_strFile, false);
    if (!OnOpenDocument(dlg->m_strFile.c_str())) return -1;
    return Write();
}

int CExprtDoc::Write() {
    CTextOutput out(m_results.destination);
    if (int rc = out.Open()) return rc;
    const DataFileHeader& h = Reader().Header();
    if (int rc = op_WriteFileHdr(out.File(), true, h.kind, h.type, h.reinit, h.count,
                                 static_cast<long>(std::strlen(h.ident)), static_cast<long>(h.title.size()), h.ident,
                                 h.title))
        return rc;

    const bool single = !h.isDouble;
    CRecordReader& in = Reader();
    char line[2 * kNumberTextMax + 2];
    bool ended = false;
    bool open = false;  // observations since the last closing marker
    double t, v;
    while (in.ReadRecord(&t, &v)) {
        std::size_t n = conv_FormatNumber(line, t, single);
        line[n++] = ' ';
        n += conv_FormatNumber(line + n, v, single);
        line[n++] = '\n';
        out.Write(line, n);
        ++m_results.records;
        if (t <= MARK_END) {
            if (v == MARK_SKIP) continue;
            ++m_results.replications;
            ended = v == MARK_END;
            open = false;
        } else {
            ++m_results.observations;
            open = true;
        }
    }
    if (in.Failed()) return IDS_READ_ERROR;
    // A file cut short is not exported as if whole; batch output may end so.
    if (!ended && h.kind != KIND_FILTERED) return IDS_END_OF_FILE;
    // Batch output ends its last replication with the file.
    if (!ended && open) ++m_results.replications;
    return out.Commit();
}
