// The table's paged access: any range of rows fetched through the marks equals
// the same rows read in one pass, wherever the range starts and in any order.
#include <gtest/gtest.h>

#include "TestFiles.h"
#include "graph/TableDlg.h"
#include "graph/TableDoc.h"

namespace {

bool SameRow(const TableRow& a, const TableRow& b) {
    if (a.obs != b.obs || a.cells.size() != b.cells.size()) return false;
    for (std::size_t i = 0; i < a.cells.size(); ++i) {
        const TableCell& x = a.cells[i];
        const TableCell& y = b.cells[i];
        if (x.filled != y.filled || (x.filled && (x.time != y.time || x.value != y.value))) return false;
    }
    return true;
}

TEST(TableDoc, FetchedPagesEqualTheRowsOfOnePass) {
    TempDir dir;
    // Replications of 5000, 0 and 7000 observations beside one of 9000: the
    // marks every 4096 rows fall inside replications and across their ends.
    std::vector<std::vector<Rec>> a(3), b(1);
    for (int i = 0; i < 5000; ++i) a[0].push_back({i * 1.0, i * 0.5});
    for (int i = 0; i < 7000; ++i) a[2].push_back({i * 2.0, -i * 0.25});
    for (int i = 0; i < 9000; ++i) b[0].push_back({i * 0.1, i * 3.0});
    test_WriteDataFile(dir.Path("a.dat"), {}, test_Replications(a));
    test_WriteDataFile(dir.Path("b.dat"), {.isDouble = false}, test_Replications(b));

    CTableDlg dlg;
    dlg.AddFile(dir.Path("a.dat"), "All");
    dlg.AddFile(dir.Path("b.dat"), "1");
    ASSERT_EQ(dlg.Validate(nullptr), 0);
    CTableDoc doc;
    ASSERT_EQ(doc.InitFromDialog(dlg), 0);

    // 9000 rows beside the first two replications, two replication ends, then 7000.
    EXPECT_EQ(doc.RowCount(), 9000 + 2 + 7000);
    std::vector<TableRow> all;
    CTableRows& rows = doc.Rows();
    for (TableRow row; rows.Next(&row);) all.push_back(row);
    ASSERT_EQ(static_cast<std::int64_t>(all.size()), doc.RowCount());
    EXPECT_TRUE(all[9000].IsRepEnd() && all[9001].IsRepEnd());
    EXPECT_EQ(all[9002].obs, 9001);

    const std::int64_t ranges[][2] = {{12000, 50}, {0, 10},    {4095, 3},  {8999, 5},
                                      {4096, 1},   {16000, 10}, {15990, 100}, {16002, 5}};
    std::vector<TableRow> page;
    for (const auto& r : ranges) {
        ASSERT_EQ(doc.FetchRows(r[0], r[1], &page), 0);
        const std::int64_t expect = std::min<std::int64_t>(r[1], static_cast<std::int64_t>(all.size()) - r[0]);
        ASSERT_EQ(static_cast<std::int64_t>(page.size()), std::max<std::int64_t>(expect, 0)) << r[0];
        for (std::size_t k = 0; k < page.size(); ++k)
            EXPECT_TRUE(SameRow(page[k], all[static_cast<std::size_t>(r[0]) + k])) << r[0] + static_cast<std::int64_t>(k);
    }
}

}  // namespace
