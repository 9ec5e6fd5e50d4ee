// Loading the points of a replication inside a window, and the bounds taken
// from the data.
#include <gtest/gtest.h>

#include <vector>

#include "TestFiles.h"
#include "datafile/FileGlobals.h"
#include "framework/Messages.h"
#include "graph/GraphDoc.h"
#include "graph/PlotDoc.h"

namespace {

struct Point {
    double t, v;
    bool operator==(const Point&) const = default;
};

std::vector<Point> Points(const CGraphDoc& doc) {
    std::vector<Point> out;
    for (long i = 0; i < doc.m_nPoints; ++i) out.push_back({doc.m_xValues[i], doc.m_yValues[i]});
    return out;
}

class GraphDocTest : public ::testing::Test {
protected:
    // Two replications: times 1..4 with values 10, 20, 30, 40, then 1..2.
    void SetUp() override {
        path = dir.Path("g.dat");
        test_WriteDataFile(path, HeaderFields{},
                           test_Replications({{{1, 10}, {2, 20}, {-1, -2}, {3, 30}, {4, 40}}, {{1, 5}, {2, 6}}}));
    }
    // Opens the file, sets treatment and window, sizes the arrays, loads.
    int Load(CGraphDoc& doc, int treatment, double from, double to) {
        EXPECT_TRUE(doc.OnOpenDocument(path.c_str()));
        doc.m_nTreatment = treatment;
        doc.XMin() = from;
        doc.XMax() = to;
        int first = 0, count = 0;
        if (treatment < doc.RepIndexSize()) doc.GetRepRange(&first, &count);
        doc.m_xValues.assign(count + 1, 0.0);
        doc.m_yValues.assign(count + 1, 0.0);
        return doc.LoadGraphPoints();
    }
    TempDir dir;
    std::string path;
};

// The last point before the window is carried in; a point after it ends the
// scan; a replication ends at its marker unless lumped. Every load ends with
// the mark -1.
TEST_F(GraphDocTest, WindowPoints) {
    struct {
        int treatment;
        double from, to;
        std::vector<Point> points;
    } const cases[] = {
        {1, 2.5, 3.5, {{2, 20}, {3, 30}}},
        {1, 5.0, 6.0, {}},  // every record lies before the window
        {1, 0.5, 10.0, {{1, 10}, {2, 20}, {3, 30}, {4, 40}}},
        {2, 0.0, 10.0, {{1, 5}, {2, 6}}},
        {REP_LUMPED, 0.0, 10.0, {{1, 10}, {2, 20}, {3, 30}, {4, 40}, {1, 5}, {2, 6}}},
    };
    for (const auto& c : cases) {
        CGraphDoc doc;
        ASSERT_EQ(Load(doc, c.treatment, c.from, c.to), 0) << c.treatment << " " << c.from;
        EXPECT_EQ(Points(doc), c.points) << c.treatment << " " << c.from;
        EXPECT_EQ(doc.m_xValues[c.points.size()], -1.0) << c.treatment << " " << c.from;
        EXPECT_EQ(doc.m_yValues[c.points.size()], -1.0) << c.treatment << " " << c.from;
    }
    CGraphDoc beyond;
    EXPECT_EQ(Load(beyond, 4, 0.0, 10.0), IDS_INVALID_REP_TREATMENT);
}

TEST_F(GraphDocTest, LoadGraphDataFillsOpenBoundsFromTheReplication) {
    CGraphDoc doc;
    ASSERT_TRUE(doc.OnOpenDocument(path.c_str()));
    doc.XMin() = -1.0;  // the dialog's "empty"
    doc.XMax() = -1.0;
    ASSERT_EQ(doc.LoadGraphData(), 0);
    EXPECT_EQ(doc.XMin(), 1.0);
    EXPECT_EQ(doc.XMax(), 4.0);
    EXPECT_EQ(doc.YMin(), 10.0);
    EXPECT_EQ(doc.YMax(), 40.0);
    EXPECT_EQ(doc.m_nPoints, 4);
    EXPECT_EQ(doc.m_xValues.size(), 5u);  // records + 1
}

TEST_F(GraphDocTest, GivenTimesLimitTheValuesTakenFromTheData) {
    CGraphDoc doc;
    ASSERT_TRUE(doc.OnOpenDocument(path.c_str()));
    doc.XMin() = 2.0;
    doc.XMax() = 3.0;
    ASSERT_EQ(doc.LoadGraphData(), 0);
    EXPECT_EQ(doc.YMin(), 20.0);
    EXPECT_EQ(doc.YMax(), 30.0);
    // A time of 0 counts as not given, like a value of 0.
    CGraphDoc zero;
    ASSERT_TRUE(zero.OnOpenDocument(path.c_str()));
    zero.XMin() = 0.0;
    zero.XMax() = 3.0;
    zero.YMin() = 0.0;
    zero.YMax() = 100.0;
    ASSERT_EQ(zero.LoadGraphData(), 0);
    EXPECT_EQ(zero.XMin(), 1.0);
    EXPECT_EQ(zero.YMin(), 10.0);
    EXPECT_EQ(zero.YMax(), 100.0);
}

TEST(GraphDocRange, DegenerateRangesAreWidened) {
    TempDir dir;
    std::string path = dir.Path("flat.dat");
    test_WriteDataFile(path, HeaderFields{}, test_Replications({{{5, 3}, {5, 3}}}));
    CGraphDoc doc;
    ASSERT_TRUE(doc.OnOpenDocument(path.c_str()));
    doc.XMin() = doc.XMax() = -1.0;
    ASSERT_EQ(doc.LoadGraphData(), 0);
    EXPECT_EQ(doc.XMin(), 5.0);  // the end only
    EXPECT_DOUBLE_EQ(doc.XMax(), 5.1);
    EXPECT_DOUBLE_EQ(doc.YMin(), 2.9);  // both sides
    EXPECT_DOUBLE_EQ(doc.YMax(), 3.1);
}

TEST(GraphDocRange, InvertedBoundsAreRefused) {
    TempDir dir;
    std::string path = dir.Path("r.dat");
    test_WriteDataFile(path, HeaderFields{}, test_Replications({{{1, 1}, {2, 2}}}));
    CGraphDoc late;
    ASSERT_TRUE(late.OnOpenDocument(path.c_str()));
    late.XMin() = 10.0;  // after the last time, which becomes the maximum
    late.XMax() = -1.0;
    EXPECT_EQ(late.LoadGraphData(), IDS_ENDING_TIME);
    CGraphDoc high;
    ASSERT_TRUE(high.OnOpenDocument(path.c_str()));
    high.XMin() = high.XMax() = -1.0;
    high.YMin() = 50.0;  // above every value, which gives the maximum
    EXPECT_EQ(high.LoadGraphData(), IDS_VALUE_RANGE);
    CGraphDoc empty;
    std::string none = dir.Path("none.dat");
    test_WriteDataFile(none, HeaderFields{}, test_Replications({{}}));
    ASSERT_TRUE(empty.OnOpenDocument(none.c_str()));
    empty.XMin() = empty.XMax() = -1.0;
    EXPECT_EQ(empty.LoadGraphData(), IDS_ENDING_TIME);  // 1e20 > -1e20
}

TEST(PlotDocWindow, ValuesOutsideTheRangeAreLeftOut) {
    TempDir dir;
    std::string path = dir.Path("p.dat");
    test_WriteDataFile(path, HeaderFields{}, test_Replications({{{1, 1}, {2, 9}, {3, 2}, {4, 3}}}));
    CPlotDoc doc;
    ASSERT_TRUE(doc.OnOpenDocument(path.c_str()));
    doc.XMin() = 0.5;
    doc.XMax() = 10.0;
    doc.YMin() = 0.5;
    doc.YMax() = 5.0;
    doc.m_xValues.assign(5, 0.0);
    doc.m_yValues.assign(5, 0.0);
    ASSERT_EQ(doc.LoadGraphPoints(), 0);
    EXPECT_EQ(Points(doc), (std::vector<Point>{{1, 1}, {3, 2}, {4, 3}}));
}

}  // namespace
