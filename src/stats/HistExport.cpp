#include "stats/HistExport.h"

#include <cmath>

#include "stats/HistDoc.h"
#include "stats/HistTextView.h"

namespace {

// A part of the cells the user left to the data is null.
ResultValue Given(double x) { return std::isnan(x) ? ResultValue() : ResultValue(x); }

}  // namespace

ResultRecord hist_ResultRecord(const CHistDoc& doc) {
    ResultRecord record;
    ResultValue& p = record.parameters;
    p.Set("file", doc.m_strFile);
    p.Set("reps", doc.m_strReps.empty() ? hist_TreatmentName(doc.m_nTreatment) : doc.m_strReps);
    p.Set("title", doc.m_strHistTitle);
    p.Set("start", Given(doc.m_params.start));
    p.Set("width", doc.m_params.width > 0.0 ? ResultValue(doc.m_params.width) : ResultValue());
    p.Set("cells", doc.m_params.count > 0 ? ResultValue(doc.m_params.count) : ResultValue());

    const HistogramResult& h = doc.Results();
    ResultValue& r = record.results;
    r.Set("time_weighted", h.timeWeighted);
    r.Set("n", h.n);
    r.Set("mean", h.mean);
    r.Set("sd", h.sd);
    r.Set("min", h.min);
    r.Set("max", h.max);
    r.Set("start", h.edges.start);
    r.Set("width", h.edges.width);
    r.Set("below", h.below);
    r.Set("above", h.above);
    r.Set("below_relative", h.belowRelative);
    r.Set("above_relative", h.aboveRelative);
    ResultValue cells = ResultValue::List();
    for (const HistogramCell& c : h.cells)
        cells.Append(ResultValue::Object()
                         .Set("lower", c.lower)
                         .Set("upper", c.upper)
                         .Set("count", c.count)
                         .Set("relative", c.relative)
                         .Set("cumulative", c.cumulative));
    record.table = cells;
    r.Set("cells", std::move(cells));
    return record;
}
