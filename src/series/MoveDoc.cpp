#include "series/MoveDoc.h"

#include <algorithm>
#include <filesystem>

#include "datafile/DataFile.h"
#include "datafile/OutputDataFile.h"
#include "framework/Host.h"
#include "framework/Messages.h"
#include "series/MoveDlg.h"
#include "series/PointReducer.h"
#include "series/WelchSeries.h"

namespace {

constexpr int kWindowTooLarge = 16086;
constexpr std::size_t kRun = 4096;

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

    // The smoothed series as observations numbered as in the series, written
    // as it is formed.
    COutputDataFile out(m_strOutFile);
    const std::string reading = host_Subject().file;
    if (int rc = out.Open()) return rc;
    if (int rc = out.WriteHeader(KIND_TALLY, m_nReinit, m_strIdent, m_strMoveTitle.empty() ? m_strTitle : m_strMoveTitle))
        return rc;
    // Until the end a message concerns the data file.
    host_SetSubjectFile(reading);
    r.firstSmoothed = move_FirstSmoothed(m_nWindow, m_nMethod);
    CMovingAverage average(m_nWindow, m_nMethod);
    CMserBatches batches;
    CPointReducer raw(1.0);
    CPointReducer smooth(static_cast<double>(r.firstSmoothed));
    std::vector<double> settled;
    auto take = [&](std::vector<double>& v) {
        if (v.empty()) return;
        smooth.Add(v.data(), v.size());
        const std::size_t room = MoveResults::kKeptSmoothed - std::min(MoveResults::kKeptSmoothed, r.smoothed.size());
        r.smoothed.insert(r.smoothed.end(), v.begin(), v.begin() + static_cast<std::ptrdiff_t>(std::min(room, v.size())));
        for (std::size_t k = 0; out.Active() && k < v.size(); ++k)
            out.Put(static_cast<double>(r.firstSmoothed + r.smoothedCount) + static_cast<double>(k), v[k]);
        r.smoothedCount += static_cast<long>(v.size());
        r.forecast = v.back();
        v.clear();
    };
    auto feed = [&](const double* y, std::size_t n) {
        if (m_bWarmup) batches.Add(y, n);
        raw.Add(y, n);
        average.Add(y, n, settled);
        take(settled);
    };

    // The file's records: room for a series as long as it can be.
    std::error_code ec;
    const std::uintmax_t bytes = std::filesystem::file_size(m_strFile, ec);
    const std::size_t records = ec ? 0 : static_cast<std::size_t>(bytes / (m_nIsDouble ? 16 : 8));
    if (m_bWarmup) batches.Reserve(records);
    if (m_nTreatment == REP_ALL) {
        // Welch's series is known only once the shortest replication has ended.
        std::vector<double> y;
        if (int rc = series_Read(in, m_nTreatment, &y, &r.reps, records)) return rc;
        feed(y.data(), y.size());
    } else {
        double times[kRun];
        double values[kRun];
        const bool lumped = m_nTreatment == REP_LUMPED;
        double last = 0.0;
        while (const std::size_t got = in.NextObsRun(lumped ? times : nullptr, values, kRun)) {
            // Lumped replications make one series only while time runs on.
            for (std::size_t i = 0; lumped && i < got; ++i) {
                if (times[i] < last) return IDS_LUMPED_NOT_ALLOWED;
                last = times[i];
            }
            feed(values, got);
        }
        if (in.PassEnd() == RecordKind::Error) return IDS_READ_ERROR;
        if (average.Observations() == 0) return IDS_NO_OBSERVATIONS;
    }
    r.n = average.Observations();
    if (r.n <= m_nWindow) return kWindowTooLarge;
    average.Finish(settled);
    take(settled);
    if (m_nMethod == MOVE_TRAILING)
        r.errors = average.Errors();
    else
        r.forecast = 0.0;
    if (m_bWarmup) {
        r.mser = batches.Finish();
        r.warmupRun = true;
    }
    raw.Points(&r.rawX, &r.rawY);
    r.low = raw.Low();
    r.high = raw.High();
    smooth.Points(&r.smoothX, &r.smoothY);
    out.Put(MARK_END, MARK_END);
    if (out.Active()) host_SetSubjectFile(m_strOutFile);
    return out.Commit();
}
