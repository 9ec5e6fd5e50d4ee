#include "series/MoveDoc.h"

#include <algorithm>
#include <filesystem>

#include "datafile/DataFile.h"
#include "datafile/OutputDataFile.h"
#include "framework/Messages.h"
#include "series/MoveDlg.h"
#include "series/WelchSeries.h"

namespace {

constexpr int kWindowTooLarge = 16086;

}  // namespace

int CMoveDoc::InitFromDialog(CDialog& dialog) {
    auto* dlg = dynamic_cast<CMoveDlg*>(&dialog);
    if (!dlg) return IDS_SOURCE_NOT_SPECIFIED;
    m_nWindow = dlg->m_nWindow;
    m_nMethod = CMoveDlg::MethodCode(dlg->m_strMethod);
    m_bWarmup = dlg->m_bWarmup;
    m_strMoveTitle = dlg->m_strTitle;
    m_strFile = dlg->m_strFile;
    m_strReps = dlg->m_strReps;
    m_strOutFile = dlg->m_strOutFile;
    SetPathName(dlg->m_strFile, false);
    if (!OnOpenDocument(dlg->m_strFile.c_str())) return kOpenFailed;
    m_nTreatment = op_ParseRepTreatment(dlg->m_strReps.c_str());
    return Compute();
}

int CMoveDoc::Compute() {
    m_results = MoveResults{};
    MoveResults& r = m_results;
    r.window = m_nWindow;
    r.method = m_nMethod;
    if (!IsOpen()) return IDS_READ_ERROR;
    CRecordReader& in = Reader();
    if (int rc = in.Start(m_nTreatment)) return rc;
    std::vector<double> y;
    std::error_code ec;
    const std::uintmax_t bytes = std::filesystem::file_size(m_strFile, ec);
    const std::size_t records = ec ? 0 : static_cast<std::size_t>(bytes / (m_nIsDouble ? 16 : 8));
    if (int rc = series_Read(in, m_nTreatment, &y, &r.reps, records)) return rc;
    r.n = static_cast<long>(y.size());
    if (r.n <= m_nWindow) return kWindowTooLarge;

    r.smoothed = move_Smooth(y, m_nWindow, m_nMethod);
    r.firstSmoothed = move_FirstSmoothed(m_nWindow, m_nMethod);
    if (m_nMethod == MOVE_TRAILING) {
        r.forecast = r.smoothed.back();
        r.errors = move_ForecastErrors(y, r.smoothed, m_nWindow);
    }
    if (m_bWarmup) {
        r.mser = mser_Five(y);
        r.warmupRun = true;
    }
    // Each run keeps its lowest and highest point: the graph's extremes are the series'.
    move_GraphPoints(y, 1, kGraphBuckets, &r.rawX, &r.rawY);
    const auto [low, high] = std::minmax_element(r.rawY.begin(), r.rawY.end());
    r.low = *low;
    r.high = *high;
    move_GraphPoints(r.smoothed, r.firstSmoothed, kGraphBuckets, &r.smoothX, &r.smoothY);

    // The smoothed series as observations numbered as in the series.
    COutputDataFile out(m_strOutFile);
    if (int rc = out.Open()) return rc;
    if (int rc = out.WriteHeader(KIND_TALLY, m_nReinit, m_strIdent, m_strMoveTitle.empty() ? m_strTitle : m_strMoveTitle))
        return rc;
    for (std::size_t k = 0; out.Active() && k < r.smoothed.size(); ++k)
        out.Put(static_cast<double>(r.firstSmoothed) + static_cast<double>(k), r.smoothed[k]);
    out.Put(MARK_END, MARK_END);
    return out.Commit();
}
