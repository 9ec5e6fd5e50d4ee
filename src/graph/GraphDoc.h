// Base of the documents that graph the (time, value) points of one
// replication of a data file inside a time window and a value range.
#pragma once

#include <memory>
#include <vector>

#include "datafile/GraphScan.h"
#include "datafile/SingleDoc.h"

class CGraphDoc : public CSingleDoc {
public:
    // Bounds from the data where the dialog left them open, then the points.
    // 0 or a message id.
    virtual int LoadGraphData();

    // The points of the replication inside the window, ended by -1.0 in both
    // arrays: read now, or taken from what the range scan read.
    int LoadGraphPoints();

    // x minimum, x maximum, y minimum, y maximum: what DrawGraphFrame reads.
    const double* Range() const { return m_range; }
    double& XMin() { return m_range[0]; }
    double& XMax() { return m_range[1]; }
    double& YMin() { return m_range[2]; }
    double& YMax() { return m_range[3]; }
    double XMin() const { return m_range[0]; }
    double XMax() const { return m_range[1]; }
    double YMin() const { return m_range[2]; }
    double YMax() const { return m_range[3]; }

    GraphArray m_xValues;
    GraphArray m_yValues;
    long m_nPoints = 0;

    // For a split frame: the first pane's least height.
    int m_nMinFirstPane = 0;

protected:
    // Fills open bounds from the data (flag -1), reading the points on the
    // way; the plot scans all its files.
    virtual int ScanRange(double* bounds, const int* flags);
    // Whether the window bounds values as well as times.
    virtual bool WindowHasValues() const { return false; }
    // 0, or 15804 when the treatment names no replication of the file.
    int CheckTreatment() const;
    // Reads the observations of the treatment from the reader's position into
    // the document's arrays (see op_ReadGraphSeries).
    int ReadPoints(RangeScan* scan, double stopAbove);
    // Keeps, in place, those of the first count points of the arrays that the
    // window shows, ends them with the mark and returns how many there are.
    // limit: the replication's observation count, which the points never exceed.
    long WindowPoints(GraphArray& xs, GraphArray& ys, std::size_t count, std::size_t limit) const;
    // Room for the records from the reader's position to the end of the file.
    static std::size_t RecordsLeft(const std::string& path, const CRecordReader& in);

    double m_range[4] = {0.0, 0.0, 0.0, 0.0};
    // The range scan has read the points: count of them wait for the window.
    bool m_bPointsRead = false;
    std::size_t m_nPointsRead = 0;
    // Every bound came from the points the scan read, and all of them lie
    // within it: the window shows them all.
    bool m_bWindowHoldsAll = false;
    // Sets m_bWindowHoldsAll after a range scan.
    void ScanEnded(const RangeScan& scan, const int* flags);
};
