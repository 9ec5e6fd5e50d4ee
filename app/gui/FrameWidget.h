// A document window's contents over the core's frame (CDocFrame): each view
// as a pane, graph views drawn by GraphWidget and report views shown by
// ReportWidget; a split frame puts its graph above its second view in a
// vertical splitter sized by the split frame's rule.
#pragma once

#include <QWidget>

#include <memory>
#include <string>
#include <vector>

#include "FrameOutput.h"

class CDocFrame;
class GraphWidget;
class QSplitter;
class ReportWidget;

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
    std::string ReportText() const;

    QSize sizeHint() const override { return {800, 600}; }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    std::unique_ptr<CDocFrame> m_frame;
    std::vector<GraphWidget*> m_graphs;
    std::vector<ReportWidget*> m_reports;
    QSplitter* m_splitter = nullptr;
    bool m_splitSized = false;
};
