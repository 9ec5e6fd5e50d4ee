#include "stats/PairExport.h"

#include "stats/ComprDoc.h"
#include "stats/VarDoc.h"

namespace {

ResultValue Parameters(const std::vector<CFilePairItem>& pairs, const std::string& title, double alpha, bool scale) {
    ResultValue list = ResultValue::List();
    for (const CFilePairItem& p : pairs)
        list.Append(ResultValue::Object()
                        .Set("a", p.a.m_strPath)
                        .Set("reps_a", p.a.m_strReps)
                        .Set("b", p.b.m_strPath)
                        .Set("reps_b", p.b.m_strReps));
    ResultValue params = ResultValue::Object();
    params.Set("pairs", std::move(list));
    params.Set("title", title);
    params.Set("level", 1.0 - alpha);
    params.Set("scale", scale);
    return params;
}

// The fields both analyses share, in the order a script reads a pair.
ResultValue Pair(const CFilePairItem& files, const PairRow& row) {
    return ResultValue::Object()
        .Set("a", files.a.m_strPath)
        .Set("reps_a", files.a.m_strReps)
        .Set("b", files.b.m_strPath)
        .Set("reps_b", files.b.m_strReps)
        .Set("identifier", row.ident)
        .Set("n_a", row.a.numObs)
        .Set("n_b", row.b.numObs);
}

void AddExtremes(ResultValue& pair, const PairRow& row) {
    pair.Set("min_a", row.a.min).Set("max_a", row.a.max).Set("min_b", row.b.min).Set("max_b", row.b.max);
}

ResultRecord Finish(ResultValue params, ResultValue pairs) {
    ResultRecord record;
    record.parameters = std::move(params);
    record.table = pairs;
    record.results.Set("pairs", std::move(pairs));
    return record;
}

}  // namespace

ResultRecord st_CompareRecord(const CComprDoc& doc) {
    const bool paired = doc.m_nMethod == CComprDoc::METHOD_PAIRED;
    ResultValue params = Parameters(doc.m_givenPairs, doc.m_strTitle, doc.m_dAlpha, doc.m_bScale);
    params.Set("method", paired ? "paired" : "two-sample");
    ResultValue pairs = ResultValue::List();
    const std::vector<PairRow>& rows = doc.Results().rows;
    for (std::size_t i = 0; i < rows.size() && i < doc.m_pairs.size(); ++i) {
        const PairRow& row = rows[i];
        if (!row.computed) continue;
        ResultValue p = Pair(doc.m_pairs[i], row);
        p.Set("df", row.df);
        p.Set("lower", row.lower).Set("upper", row.upper);
        p.Set("equal_rejected", row.lower > 0.0 || row.upper < 0.0);
        p.Set("method", paired ? "paired" : "two-sample");
        p.Set("mean_a", row.a.mean).Set("mean_b", row.b.mean);
        p.Set("difference", row.estimate).Set("half_width", row.halfWidth);
        // Of the differences (paired) or the difference's standard error.
        p.Set("sd", row.stdDev);
        AddExtremes(p, row);
        pairs.Append(std::move(p));
    }
    return Finish(std::move(params), std::move(pairs));
}

ResultRecord st_VartestRecord(const CVarDoc& doc) {
    ResultValue pairs = ResultValue::List();
    const std::vector<PairRow>& rows = doc.Results().rows;
    for (std::size_t i = 0; i < rows.size() && i < doc.m_pairs.size(); ++i) {
        const PairRow& row = rows[i];
        if (!row.computed) continue;
        ResultValue p = Pair(doc.m_pairs[i], row);
        p.Set("df", ResultValue());
        p.Set("lower", row.lower).Set("upper", row.upper);
        p.Set("equal_rejected", 1.0 < row.lower || 1.0 > row.upper);
        p.Set("var_a", row.a.variance).Set("var_b", row.b.variance);
        p.Set("ratio", row.estimate);
        p.Set("df_a", row.a.numObs - 1).Set("df_b", row.b.numObs - 1);
        AddExtremes(p, row);
        pairs.Append(std::move(p));
    }
    return Finish(Parameters(doc.m_givenPairs, doc.m_strTitle, doc.m_dAlpha, doc.m_bScale), std::move(pairs));
}
