#include "series/FiltrDoc.h"

#include <cmath>

#include "datafile/DataFile.h"
#include "datafile/OutputDataFile.h"
#include "framework/Messages.h"
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
    const int reps = RepCount();
    if (reps >= 1 && reps < kFirstMessageId && reps <= entries) return reps;
    return entries;
}

int CFiltrDoc::Compute() {
    m_results = BatchResults{};
    if (!IsOpen()) return IDS_READ_ERROR;

    COutputDataFile out(batchFileName);
    if (int rc = out.Open()) return rc;

    CRecordReader& in = Reader();
    FiltrParams prm{truncUnit, truncAmount, batchUnit, batchSize, m_nKind, m_nTreatment};
    int firstRep = m_nTreatment >= 1 ? m_nTreatment : 1;
    int lastRep = m_nTreatment == REP_ALL ? PassCount() : firstRep;
    int rc = 0;
    for (int rep = firstRep; rep <= lastRep && rc == 0; ++rep) {
        // The index grows as the passes read; it is read ahead only to find
        // a replication the passes have not reached.
        if (!in.SeekEntry(rep)) {
            rc = IDS_INVALID_REP_TREATMENT;
            break;
        }
        if (rep == firstRep) {
            const std::int64_t start = in.Tell();
            filtr_SettleDefaults(in, &prm);
            truncUnit = prm.truncUnit;
            batchSize = prm.batchSize;
            in.Seek(start);
            rc = out.WriteHeader(KIND_FILTERED, m_nReinit, m_strIdent, title);
            if (rc) break;
        }
        FiltrResults res;
        rc = filtr_RunPass(in, prm, rep, out, &res);
        BatchResults& r = m_results;
        if (res.truncUsed) r.truncUsed = *res.truncUsed;
        if (res.batchUsed) r.batchUsed = *res.batchUsed;
        if (res.numBatches) r.numBatches = *res.numBatches;
        if (res.trailingObs) r.trailingObs = *res.trailingObs;
        if (res.trailingTime) r.trailingTime = *res.trailingTime;
        if (res.covEstimate) r.covEstimate = *res.covEstimate;
        if (res.rejectPositive) r.rejectPositive = *res.rejectPositive;
        if (res.rejectNonZero) r.rejectNonZero = *res.rejectNonZero;
        if (res.numBatches) {
            r.z = res.z.value_or(std::nan(""));
            r.batchMeans = std::move(res.means);
            r.batchMeansOmitted = res.meansOmitted;
        }
    }

    if (rc == 0 && m_nTreatment != REP_ALL) out.Put(MARK_END, MARK_END);
    if (rc == 0) rc = out.Commit();
    return rc;
}
