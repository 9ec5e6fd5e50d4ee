#include "series/MoveExport.h"

#include <algorithm>
#include <cmath>

#include "series/MoveDoc.h"
#include "series/Warmup.h"
#include "stats/HistTextView.h"

namespace {

ResultValue Suggestion(const MserResult& m) { return m.truncation >= 0 ? ResultValue(m.truncation) : ResultValue(); }

}  // namespace

ResultRecord move_ResultRecord(const CMoveDoc& doc) {
    ResultRecord record;
    ResultValue& p = record.parameters;
    const bool trailing = doc.m_nMethod == MOVE_TRAILING;
    p.Set("file", doc.m_strFile);
    p.Set("reps", doc.m_strReps.empty() ? hist_TreatmentName(doc.m_nTreatment) : doc.m_strReps);
    p.Set("title", doc.m_strMoveTitle);
    p.Set("window", doc.m_nWindow);
    p.Set("method", trailing ? "trailing" : "centred");
    p.Set("warmup", doc.m_bWarmup);
    p.Set("output_file", doc.m_strOutFile);

    const MoveResults& m = doc.Results();
    ResultValue& r = record.results;
    r.Set("n", m.n);
    r.Set("replications", m.reps);
    r.Set("window", m.window);
    r.Set("method", trailing ? "trailing" : "centred");
    r.Set("warmup_observations", m.warmupRun ? Suggestion(m.mser) : ResultValue());
    r.Set("mser_batches", m.warmupRun ? ResultValue(m.mser.batches) : ResultValue());
    r.Set("mser_best_d", m.warmupRun && m.mser.bestD >= 0 ? ResultValue(m.mser.bestD) : ResultValue());
    ResultValue curve = ResultValue::List();
    const std::size_t points = std::min(m.mser.curve.size(), MoveResults::kKeptSmoothed);
    for (std::size_t d = 0; d < points; ++d)
        curve.Append(ResultValue::Object().Set("d", static_cast<long>(d)).Set("value", m.mser.curve[d]));
    r.Set("mser_curve", std::move(curve));
    r.Set("mser_curve_omitted", m.mser.curve.size() > points);
    const bool errors = trailing && m.errors.count > 0;
    r.Set("forecast", trailing ? ResultValue(m.forecast) : ResultValue());
    r.Set("forecasts_compared", trailing ? ResultValue(m.errors.count) : ResultValue());
    r.Set("mad", errors ? ResultValue(m.errors.mad) : ResultValue());
    r.Set("mse", errors ? ResultValue(m.errors.mse) : ResultValue());
    r.Set("mape", errors ? ResultValue(m.errors.mape) : ResultValue());
    r.Set("smoothed_values", m.smoothedCount);
    r.Set("first_smoothed", m.firstSmoothed);
    ResultValue smoothed = ResultValue::List();
    for (std::size_t k = 0; k < m.smoothed.size(); ++k) {
        smoothed.Append(m.smoothed[k]);
        record.table.Append(ResultValue::Object()
                                .Set("obs", m.firstSmoothed + static_cast<long>(k))
                                .Set("smoothed", m.smoothed[k]));
    }
    r.Set("smoothed", std::move(smoothed));
    r.Set("smoothed_omitted", m.smoothedCount > static_cast<long>(m.smoothed.size()));
    return record;
}

ResultValue warmup_Entry(const std::string& file, const std::string& reps, const WarmupResult& w) {
    return ResultValue::Object()
        .Set("file", file)
        .Set("reps", reps.empty() ? std::string("1") : reps)
        .Set("n", w.n)
        .Set("replications", w.reps)
        .Set("batches", w.mser.batches)
        .Set("warmup_observations", Suggestion(w.mser));
}
