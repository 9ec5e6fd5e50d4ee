#include "graph/BarchDoc.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "datafile/DataFile.h"
#include "datafile/TimeWeight.h"
#include "framework/Messages.h"
#include "graph/BarchDlg.h"

namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();

bool InWindow(double t, double from, double to) { return t >= from && t <= to; }

// Bounds the user left open come from the data; the bars stand on 0, so an
// open value range takes it in. Degenerate ranges are widened as the plot's are.
void SettleRange(double* range, const bool* given, double tLow, double tHigh, double vLow, double vHigh) {
    if (!given[0]) range[0] = tLow;
    if (!given[1]) range[1] = tHigh;
    if (!given[2]) range[2] = std::min(0.0, vLow);
    if (!given[3]) range[3] = std::max(0.0, vHigh);
    if (!(range[1] > range[0])) range[1] = range[0] + 0.1;
    if (!(range[3] > range[2])) {
        range[2] -= 0.1;
        range[3] += 0.1;
    }
}

}  // namespace

CRepBarMean::CRepBarMean(int kind) : m_kind(kind), m_persistent(op_IsTimePersistent(kind)) {}

void CRepBarMean::Add(double t, double v) {
    if (!m_persistent) {
        m_sum += v;
    } else if (m_n == 0) {
        m_first = t;
    } else if (t > m_prevT) {
        m_sum += op_StepWeighted(m_kind) ? op_WeightedArea<true>(m_prevT, m_prevV, t, v)
                                         : op_WeightedArea<false>(m_prevT, m_prevV, t, v);
    }
    m_prevT = t;
    m_prevV = v;
    ++m_n;
}

double CRepBarMean::Mean() const {
    if (m_n == 0) return std::numeric_limits<double>::quiet_NaN();
    if (!m_persistent) return m_sum / static_cast<double>(m_n);
    const double span = m_prevT - m_first;
    return span > 0.0 ? m_sum / span : m_prevV;
}

int CBarchDoc::InitFromDialog(CDialog& dialog) {
    auto* dlg = dynamic_cast<CBarchDlg*>(&dialog);
    if (!dlg) return IDS_NO_FILES;
    m_results = BarchResults{};
    m_results.file = dlg->m_strFile;
    m_results.reps = dlg->m_strReps;
    m_results.title = dlg->m_strTitle;
    if (!OnOpenDocument(dlg->m_strFile.c_str())) return IDS_INVALID_DATA_FILE;
    m_nTreatment = op_ParseRepTreatment(dlg->m_strReps.c_str());
    SetPathName(dlg->m_strFile, false);
    SetTitle(dlg->m_strFile);
    m_results.ident = m_strIdent;
    while (!m_results.ident.empty() && m_results.ident.back() == ' ') m_results.ident.pop_back();
    m_results.fileTitle = m_strTitle;
    m_results.kind = m_nKind;

    int bars = dlg->m_nBars;
    if (bars == BARS_DEFAULT) {
        const bool several = m_nTreatment == REP_ALL || m_nTreatment == REP_LUMPED;
        bars = several && Reader().CountReaches(2) ? BARS_REPLICATIONS : BARS_OBSERVATIONS;
    }
    m_results.bars = bars;
    const bool given[4] = {!dlg->m_strBeginTime.empty(), !dlg->m_strEndTime.empty(), !dlg->m_strMinValue.empty(),
                           !dlg->m_strMaxValue.empty()};
    const double from = given[0] ? dlg->m_dBeginTime : -kInf;
    const double to = given[1] ? dlg->m_dEndTime : kInf;
    m_range[0] = dlg->m_dBeginTime;
    m_range[1] = dlg->m_dEndTime;
    m_range[2] = dlg->m_dMinValue;
    m_range[3] = dlg->m_dMaxValue;
    int rc = bars == BARS_REPLICATIONS ? LoadReplications(from, to) : LoadObservations(from, to);
    if (!rc) {
        double vLow = kInf, vHigh = -kInf, xLow = kInf, xHigh = -kInf;
        for (const BarchBar& b : m_results.bar) {
            vLow = std::min(vLow, b.low);
            vHigh = std::max(vHigh, b.high);
            xLow = std::min(xLow, b.x0);
            xHigh = std::max(xHigh, b.x1);
        }
        if (m_results.bar.empty()) rc = IDS_NO_OBSERVATIONS_FOUND;
        bool xGiven[4] = {given[0], given[1], given[2], given[3]};
        // Replications stand at 1, 2, ...: the window of times is not their axis.
        if (bars == BARS_REPLICATIONS) {
            xGiven[0] = xGiven[1] = false;
            xLow -= 0.5;
            xHigh += 0.5;
        }
        if (!rc) SettleRange(m_range, xGiven, xLow, xHigh, vLow, vHigh);
    }
    OnCloseDocument();
    return rc;
}

