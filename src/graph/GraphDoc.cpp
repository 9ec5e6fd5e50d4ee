#include "graph/GraphDoc.h"

#include <filesystem>
#include <limits>
#include <system_error>

#include "datafile/DataFile.h"
#include "datafile/GraphScan.h"
#include "framework/Messages.h"

int CGraphDoc::CheckTreatment() const {
    if (!IsOpen()) return IDS_OPEN_ERROR;
    if (m_nTreatment == REP_LUMPED || m_nTreatment == REP_ALL) return 0;
    if (m_nTreatment < 1 || !Reader().HasEntry(m_nTreatment)) return IDS_INVALID_REP_TREATMENT;
    return 0;
}

std::size_t CGraphDoc::RecordsLeft(const std::string& path, const CRecordReader& in) {
    std::error_code ec;
    const std::uintmax_t size = path.empty() ? 0 : std::filesystem::file_size(path, ec);
    const std::int64_t left = ec ? 0 : static_cast<std::int64_t>(size) - in.Tell();
    return left > 0 ? static_cast<std::size_t>(left) / (in.IsDouble() ? 16 : 8) : 0;
}

int CGraphDoc::ReadPoints(RangeScan* scan, double stopAbove) {
    CRecordReader& in = Reader();
    std::size_t count = 0;
    if (int rc = op_ReadGraphSeries(in, m_nTreatment, scan, stopAbove, RecordsLeft(GetPathName(), in), &m_xValues,
                                    &m_yValues, &count))
        return rc;
    m_bPointsRead = true;
    m_nPointsRead = count;
    return 0;
}

void CGraphDoc::ScanEnded(const RangeScan& scan, const int* flags) {
    const bool allOpen = flags[0] < 0 && flags[1] < 0 && flags[2] < 0 && flags[3] < 0;
    m_bWindowHoldsAll = allOpen && !scan.nanValue && !scan.loadBeyond;
}

int CGraphDoc::ScanRange(double* bounds, const int* flags) {
    m_bWindowHoldsAll = false;
    Reader().SeekEntry(m_nTreatment >= 1 ? m_nTreatment : 1);
    RangeScan scan;
    op_RangeScanBegin(&scan, bounds, flags);
    if (int rc = ReadPoints(&scan, std::numeric_limits<double>::infinity())) return rc;
    op_RangeScanEnd(&scan, bounds);
    ScanEnded(scan, flags);
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
    return LoadGraphPoints();
}

int CGraphDoc::LoadGraphPoints() {
    if (int rc = CheckTreatment()) return rc;
    if (!m_bPointsRead) {
        m_bWindowHoldsAll = false;
        // Nothing after the window's end is shown: the load stops there.
        Reader().SeekEntry(m_nTreatment >= 1 ? m_nTreatment : 1);
        ReadPoints(nullptr, XMax());
    }
    m_bPointsRead = false;
    int first = 0, count = 0;
    GetRepRange(&first, &count);
    m_nPoints = WindowPoints(m_xValues, m_yValues, m_nPointsRead, static_cast<std::size_t>(count));
    return 0;
}

long CGraphDoc::WindowPoints(GraphArray& xs, GraphArray& ys, std::size_t count, std::size_t limit) const {
    const double x0 = XMin(), x1 = XMax(), y0 = YMin(), y1 = YMax();
    const bool values = WindowHasValues();
    auto inside = [=](double t, double v) { return x0 <= t && t <= x1 && (!values || (y0 <= v && v <= y1)); };
    double* px = xs.data();
    double* py = ys.data();
    // Usually every point is shown: the leading ones shown stay where they are.
    const std::size_t lead = count < limit ? count : limit;
    std::size_t i = m_bWindowHoldsAll ? lead : 0;
    while (i < lead && inside(px[i], py[i])) ++i;
    std::size_t n = i;
    double prevT = -1.0, prevV = -1.0;
    for (; i < count; ++i) {
        const double t = px[i], v = py[i];
        if (inside(t, v)) {
            // The curve comes in from the last point before the window.
            if (n == 0 && prevT != -1.0 && n < limit) {
                px[n] = prevT;
                py[n] = prevV;
                ++n;
            }
            // A replication's points fit its observation count (a marker that
            // names the replication again does not add to it).
            if (n >= limit) break;
            px[n] = t;
            py[n] = v;
            ++n;
        } else if (t > x1) {
            break;
        } else {
            prevT = t;
            prevV = v;
        }
    }
    xs.resize(n + 1);
    ys.resize(n + 1);
    xs[n] = -1.0;
    ys[n] = -1.0;
    return static_cast<long>(n);
}
