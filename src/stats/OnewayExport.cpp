#include "stats/OnewayExport.h"

#include "stats/IntervalExport.h"
#include "stats/OnewyDoc.h"

namespace {

const char* MethodName(int method) {
    switch (method) {
        case ONEWAY_TUKEY: return "tukey";
        case ONEWAY_SCHEFFE: return "scheffe";
        case ONEWAY_BONFERRONI: return "bonferroni";
        case ONEWAY_GAMES_HOWELL: return "games-howell";
        default: return "all";
    }
}

// The table always; the test's F, critical value, p-value and verdict are
// Welch's under unequal variances, whose own figures are added as "welch".
ResultValue Anova(const OnewayResult& r) {
    const OnewayTable& t = r.table;
    ResultValue a = ResultValue::Object();
    a.Set("df_between", t.dfBetween).Set("df_within", t.dfWithin);
    a.Set("ss_between", t.ssBetween).Set("ss_within", t.ssWithin);
    a.Set("ms_between", t.msBetween).Set("ms_within", t.msWithin);
    a.Set("grand_mean", t.grandMean);
    if (!r.unequalVariances) {
        a.Set("f", t.f).Set("f_critical", t.fCritical).Set("p_value", t.pValue);
        a.Set("equal_rejected", t.equalRejected);
        a.Set("welch", ResultValue());
        return a;
    }
    const OnewayWelch& w = r.welch;
    a.Set("f", w.f).Set("f_critical", w.fCritical).Set("p_value", w.pValue);
    a.Set("equal_rejected", w.equalRejected);
    a.Set("welch", ResultValue::Object()
                       .Set("df_between", w.dfBetween)
                       .Set("df_within", w.dfWithinExact)
                       .Set("df_within_used", w.dfWithin)
                       .Set("f", w.f)
                       .Set("f_critical", w.fCritical)
                       .Set("p_value", w.pValue)
                       .Set("equal_rejected", w.equalRejected));
    return a;
}

}  // namespace

ResultRecord st_OnewayRecord(const COnewyDoc& doc) {
    const OnewayResult& r = doc.Result();
    ResultRecord record;
    record.parameters = st_MultiFileParameters(doc);
    record.parameters.Set("method", MethodName(r.method));
    record.parameters.Set("unequal_variances", r.unequalVariances);

    ResultValue groups = ResultValue::List();
    for (const OnewayGroupResult& g : r.groups)
        groups.Append(ResultValue::Object()
                          .Set("file", g.file)
                          .Set("reps", g.reps)
                          .Set("identifier", g.ident)
                          .Set("n", g.stats.n)
                          .Set("mean", g.stats.mean)
                          .Set("sd", g.stats.sd)
                          .Set("min", g.stats.minimum)
                          .Set("max", g.stats.maximum));
    ResultValue comparisons = ResultValue::List();
    for (const OnewayComparison& c : r.comparisons) {
        ResultValue v = ResultValue::Object();
        v.Set("method", MethodName(c.method));
        v.Set("i", c.i + 1).Set("j", c.j + 1);
        v.Set("difference", c.difference).Set("half_width", c.halfWidth);
        v.Set("lower", c.lower).Set("upper", c.upper);
        v.Set("significant", c.significant);
        if (c.method == ONEWAY_TUKEY || c.method == ONEWAY_GAMES_HOWELL)
            v.Set("q", c.q).Set("q_from_table", c.qFromTable);
        v.Set("df", c.df);
        comparisons.Append(std::move(v));
    }
    record.results.Set("groups", std::move(groups));
    record.results.Set("anova", Anova(r));
    record.table = comparisons;
    record.results.Set("comparisons", std::move(comparisons));
    return record;
}
