// Base of the documents that graph the (time, value) points of one
// replication of a data file inside a time window and a value range.
#pragma once

#include <memory>
#include <vector>

#include "datafile/SingleDoc.h"

class CGraphDoc : public CSingleDoc {
public:
    // Bounds from the data where the dialog left them open, then the points.
    // 0 or a message id.
    virtual int LoadGraphData();
    virtual bool IsInWindow(double t, double value) const;

    // Reads the points of the replication inside the window into the arrays,
    // ended by -1.0 in both; the arrays must hold the replication's records + 1.
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

    std::vector<double> m_xValues;
    std::vector<double> m_yValues;
    long m_nPoints = 0;

    // For a split frame: the first pane's least height.
    int m_nMinFirstPane = 0;

protected:
    // Fills open bounds from the data (flag -1); the plot scans all its files.
    virtual int ScanRange(double* bounds, const int* flags);
    // 0, or 15804 when the treatment names no replication of the file.
    int CheckTreatment() const;

    double m_range[4] = {0.0, 0.0, 0.0, 0.0};
};
