// A document window's contents over the core's frame (CDocFrame): each view
// as a pane, graph views drawn by GraphWidget and report views shown by
// ReportWidget; a split frame puts its graph above its second view in a
// vertical splitter sized by the split frame's rule. A paged report (the table
// of observations) shows its heading above a virtual table of its rows.
#pragma once

#include <QWidget>

#include <cstdint>
#include <iosfwd>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "FrameOutput.h"

class CDocFrame;
class CPagedReport;
class GraphWidget;
class QSplitter;
class ReportWidget;
class TablePane;

class FrameWidget : public QWidget {
    Q_OBJECT
public:
    explicit FrameWidget(std::unique_ptr<CDocFrame> frame, QWidget* parent = nullptr);
    ~FrameWidget() override;

    const CDocFrame& Frame() const { return *m_frame; }
    QString Caption() const;

    bool HasGraph() const { return !m_graphs.empty(); }
    bool HasReport() const { return !m_reports.empty(); }
    // The graph panes as the window shows them now, top to bottom.
    std::vector<GraphPane> GraphPanes() const;
    // Lines in the body of a paged report (0 for other windows); the first
    // call may read the whole data.
    std::int64_t BodyRows() const;
    // The report as the terminal prints it, a paged one fetched a page at a
    // time and cut after maxRows lines of its body: what Print and Copy take.
    std::string ReportText(std::int64_t maxRows = std::numeric_limits<std::int64_t>::max()) const;
    // The whole report as the terminal prints it, a paged one included, as it
    // is made; false after a read error (its message shown).
    bool WriteReport(std::ostream& out) const;
    // The table of a paged report; null for other windows.
    TablePane* Table() const { return m_table; }

    QSize sizeHint() const override { return {800, 600}; }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    std::unique_ptr<CDocFrame> m_frame;
    std::vector<GraphWidget*> m_graphs;
    std::vector<ReportWidget*> m_reports;
    CPagedReport* m_paged = nullptr;
    TablePane* m_table = nullptr;
    QSplitter* m_splitter = nullptr;
    bool m_splitSized = false;
};
