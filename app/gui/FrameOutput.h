// A document window's graph and report on paper, in files and on the
// clipboard, taken from its core frame (CDocFrame): the graph views as the
// window lays them out, the report as the terminal prints it.
#pragma once

#include <QImage>
#include <QSize>
#include <QString>

#include <functional>
#include <string>
#include <vector>

class CDocFrame;
class CView;
class QPainter;
class QPrinter;
struct ReportFont;

// One graph view and the size of the pane that shows it.
struct GraphPane {
    CView* view;
    QSize size;
};

// The graph views of frame, top to bottom, in a window whose graph area is
// size: two graph views (a graph and its legend) share it as a split frame's
// panes do. Empty when the frame holds no graph.
std::vector<GraphPane> out_GraphPanes(const CDocFrame& frame, QSize size);
// The text of the frame's report views; empty when there is none.
std::string out_ReportText(const CDocFrame& frame);
// The font of the frame's first report view; null when there is none.
const ReportFont* out_ReportFont(const CDocFrame& frame);

// The panes stacked as on screen.
QImage out_GraphImage(const std::vector<GraphPane>& panes);
// The panes as the core's SVG writer draws them (what `--svg` writes).
std::string out_GraphSvg(const std::vector<GraphPane>& panes, const std::string& title);
// The paper path: each pane drawn at the device's resolution into its share
// of page, with the ticks it shows on screen.
void out_PaintGraphPage(const std::vector<GraphPane>& panes, QPainter& painter, const QRect& page);
// The graph on the first page (when there is one), then the report's pages.
void out_Print(const std::vector<GraphPane>& panes, const std::string& report, const ReportFont* font,
               QPrinter& printer);

// Writes a file through write (given a temporary path beside the target), then
// renames it into place; shows a message and returns false on failure.
bool out_WriteFile(const QString& path, const std::function<bool(const QString& tempPath)>& write);
