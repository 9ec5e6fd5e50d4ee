// A pane that shows a core graph view: the view lays out and draws itself
// through the QPainter device context on every paint, so a resize redraws it
// for the new size.
#pragma once

#include <QWidget>

#include <string>
#include <utility>
#include <vector>

class CView;
struct CRect;

class GraphWidget : public QWidget {
    Q_OBJECT
public:
    explicit GraphWidget(CView& view, QWidget* parent = nullptr);

    CView& View() const { return m_view; }

    // Messages a drawing gave: string id (0 for a free text) and text.
    using Messages = std::vector<std::pair<int, std::string>>;

    // Draws view as a window of size would show it, onto painter's device.
    // The messages of the drawing are returned, not shown.
    static Messages Render(CView& view, QPainter& painter, QSize size);
    // Draws view laid out for client on a device of the given size (the
    // printer's page on the paper path), at painter's origin.
    static Messages Draw(CView& view, QPainter& painter, const CRect& client, QSize device, bool printing);

    QSize sizeHint() const override { return {640, 360}; }
    QSize minimumSizeHint() const override { return {80, 40}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    CView& m_view;
    // A drawing error is shown once, not on every repaint it causes.
    Messages m_lastMessages;
};
