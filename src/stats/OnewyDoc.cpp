#include "stats/OnewyDoc.h"

#include <cmath>
#include <iterator>

#include "dialog/DataFileCheck.h"
#include "framework/Messages.h"
#include "datafile/RecordReader.h"
#include "stats/OnewyDlg.h"

int COnewyDoc::InitFromDialog(CDialog& dlg) {
    auto* d = dynamic_cast<COnewyDlg*>(&dlg);
    if (!d) return IDS_NO_FILES;
    m_strTitle = d->m_strTitle;
    m_bScale = d->m_bScale;
    m_items = d->m_items;
    m_result = OnewayResult{};
    m_result.title = d->m_strTitle;
    m_result.method = d->m_nMethod;
    m_result.unequalVariances = d->m_bUnequalVariances;
    m_dAlpha = dlg_AlphaFromLevel(d->m_strLevel);
    return Compute(m_dAlpha);
}

int COnewyDoc::Compute(double alpha) {
    m_sums.clear();
    m_result.alpha = alpha;
    m_result.groups.clear();
    if (int rc = CIntrvlDoc::Compute(alpha)) return rc;

    // The rows are the groups, in entry order: one per entry, or under "All"
    // one per replication, their numbers rising.
    const std::vector<IntervalRow>& rows = Results().rows;
    std::size_t r = 0;
    for (const CMultiFileItem& entry : m_items) {
        if (r >= rows.size()) break;
        do {
            OnewayGroupResult g;
            g.file = entry.m_strPath;
            g.reps = entry.m_strReps;
            g.ident = rows[r].ident;
            g.treatment = rows[r].treatment;
            m_result.groups.push_back(g);
            ++r;
        } while (entry.m_nTreatment == REP_ALL && r < rows.size() && rows[r].treatment > rows[r - 1].treatment);
    }
    return oneway_Analyse(m_sums, &m_result);
}

int COnewyDoc::ComputeRow(CRecordReader& in, IntervalRow& row, double) {
    CMoments sample;
    double values[4096];
    while (const std::size_t got = in.NextObsRun(nullptr, values, std::size(values))) sample.AddAll(values, got);
    if (sample.Count() == 0) return IDS_NO_OBSERVATIONS;
    row.average = sample.Mean();
    row.stdDev = std::sqrt(sample.Variance());
    row.min = sample.Min();
    row.max = sample.Max();
    row.numObs = sample.Count();
    row.computed = true;
    m_sums.push_back(sample);
    return 0;
}
