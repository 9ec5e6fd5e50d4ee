// The table window's pane: the table's heading above its rows. Qt's item
// views keep a record for every row they show (some twelve bytes a row, well
// over 100 MB for 10^7 rows), so the view is given a window of a few hundred
// rows of the model and a scroll bar of its own moves that window over the
// whole table: memory stays that of a page, however long the table.
#pragma once

#include <QWidget>

class CTableDoc;
class QScrollBar;
class QTableView;
class ReportWidget;
class RowWindowModel;
class TableModel;

class TablePane : public QWidget {
    Q_OBJECT
public:
    // Rows in the view's window: more than any screen shows.
    static constexpr int kWindowRows = 256;

    TablePane(CTableDoc& doc, ReportWidget* heading, QWidget* parent = nullptr);

    QTableView* Table() const { return m_table; }
    TableModel* Model() const { return m_model; }
    // Scrolls so that row (of the whole table) is the first shown.
    void ScrollTo(int row);
    // The first row shown and the rows the view shows whole.
    int FirstRow() const;
    int VisibleRows() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void UpdateBar();

    TableModel* m_model;
    RowWindowModel* m_window;
    QTableView* m_table;
    QScrollBar* m_bar;
};
