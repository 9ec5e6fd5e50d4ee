#include "GraphWidget.h"

#include <QPainter>
#include <QTimer>

#include "QtDC.h"
#include "framework/Host.h"
#include "framework/View.h"

namespace {

// Keeps the messages of a drawing: a message box opened from inside a paint
// would repaint the window under it and ask again.
class CollectingHost : public IHost {
public:
    int ShowMessage(int id, const std::string& text, unsigned style) override {
        messages.emplace_back(id, text);
        return (style & MB_YESNO) ? IDNO : IDOK;
    }
    GraphWidget::Messages messages;
};

}  // namespace

GraphWidget::GraphWidget(CView& view, QWidget* parent) : QWidget(parent), m_view(view) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::ClickFocus);
}

GraphWidget::Messages GraphWidget::Draw(CView& view, QPainter& painter, const CRect& client, QSize device,
                                        bool printing) {
    CollectingHost collector;
    ScopedHost scope(&collector);
    view.SetClientRect(client);
    CQtDC dc(painter, device.width(), device.height(), printing);
    view.OnDraw(dc);
    dc.Flush();
    return std::move(collector.messages);
}

GraphWidget::Messages GraphWidget::Render(CView& view, QPainter& painter, QSize size) {
    painter.fillRect(QRect(QPoint(0, 0), size), Qt::white);
    return Draw(view, painter, CRect{0, 0, size.width(), size.height()}, size, false);
}

void GraphWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    Messages messages = Render(m_view, painter, size());
    if (messages == m_lastMessages) return;
    m_lastMessages = messages;
    // Shown once the paint is over.
    QTimer::singleShot(0, this, [messages] {
        for (const auto& [id, text] : messages) id ? AfxMessageBox(id) : AfxMessageBox(text);
    });
}
