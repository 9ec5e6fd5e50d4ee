#include "series/SeriesExport.h"

#include <cmath>

#include "datafile/FileGlobals.h"
#include "series/CorrDoc.h"
#include "series/FiltrDoc.h"

namespace {

// The treatment as a user types it.
std::string RepsText(int treatment) {
    if (treatment == REP_ALL) return "All";
    if (treatment == REP_LUMPED) return "Lumped";
    return std::to_string(treatment);
}

const char* UnitName(int unit) { return unit == 0 ? "time" : unit == 1 ? "observations" : nullptr; }

ResultValue OrNull(const char* text) { return text ? ResultValue(text) : ResultValue(); }

// The record's "not stored" value (-1) is null for a script.
ResultValue Stored(double x) { return x == -1.0 ? ResultValue() : ResultValue(x); }

ResultValue Lags(const std::vector<CCovarData>& lags, std::size_t from, std::size_t count) {
    ResultValue list = ResultValue::List();
    for (std::size_t i = from; i < from + count && i < lags.size(); ++i)
        list.Append(ResultValue::Object()
                        .Set("lag", lags[i].lag)
                        .Set("covariance", lags[i].covariance)
                        .Set("correlation", lags[i].correlation));
    return list;
}

}  // namespace

ResultRecord filtr_ResultRecord(const CFiltrDoc& doc) {
    ResultRecord record;
    ResultValue& p = record.parameters;
    p.Set("file", doc.GetPathName());
    p.Set("reps", RepsText(doc.m_nTreatment));
    p.Set("title", doc.title);
    // As used: a unit or size left open is the one chosen for the data.
    p.Set("truncate_unit", OrNull(UnitName(doc.truncUnit)));
    p.Set("truncate", doc.truncAmount);
    p.Set("batch_unit", OrNull(UnitName(doc.batchUnit)));
    p.Set("batch_size", Stored(doc.batchSize));
    p.Set("output_file", doc.batchFileName);

    const BatchResults& res = doc.Results();
    ResultValue& r = record.results;
    r.Set("truncated", Stored(res.truncUsed));
    r.Set("batches", Stored(res.numBatches));
    r.Set("batch_size", Stored(res.batchUsed));
    r.Set("trailing_observations", Stored(res.trailingObs));
    r.Set("trailing_time", Stored(res.trailingTime));
    const bool batching = doc.batchUnit != -1 && res.numBatches >= 0;
    r.Set("covariance_estimate", batching ? ResultValue(res.covEstimate) : ResultValue());
    r.Set("z", batching ? ResultValue(res.z) : ResultValue());
    r.Set("rejected", res.rejectPositive ? ResultValue("positive")
                      : res.rejectNonZero ? ResultValue("nonzero")
                                          : ResultValue());
    ResultValue means = ResultValue::List();
    for (std::size_t i = 0; i < res.batchMeans.size(); ++i) {
        means.Append(res.batchMeans[i]);
        record.table.Append(ResultValue::Object().Set("batch", i + 1).Set("mean", res.batchMeans[i]));
    }
    r.Set("batch_means", std::move(means));
    r.Set("batch_means_omitted", res.batchMeansOmitted);
    return record;
}

ResultRecord corr_ResultRecord(const CCorrDoc& doc) {
    ResultRecord record;
    ResultValue& p = record.parameters;
    p.Set("file", doc.GetPathName());
    p.Set("reps", RepsText(doc.m_nTreatment));
    p.Set("title", doc.m_strCorrTitle);
    p.Set("lags", doc.m_nMaxLags);
    p.Set("output_file", doc.m_strOutFile);

    const CorrResults& res = doc.Results();
    const std::size_t perPass = doc.m_nMaxLags > 0 ? static_cast<std::size_t>(doc.m_nMaxLags) : 0;
    ResultValue& r = record.results;
    r.Set("mean", res.mean);
    r.Set("variance", res.variance);
    r.Set("n", res.size);
    r.Set("weighted_sum", res.weightedSum);
    r.Set("lags", Lags(res.lags, 0, perPass));
    const bool all = doc.m_nTreatment == REP_ALL;
    ResultValue replications = ResultValue::List();
    for (std::size_t k = 0; k < res.passes.size(); ++k) {
        const CorrResults::Pass& pass = res.passes[k];
        if (all)
            replications.Append(ResultValue::Object()
                                    .Set("replication", pass.replication)
                                    .Set("mean", pass.mean)
                                    .Set("variance", pass.variance)
                                    .Set("n", pass.size)
                                    .Set("weighted_sum", pass.weightedSum)
                                    .Set("lags", Lags(res.lags, k * perPass, perPass)));
        for (std::size_t i = k * perPass; i < (k + 1) * perPass && i < res.lags.size(); ++i) {
            ResultValue row = ResultValue::Object();
            if (all) row.Set("replication", pass.replication);
            row.Set("lag", res.lags[i].lag)
                .Set("covariance", res.lags[i].covariance)
                .Set("correlation", res.lags[i].correlation);
            record.table.Append(std::move(row));
        }
    }
    if (all) r.Set("replications", std::move(replications));
    return record;
}