int CBarchDoc::LoadReplications(double from, double to) {
    CRecordReader& in = Reader();
    const bool one = m_nTreatment >= 1;
    if (int rc = in.Start(one ? m_nTreatment : REP_ALL)) return rc;
    double sum = 0.0;
    int bars = 0;
    for (int rep = one ? m_nTreatment : 1;; ++rep) {
        CRepBarMean mean(m_nKind);
        double t = 0.0, v = 0.0;
        while (in.NextObs(&t, &v))
            if (InWindow(t, from, to)) mean.Add(t, v);
        if (in.PassEnd() == RecordKind::Error) return IDS_READ_ERROR;
        m_results.observations += mean.Count();
        // An empty replication has no mean and no bar; its number is kept.
        if (mean.Count() > 0) {
            const double h = mean.Mean();
            m_results.bar.push_back({rep - 0.4, rep + 0.4, h, h, rep});
            sum += h;
            ++bars;
        }
        if (one || in.PassEnd() != RecordKind::Boundary || !in.NextReplication()) break;
    }
    if (bars > 0) m_results.meanOfBars = sum / bars;
    return 0;
}

int CBarchDoc::LoadObservations(double from, double to) {
    CRecordReader& in = Reader();
    const int start = m_nTreatment >= 1 ? m_nTreatment : REP_LUMPED;
    const bool step = op_IsTimePersistent(m_nKind);
    m_results.stepArea = step;

    // First pass: how many observations the window holds, and their extent.
    if (int rc = in.Start(start)) return rc;
    long n = 0;
    double tLow = kInf, tHigh = -kInf;
    double t = 0.0, v = 0.0;
    while (in.NextObs(&t, &v)) {
        if (!InWindow(t, from, to)) continue;
        ++n;
        tLow = std::min(tLow, t);
        tHigh = std::max(tHigh, t);
    }
    if (in.PassEnd() == RecordKind::Error) return IDS_READ_ERROR;
    m_results.observations = n;
    if (n == 0) return 0;
    // A step area runs to the end of the window when one is given.
    const double left = std::isfinite(from) ? from : tLow;
    const double right = std::isfinite(to) ? to : tHigh;

    const bool reduce = n > kExactBars;
    m_results.reduced = reduce;
    const double width = (right - left) / kColumns;
    std::vector<BarchBar>& bars = m_results.bar;
    if (reduce) {
        bars.resize(kColumns);
        for (int k = 0; k < kColumns; ++k)
            bars[k] = {left + k * width, left + (k + 1) * width, kInf, -kInf, 0};
    }
    auto column = [&](double x) {
        const double k = width > 0.0 ? std::floor((x - left) / width) : 0.0;
        return static_cast<int>(std::clamp(k, 0.0, static_cast<double>(kColumns - 1)));
    };
    auto take = [&](double x0, double x1, double value) {
        if (!reduce) {
            bars.push_back({x0, x1, value, value, 0});
            return;
        }
        for (int k = column(x0), last = column(x1); k <= last; ++k) {
            bars[k].low = std::min(bars[k].low, value);
            bars[k].high = std::max(bars[k].high, value);
        }
    };

    // Second pass: the bars. For a step area each value holds from its time to
    // the next record's; the value in force when the window opens comes in.
    if (int rc = in.Start(start)) return rc;
    bool have = false;
    double pt = 0.0, pv = 0.0;
    while (in.NextObs(&t, &v)) {
        if (!step) {
            if (InWindow(t, from, to)) take(t, t, v);
            continue;
        }
        // The step from the previous record, where it meets the window; a
        // time that goes back starts a later replication's own area.
        if (have && t >= pt) {
            const double x0 = std::max(pt, left);
            const double x1 = std::min(t, right);
            if (x0 <= x1) take(x0, x1, pv);
        }
        have = true;
        pt = t;
        pv = v;
    }
    if (in.PassEnd() == RecordKind::Error) return IDS_READ_ERROR;
    if (step && have && pt <= right) take(std::max(pt, left), right, pv);
    if (reduce) {
        std::erase_if(bars, [](const BarchBar& b) { return b.low > b.high; });
    }
    return 0;
}
