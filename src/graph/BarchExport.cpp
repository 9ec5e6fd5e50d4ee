#include "graph/BarchExport.h"

#include "graph/BarchDlg.h"
#include "graph/BarchDoc.h"

ResultRecord barch_ResultRecord(const CBarchDoc& doc) {
    const BarchResults& b = doc.Results();
    const bool reps = b.bars == BARS_REPLICATIONS;
    ResultRecord record;
    ResultValue& p = record.parameters;
    p.Set("file", b.file);
    p.Set("reps", b.reps);
    p.Set("title", b.title);
    p.Set("bars", reps ? "replications" : "observations");
    const char* names[4] = {"from", "to", "min", "max"};
    for (int i = 0; i < 4; ++i) p.Set(names[i], b.given[i] ? ResultValue(b.window[i]) : ResultValue());

    ResultValue& r = record.results;
    r.Set("bars_are", reps ? "replications" : "observations");
    r.Set("observations", b.observations);
    r.Set("step_area", b.stepArea);
    r.Set("reduced", b.reduced);
    ResultValue bars = ResultValue::List();
    for (const BarchBar& bar : b.bar) {
        ResultValue e = ResultValue::Object();
        if (reps) {
            e.Set("replication", bar.replication);
        } else {
            e.Set("x", bar.x0);
            if (b.stepArea || b.reduced) e.Set("x_end", bar.x1);
            if (b.reduced) e.Set("low", bar.low).Set("high", bar.high);
        }
        e.Set("height", bar.high);
        bars.Append(e);
    }
    record.table = bars;
    r.Set("bars", std::move(bars));
    r.Set("mean_of_bars", reps ? ResultValue(b.meanOfBars) : ResultValue());
    return record;
}
