#include "FrameWidget.h"

#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>
#include <ostream>

#include "GraphWidget.h"
#include "ReportWidget.h"
#include "TablePane.h"
#include "framework/Frame.h"
#include "framework/View.h"
#include "graph/BaseWnd.h"
#include "graph/GraphDoc.h"
#include "graph/TableDoc.h"
#include "report/PagedReport.h"
#include "report/TextView.h"

FrameWidget::FrameWidget(std::unique_ptr<CDocFrame> frame, QWidget* parent)
    : QWidget(parent), m_frame(std::move(frame)) {
    std::vector<QWidget*> panes;
    auto* tableDoc = dynamic_cast<CTableDoc*>(m_frame->GetActiveDocument());
    for (const auto& v : m_frame->Views()) {
        if (auto* report = dynamic_cast<CTextView*>(v.get())) {
            m_reports.push_back(new ReportWidget(report->GetText(), report->GetReportFont()));
            panes.push_back(m_reports.back());
            if (auto* paged = dynamic_cast<CPagedReport*>(report); paged && tableDoc && !m_paged) {
                m_paged = paged;
                m_table = new TablePane(*tableDoc, m_reports.back());
                panes.back() = m_table;
            }
        } else if (auto* view = dynamic_cast<CView*>(v.get())) {
            m_graphs.push_back(new GraphWidget(*view));
            panes.push_back(m_graphs.back());
        }
    }
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    if (panes.size() == 1) {
        layout->addWidget(panes[0]);
    } else if (!panes.empty()) {
        m_splitter = new QSplitter(Qt::Vertical);
        m_splitter->setChildrenCollapsible(false);
        for (QWidget* pane : panes) m_splitter->addWidget(pane);
        layout->addWidget(m_splitter);
    }
    setWindowTitle(Caption());
}

FrameWidget::~FrameWidget() {
    // The panes look at the frame's views: they go first.
    delete layout();
    qDeleteAll(findChildren<QWidget*>(Qt::FindDirectChildrenOnly));
}

QString FrameWidget::Caption() const { return QString::fromStdString(m_frame->GetWindowText()); }

std::vector<GraphPane> FrameWidget::GraphPanes() const {
    std::vector<GraphPane> panes;
    for (GraphWidget* g : m_graphs) panes.push_back({&g->View(), g->size()});
    return panes;
}

std::int64_t FrameWidget::BodyRows() const { return m_paged ? m_paged->BodyLineCount() : 0; }

std::string FrameWidget::ReportText(std::int64_t maxRows) const {
    if (!m_paged) return out_ReportText(*m_frame);
    // In the terminal's order of views; the body in large pages read in order.
    constexpr std::int64_t kPage = 4096;
    std::string text;
    for (const auto& v : m_frame->Views()) {
        const auto* report = dynamic_cast<const CTextView*>(v.get());
        if (!report) continue;
        text += report->GetText();
        if (dynamic_cast<const CPagedReport*>(report) != m_paged) continue;
        const std::int64_t lines = std::min(BodyRows(), maxRows);
        for (std::int64_t first = 0; first < lines; first += kPage) {
            std::string page = m_paged->BodyLines(first, std::min(kPage, lines - first));
            if (page.empty()) break;
            text += page;
        }
    }
    return text;
}

bool FrameWidget::WriteReport(std::ostream& out) const {
    if (m_paged) return m_paged->WriteAll(out, ReportFormat::Text) == 0 && out.good();
    std::string text = out_ReportText(*m_frame);
    return static_cast<bool>(out.write(text.data(), static_cast<std::streamsize>(text.size())).flush());
}

void FrameWidget::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    // The first pane's share is set once, when the window has its size; then it is the user's.
    if (!m_splitter || m_splitSized || height() <= 0 || m_splitter->count() != 2) return;
    m_splitSized = true;
    int h = m_splitter->height() - m_splitter->handleWidth();
    const auto* doc = dynamic_cast<const CGraphDoc*>(m_frame->GetActiveDocument());
    int first = CBaseWndSplit::FirstPaneHeight(h, doc ? doc->m_nMinFirstPane : 0);
    m_splitter->setSizes({first, h - first});
}
