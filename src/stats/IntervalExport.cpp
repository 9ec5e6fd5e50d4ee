#include "stats/IntervalExport.h"

#include "stats/IntrvlDoc.h"

namespace {

enum class Flavour { Mean, Sd, Std };

ResultRecord Record(const CIntrvlDoc& doc, Flavour flavour) {
    ResultRecord record;
    record.parameters = st_MultiFileParameters(doc);
    record.parameters.Set("scale", doc.m_bScale);
    ResultValue entries = ResultValue::List();
    for (const IntervalRow& row : doc.Results().rows) {
        if (!row.computed) continue;
        const CMultiFileItem* item =
            row.entry >= 0 && row.entry < static_cast<int>(doc.m_items.size()) ? &doc.m_items[row.entry] : nullptr;
        ResultValue e = ResultValue::Object();
        e.Set("file", item ? item->m_strPath : row.ident);
        e.Set("reps", item ? item->m_strReps : std::string());
        // Lumped rows have no one replication.
        e.Set("replication", row.treatment >= 1 ? ResultValue(row.treatment) : ResultValue());
        e.Set("identifier", row.ident);
        e.Set("n", row.numObs);
        e.Set("mean", row.average);
        e.Set("sd", row.stdDev);
        if (flavour != Flavour::Sd) e.Set("half_width", row.halfWidth);
        e.Set("lower", row.lower);
        e.Set("upper", row.upper);
        e.Set("min", row.min);
        e.Set("max", row.max);
        if (flavour == Flavour::Sd) e.Set("range", row.range);
        if (flavour == Flavour::Std) e.Set("batches", row.batches);
        entries.Append(e);
    }
    record.table = entries;
    record.results.Set("entries", std::move(entries));
    return record;
}

}  // namespace

ResultValue st_MultiFileParameters(const CIntrvlDoc& doc) {
    ResultValue files = ResultValue::List();
    for (const CMultiFileItem& item : doc.m_items)
        files.Append(ResultValue::Object().Set("file", item.m_strPath).Set("reps", item.m_strReps));
    ResultValue p = ResultValue::Object();
    p.Set("files", std::move(files));
    p.Set("title", doc.m_strTitle);
    p.Set("level", 1.0 - doc.m_dAlpha);
    return p;
}

ResultRecord st_IntervalRecord(const CIntrvlDoc& doc) { return Record(doc, Flavour::Mean); }
ResultRecord st_SdIntervalRecord(const CIntrvlDoc& doc) { return Record(doc, Flavour::Sd); }
ResultRecord st_StdIntervalRecord(const CIntrvlDoc& doc) { return Record(doc, Flavour::Std); }
