#include "series/FiltrDoc.h"

#include "datafile/DataFile.h"
#include "framework/Messages.h"
#include "framework/SafeOutput.h"
#include "series/FiltrDlg.h"
#include "series/FiltrPass.h"

namespace {

// Ids below this are replication counts; above, op_CountReps reported a fault.
constexpr int kFirstMessageId = 15000;

}  // namespace

int CFiltrDoc::InitFromDialog(CDialog& dialog) {
    auto* dlg = dynamic_cast<CFiltrDlg*>(&dialog);
    if (!dlg) return IDS_SOURCE_NOT_SPECIFIED;
    truncUnit = CFiltrDlg::UnitCode(dlg->m_strTruncType);
    truncAmount = dlg->m_dTrunc;
    batchUnit = CFiltrDlg::UnitCode(dlg->m_strBatchType);
    batchSize = CFiltrDlg::BatchSizeTaken(dlg->m_dBatchSize);
    title = dlg->m_strTitle;
    batchFileName = dlg->m_strOutFile;

    SetPathName(dlg->m_strFile, false);
    if (!OnOpenDocument(dlg->m_strFile.c_str())) return -1;
    m_nTreatment = dlg->m_nTreatment;
    return Compute();
}

CSingleDoc* CFiltrDoc::CreateSibling() { return new CFiltrDoc; }

int CFiltrDoc::PassCount() const {
    // Entries 1..size-1 of the index start replications; a file without its end
    // marker reports a message id instead of a count, and then every entry is one.
    const int entries = RepIndexSize() - 1;
    if (m_nReps >= 1 && m_nReps < kFirstMessageId && m_nReps <= entries) return m_nReps;
    return entries;
}

int CFiltrDoc::Compute() {
    m_results = BatchResults{};
    if (!m_pFile) return IDS_READ_ERROR;

    CSafeOutput safe(batchFileName);
    FILE* out = nullptr;
    if (!batchFileName.empty()) {
        int err = 0;
        out = op_OpenDataFile(&err, safe.TempPath().c_str(), 4, false);
        if (!out) return err ? err : IDS_OPEN_ERROR;
    }

    FiltrParams prm{truncUnit, truncAmount, batchUnit, batchSize, m_nKind, m_nTreatment};
    int firstRep = m_nTreatment >= 1 ? m_nTreatment : 1;
    int lastRep = m_nTreatment == REP_ALL ? PassCount() : firstRep;
    int rc = 0;
    for (int rep = firstRep; rep <= lastRep && rc == 0; ++rep) {
        if (rep >= RepIndexSize()) {
            rc = IDS_INVALID_REP_TREATMENT;
            break;
        }
        std::clearerr(m_pFile);
        std::fseek(m_pFile, RepInfo(rep).m_lFilePos, SEEK_SET);
        if (rep == firstRep) {
            filtr_SettleDefaults(m_pFile, m_nIsDouble, &prm);
            truncUnit = prm.truncUnit;
            batchSize = prm.batchSize;
            std::fseek(m_pFile, RepInfo(rep).m_lFilePos, SEEK_SET);
            if (out) {
                rc = op_WriteFileHdr(out, false, KIND_FILTERED, op_KindText(KIND_FILTERED), m_nReinit, 1,
                                     static_cast<long>(m_strIdent.size()), static_cast<long>(title.size()),
                                     m_strIdent.c_str(), title);
                if (rc) break;
            }
        }
        FiltrResults res;
        rc = filtr_RunPass(m_pFile, m_nIsDouble, prm, rep, out, &res);
        BatchResults& out = m_results;
        if (res.truncUsed) out.truncUsed = *res.truncUsed;
        if (res.batchUsed) out.batchUsed = *res.batchUsed;
        if (res.numBatches) out.numBatches = *res.numBatches;
        if (res.trailingObs) out.trailingObs = *res.trailingObs;
        if (res.trailingTime) out.trailingTime = *res.trailingTime;
        if (res.covEstimate) out.covEstimate = *res.covEstimate;
        if (res.rejectPositive) out.rejectPositive = *res.rejectPositive;
        if (res.rejectNonZero) out.rejectNonZero = *res.rejectNonZero;
    }
    std::clearerr(m_pFile);

    if (out) {
        if (rc == 0 && m_nTreatment != REP_ALL) {
            const double end = MARK_END;
            op_WritePair(out, &end, &end);
        }
        bool failed = std::ferror(out) != 0;
        failed = (std::fclose(out) != 0) || failed;
        if (rc == 0 && failed) rc = IDS_WRITE_ERROR;
        if (rc == 0 && !safe.Commit()) rc = IDS_WRITE_ERROR;
    }
    return rc;
}
