// The table window's model over the paged table: files side by side under
// their identifiers, empty cells where a file has run out, a replication end
// as a row of its own, and only a few pages held however far the view jumps;
// the pane's grid is given a window of the rows, never all of them.
#include <QHeaderView>
#include <QTableView>
#include <QtTest>

#include "ReportWidget.h"
#include "TableModel.h"
#include "TablePane.h"
#include "TestFiles.h"
#include "report/TextView.h"
#include "graph/TableDlg.h"
#include "graph/TableDoc.h"

class TableModelTest : public QObject {
    Q_OBJECT
private slots:
    void showsTheFilesSideBySide();
};

void TableModelTest::showsTheFilesSideBySide() {
    // File A: two replications of 3000 observations, value 2i + r at time i;
    // file B: one of 5000, value -i at time i / 4.
    TempDir dir;
    std::vector<std::vector<Rec>> a(2), b(1);
    for (int r = 0; r < 2; ++r)
        for (int i = 1; i <= 3000; ++i) a[r].push_back({double(i), 2.0 * i + r});
    for (int i = 1; i <= 5000; ++i) b[0].push_back({i / 4.0, -double(i)});
    HeaderFields ha, hb;
    ha.ident = "QUEUE";
    hb.ident = "SERVER";
    test_WriteDataFile(dir.Path("a.dat"), ha, test_Replications(a));
    test_WriteDataFile(dir.Path("b.dat"), hb, test_Replications(b));

    CTableDlg dlg;
    dlg.AddFile(dir.Path("a.dat"), "All");
    dlg.AddFile(dir.Path("b.dat"), "All");
    QCOMPARE(dlg.Validate(nullptr), 0);
    CTableDoc doc;
    QCOMPARE(doc.InitFromDialog(dlg), 0);
    TableModel model(doc);

    // Replication 1 takes B's 5000 rows, then its end, then A's second 3000.
    QCOMPARE(model.rowCount(), 5000 + 1 + 3000);
    QCOMPARE(model.columnCount(), 4);
    QCOMPARE(model.headerData(0, Qt::Horizontal, Qt::DisplayRole).toString(), QStringLiteral("QUEUE\nTime"));
    QCOMPARE(model.headerData(3, Qt::Horizontal, Qt::DisplayRole).toString(), QStringLiteral("SERVER\nValue"));

    auto cell = [&model](int row, int column) { return model.data(model.index(row, column), Qt::DisplayRole).toString(); };
    auto obs = [&model](int row) { return model.headerData(row, Qt::Vertical, Qt::DisplayRole).toString(); };
    // The last row first: a jump to the end, then back to the start.
    QCOMPARE(obs(8000), QStringLiteral("8000"));
    QCOMPARE(cell(8000, 0), QStringLiteral("3000"));
    QCOMPARE(cell(8000, 1), QStringLiteral("6001"));
    QCOMPARE(cell(8000, 2), QString());
    QCOMPARE(cell(0, 1), QStringLiteral("2"));
    QCOMPARE(cell(0, 2), QStringLiteral("0.25"));
    QCOMPARE(cell(0, 3), QStringLiteral("-1"));
    // A has ended at row 3000; B goes on to 5000.
    QCOMPARE(cell(3000, 0), QString());
    QCOMPARE(cell(4998, 2), QStringLiteral("1249.75"));
    QCOMPARE(cell(4999, 3), QStringLiteral("-5000"));
    // The replication end: no number, dashes, shaded.
    QCOMPARE(obs(5000), QString());
    QVERIFY(cell(5000, 0).startsWith(QStringLiteral("---")));
    QVERIFY(model.data(model.index(5000, 0), Qt::BackgroundRole).isValid());
    QCOMPARE(obs(5001), QStringLiteral("5001"));
    QCOMPARE(cell(5001, 1), QStringLiteral("3"));

    // A view jumping all over the table keeps a few pages, not the rows it passed.
    for (int row = 0; row < model.rowCount(); row += 97) cell(row, 1);
    QVERIFY(model.RowsHeld() <= TableModel::kPagesKept * TableModel::kPageRows);

    // On screen: the grid knows its window of rows, which follows the scrolling.
    TablePane pane(doc, new ReportWidget("Table of Observations\n", ReportFont{}));
    pane.resize(600, 400);
    pane.show();
    QVERIFY(QTest::qWaitForWindowExposed(&pane));
    QTableView* grid = pane.Table();
    QCOMPARE(grid->verticalHeader()->count(), TablePane::kWindowRows);
    auto shown = [grid](int y) { return grid->model()->headerData(grid->rowAt(y), Qt::Vertical).toString(); };
    pane.ScrollTo(6000);
    QCOMPARE(shown(0), QStringLiteral("6000"));
    pane.ScrollTo(model.rowCount());
    QCOMPARE(shown(pane.VisibleRows() * grid->rowHeight(0) - 1), QStringLiteral("8000"));
}

QTEST_MAIN(TableModelTest)
#include "TableModelTest.moc"
