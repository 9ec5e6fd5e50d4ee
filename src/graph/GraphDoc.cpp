#include "graph/GraphDoc.h"

#include <algorithm>

#include "datafile/DataFile.h"
#include "datafile/GraphScan.h"
#include "framework/Messages.h"

bool CGraphDoc::IsInWindow(double t, double) const { return XMin() <= t && t <= XMax(); }

int CGraphDoc::CheckTreatment() const {
    if (!IsOpen()) return IDS_OPEN_ERROR;
    if (m_nTreatment == REP_LUMPED || m_nTreatment == REP_ALL) return 0;
    if (m_nTreatment < 1 || !Reader().HasEntry(m_nTreatment)) return IDS_INVALID_REP_TREATMENT;
    return 0;
}

int CGraphDoc::ScanRange(double* bounds, const int* flags) {
    CRecordReader& in = Reader();
    in.SeekEntry(m_nTreatment >= 1 ? m_nTreatment : 1);
    RangeScan scan;
    op_RangeScanBegin(&scan, bounds, flags);
    int rc = op_RangeScanRecords(&scan, in, m_nTreatment);
    if (rc) return rc;
    op_RangeScanEnd(&scan, bounds);
    return 0;
}

int CGraphDoc::LoadGraphData() {
    if (int rc = CheckTreatment()) return rc;

    // Times count as given when positive, values when non-zero: 0 and the
    // dialog's -1 for an empty field both mean "from the data".
    double bounds[4] = {XMin(), XMax(), YMin(), YMax()};
    int flags[4] = {XMin() > 0.0 ? 1 : -1, XMax() > 0.0 ? 1 : -1, YMin() != 0.0 ? 1 : -1, YMax() != 0.0 ? 1 : -1};
    if (int rc = ScanRange(bounds, flags)) return rc;
    if (bounds[0] > bounds[1]) return IDS_ENDING_TIME;
    if (bounds[2] > bounds[3]) return IDS_VALUE_RANGE;
    if (bounds[1] == bounds[0]) bounds[1] += 0.1;
    if (bounds[3] == bounds[2]) {
        bounds[2] -= 0.1;
        bounds[3] += 0.1;
    }
    for (int i = 0; i < 4; ++i) m_range[i] = bounds[i];

    // After the range scan has read the replication, its count is known.
    int first = 0, count = 0;
    GetRepRange(&first, &count);
    m_xValues.assign(static_cast<std::size_t>(count) + 1, 0.0);
    m_yValues.assign(static_cast<std::size_t>(count) + 1, 0.0);
    return LoadGraphPoints();
}

int CGraphDoc::LoadGraphPoints() {
    if (int rc = CheckTreatment()) return rc;
    CRecordReader& in = Reader();
    in.SeekEntry(m_nTreatment >= 1 ? m_nTreatment : 1);
    // Room for the end mark at least, whatever the caller allocated.
    if (m_xValues.empty() || m_yValues.size() != m_xValues.size()) {
        m_xValues.assign(std::max<std::size_t>(m_xValues.size(), 1), 0.0);
        m_yValues.assign(m_xValues.size(), 0.0);
    }
    const std::size_t last = m_xValues.size() - 1;

    std::size_t n = 0;
    double prevT = -1.0, prevV = -1.0;
    int rep = m_nTreatment;
    double* xs = m_xValues.data();
    double* ys = m_yValues.data();
    for (;;) {
        double t = 0.0, v = 0.0;
        op_ReadGraphRecord(in, m_nTreatment, &rep, &t, &v);
        if (t >= 0.0) {
            if (IsInWindow(t, v)) {
                // The curve comes in from the last point before the window.
                if (n == 0 && prevT != -1.0 && n < last) {
                    xs[n] = prevT;
                    ys[n] = prevV;
                    ++n;
                }
                if (n >= last) break;
                xs[n] = t;
                ys[n] = v;
                ++n;
            } else if (t > XMax()) {
                break;
            } else {
                prevT = t;
                prevV = v;
            }
            continue;
        }
        if (v == MARK_SKIP) continue;
        if (v == MARK_END) break;
        if (rep != m_nTreatment) break;
    }
    xs[n] = -1.0;
    ys[n] = -1.0;
    m_nPoints = static_cast<long>(n);
    return 0;
}
