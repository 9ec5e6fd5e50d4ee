#include "FrameOutput.h"

#include <QFile>
#include <QFontMetrics>
#include <QPainter>
#include <QPrinter>

#include "GraphWidget.h"
#include "QtDC.h"
#include "ReportWidget.h"
#include "framework/Frame.h"
#include "framework/Host.h"
#include "framework/SafeOutput.h"
#include "framework/SvgDC.h"
#include "framework/View.h"
#include "graph/FramePanes.h"
#include "report/TextView.h"

namespace {

std::string Utf8(const QString& s) {
    QByteArray bytes = s.toUtf8();
    return std::string(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

void ShowLater(const GraphWidget::Messages& messages) {
    for (const auto& [id, text] : messages) id ? AfxMessageBox(id) : AfxMessageBox(text);
}

}  // namespace

std::vector<GraphPane> out_GraphPanes(const CDocFrame& frame, QSize size) {
    std::vector<GraphPane> panes;
    for (const FramePane& p : frame_Panes(frame, size.width(), size.height(), true))
        panes.push_back({static_cast<CView*>(p.view), QSize(p.rect.Width(), p.rect.Height())});
    return panes;
}

std::string out_ReportText(const CDocFrame& frame) {
    std::string text;
    for (const auto& v : frame.Views())
        if (const auto* report = dynamic_cast<const CTextView*>(v.get())) text += report->GetText();
    return text;
}

const ReportFont* out_ReportFont(const CDocFrame& frame) {
    for (const auto& v : frame.Views())
        if (const auto* report = dynamic_cast<const CTextView*>(v.get())) return &report->GetReportFont();
    return nullptr;
}

QImage out_GraphImage(const std::vector<GraphPane>& panes) {
    int width = 0, height = 0;
    for (const GraphPane& p : panes) {
        width = std::max(width, p.size.width());
        height += p.size.height();
    }
    QImage image(std::max(width, 1), std::max(height, 1), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    int y = 0;
    GraphWidget::Messages messages;
    for (const GraphPane& p : panes) {
        painter.save();
        painter.translate(0, y);
        painter.setClipRect(QRect(QPoint(0, 0), p.size));
        GraphWidget::Messages m = GraphWidget::Render(*p.view, painter, p.size);
        messages.insert(messages.end(), m.begin(), m.end());
        painter.restore();
        y += p.size.height();
    }
    painter.end();
    ShowLater(messages);
    return image;
}

std::string out_GraphSvg(const std::vector<GraphPane>& panes, const std::string& title) {
    int width = 0, height = 0;
    for (const GraphPane& p : panes) {
        width = std::max(width, p.size.width());
        height += p.size.height();
    }
    CSvgDC dc(std::max(width, 1), std::max(height, 1), title);
    int y = 0;
    for (const GraphPane& p : panes) {
        dc.BeginPane(0, y, p.size.width(), p.size.height());
        p.view->SetClientRect(CRect{0, 0, p.size.width(), p.size.height()});
        p.view->OnDraw(dc);
        dc.EndPane();
        y += p.size.height();
    }
    return dc.Finish();
}

void out_PaintGraphPage(const std::vector<GraphPane>& panes, QPainter& painter, const QRect& page) {
    int total = 0;
    for (const GraphPane& p : panes) total += p.size.height();
    if (total <= 0) return;
    int top = page.top();
    GraphWidget::Messages messages;
    for (std::size_t i = 0; i < panes.size(); ++i) {
        const GraphPane& p = panes[i];
        if (p.size.isEmpty()) continue;
        // The printout takes its ticks from the screen: draw the screen's once.
        QImage screen(p.size, QImage::Format_RGB32);
        QPainter screenPainter(&screen);
        GraphWidget::Render(*p.view, screenPainter, p.size);
        screenPainter.end();

        int band = i + 1 == panes.size() ? page.bottom() + 1 - top : page.height() * p.size.height() / total;
        painter.save();
        painter.setClipRect(QRect(page.left(), top, page.width(), band));
        painter.translate(page.left(), top);
        GraphWidget::Messages m = GraphWidget::Draw(*p.view, painter, CRect{0, 0, p.size.width(), p.size.height()},
                                                    QSize(page.width(), band), true);
        messages.insert(messages.end(), m.begin(), m.end());
        painter.restore();
        top += band;
    }
    ShowLater(messages);
}

void out_Print(const std::vector<GraphPane>& panes, const std::string& report, const ReportFont* font,
               QPrinter& printer) {
    QPainter painter;
    if (!painter.begin(&printer)) return;
    QRect page(0, 0, printer.width(), printer.height());
    bool first = true;
    if (!panes.empty()) {
        out_PaintGraphPage(panes, painter, page);
        first = false;
    }
    if (report.empty() || !font) return;
    // A report font is sized in screen pixels: on paper its points keep the size.
    QFont screenFont = ReportWidget::ToQFont(*font);
    QFont paperFont = screenFont;
    if (screenFont.pixelSize() > 0) paperFont.setPointSizeF(screenFont.pixelSize() * 72.0 / 96.0);
    painter.setFont(paperFont);
    painter.setPen(Qt::black);
    QFontMetrics metrics(paperFont, &printer);
    int lineHeight = std::max(1, metrics.lineSpacing());
    int linesPerPage = std::max(1, page.height() / lineHeight);
    QStringList lines = QString::fromUtf8(report.data(), static_cast<qsizetype>(report.size())).split(u'\n');
    if (lines.size() > 1 && lines.last().isEmpty()) lines.removeLast();
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (i % linesPerPage == 0 && !(first && i == 0)) printer.newPage();
        int row = static_cast<int>(i % linesPerPage);
        painter.drawText(QPointF(page.left(), page.top() + row * lineHeight + metrics.ascent()), lines[i]);
    }
}

bool out_WriteFile(const QString& path, const std::function<bool(const QString& tempPath)>& write) {
    CSafeOutput out(Utf8(path));
    QString temp = QString::fromUtf8(out.TempPath().c_str());
    if (!write(temp) || !out.Commit()) {
        AfxMessageBox(Utf8(QObject::tr("Cannot write the file %1").arg(path)));
        return false;
    }
    return true;
}
