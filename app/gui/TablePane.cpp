#include "TablePane.h"

#include <QAbstractProxyModel>
#include <QApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <QSplitter>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

#include "ReportWidget.h"
#include "TableModel.h"

// kWindowRows rows of the whole table, from an offset that the pane moves.
class RowWindowModel : public QAbstractProxyModel {
public:
    using QAbstractProxyModel::QAbstractProxyModel;

    int Offset() const { return m_offset; }
    void SetOffset(int offset) {
        if (offset == m_offset) return;
        m_offset = offset;
        const int rows = rowCount(), columns = columnCount();
        if (rows == 0) return;
        emit dataChanged(index(0, 0), index(rows - 1, std::max(0, columns - 1)));
        emit headerDataChanged(Qt::Vertical, 0, rows - 1);
    }

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() || !sourceModel() ? 0 : std::min(TablePane::kWindowRows, sourceModel()->rowCount());
    }
    int columnCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() || !sourceModel() ? 0 : sourceModel()->columnCount();
    }
    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override {
        return hasIndex(row, column, parent) ? createIndex(row, column) : QModelIndex();
    }
    QModelIndex parent(const QModelIndex&) const override { return {}; }
    QModelIndex mapToSource(const QModelIndex& proxy) const override {
        return proxy.isValid() ? sourceModel()->index(proxy.row() + m_offset, proxy.column()) : QModelIndex();
    }
    QModelIndex mapFromSource(const QModelIndex& source) const override {
        const int row = source.isValid() ? source.row() - m_offset : -1;
        return row >= 0 && row < rowCount() ? index(row, source.column()) : QModelIndex();
    }

private:
    int m_offset = 0;
};

TablePane::TablePane(CTableDoc& doc, ReportWidget* heading, QWidget* parent)
    : QWidget(parent), m_table(new QTableView), m_bar(new QScrollBar(Qt::Vertical)) {
    m_model = new TableModel(doc, this);
    m_window = new RowWindowModel(this);
    m_window->setSourceModel(m_model);

    m_table->setModel(m_window);
    m_table->setFont(heading->font());
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    // A selection would stay on the window's rows while the table moves under
    // it; the whole table is saved as text instead (File > Save Report as Text).
    m_table->setSelectionMode(QAbstractItemView::NoSelection);
    m_table->setWordWrap(false);
    m_table->setCornerButtonEnabled(false);
    m_table->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    QHeaderView* rows = m_table->verticalHeader();
    rows->setSectionResizeMode(QHeaderView::Fixed);
    rows->setDefaultSectionSize(m_table->fontMetrics().height() + 4);
    rows->setDefaultAlignment(Qt::AlignRight | Qt::AlignVCenter);
    // Wide enough for the last row's number wherever the window stands.
    rows->setMinimumWidth(m_table->fontMetrics().horizontalAdvance(QString::number(m_model->rowCount())) + 12);
    QHeaderView* columns = m_table->horizontalHeader();
    columns->setSectionResizeMode(QHeaderView::Fixed);
    columns->setDefaultSectionSize(m_table->fontMetrics().horizontalAdvance(QString(14, u'0')));
    m_table->installEventFilter(this);
    m_table->viewport()->installEventFilter(this);
    connect(m_bar, &QScrollBar::valueChanged, this, &TablePane::ScrollTo);

    auto* body = new QWidget;
    auto* bodyLayout = new QHBoxLayout(body);
    bodyLayout->setContentsMargins(0, 0, 0, 0);
    bodyLayout->setSpacing(0);
    bodyLayout->addWidget(m_table, 1);
    bodyLayout->addWidget(m_bar);

    auto* split = new QSplitter(Qt::Vertical);
    split->setChildrenCollapsible(false);
    split->addWidget(heading);
    split->addWidget(body);
    const int lines = std::min(heading->document()->blockCount(), 12);
    split->setSizes({lines * heading->fontMetrics().lineSpacing() + 12, 400});
    split->setStretchFactor(1, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(split);
    UpdateBar();
}

int TablePane::FirstRow() const { return m_bar->value(); }

int TablePane::VisibleRows() const {
    const int height = m_table->viewport()->height();
    return std::max(1, height / std::max(1, m_table->verticalHeader()->defaultSectionSize()));
}

void TablePane::ScrollTo(int row) {
    const int total = m_model->rowCount();
    row = std::clamp(row, 0, std::max(0, total - 1));
    if (m_bar->value() != row) {
        m_bar->setValue(row);  // comes back here
        return;
    }
    const int offset = std::min(row, std::max(0, total - kWindowRows));
    m_window->SetOffset(offset);
    m_table->verticalScrollBar()->setValue(row - offset);
}

void TablePane::UpdateBar() {
    const int visible = VisibleRows();
    m_bar->setRange(0, std::max(0, m_model->rowCount() - visible));
    m_bar->setPageStep(visible);
    m_bar->setSingleStep(1);
}

void TablePane::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    UpdateBar();
}

bool TablePane::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_table->viewport() && event->type() == QEvent::Resize) UpdateBar();
    // The view's own scrolling would stop at the end of its window: the
    // wheel and the moving keys go to the pane's bar.
    if (watched == m_table->viewport() && event->type() == QEvent::Wheel) {
        QApplication::sendEvent(m_bar, event);
        return true;
    }
    if (watched == m_table && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        QAbstractSlider::SliderAction action = QAbstractSlider::SliderNoAction;
        switch (key->key()) {
            case Qt::Key_Up: action = QAbstractSlider::SliderSingleStepSub; break;
            case Qt::Key_Down: action = QAbstractSlider::SliderSingleStepAdd; break;
            case Qt::Key_PageUp: action = QAbstractSlider::SliderPageStepSub; break;
            case Qt::Key_PageDown: action = QAbstractSlider::SliderPageStepAdd; break;
            case Qt::Key_Home: action = QAbstractSlider::SliderToMinimum; break;
            case Qt::Key_End: action = QAbstractSlider::SliderToMaximum; break;
            default: break;
        }
        if (action != QAbstractSlider::SliderNoAction) {
            m_bar->triggerAction(action);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}
