#include <gtest/gtest.h>

#include <vector>

#include "TestFiles.h"
#include "datafile/FileGlobals.h"
#include "datafile/SingleDoc.h"
#include "framework/Host.h"

namespace {

class RecordingHost : public IHost {
public:
    int ShowMessage(int id, const std::string&, unsigned) override {
        ids.push_back(id);
        return IDOK;
    }
    std::vector<int> ids;
};

TEST(SingleDoc, IndexesEveryReplicationWithATrailingEntry) {
    TempDir dir;
    std::string path = dir.Path("three.dat");
    HeaderFields h;
    // Replication 2 holds a skip marker that neither ends it nor counts.
    std::vector<Rec> recs = test_Replications({{{1, 1}, {2, 1}}, {{1, 2}, {-1, -2}, {2, 2}, {3, 2}}, {{1, 3}}});
    test_WriteDataFile(path, h, recs);
    CSingleDoc doc;
    ASSERT_TRUE(doc.OnOpenDocument(path.c_str()));
    EXPECT_EQ(doc.RepCount(), 3);
    EXPECT_EQ(doc.m_nKind, 3);
    EXPECT_EQ(doc.m_strIdent, "IDENT");
    EXPECT_EQ(doc.m_strTitle, "A title");
    EXPECT_EQ(doc.m_strType, "Tally");
    EXPECT_EQ(doc.m_nReinit, 1);
    EXPECT_EQ(doc.m_nIsDouble, 1);
    ASSERT_EQ(doc.RepIndexSize(), 5);
    long header = static_cast<long>(test_HeaderBytes(h).size());
    // Positions: replication 1 at the first record; each later one just after
    // the marker that closes its predecessor (16 bytes a record).
    struct Entry {
        long pos;
        int count;
    } expected[] = {{header, 2}, {header + 3 * 16, 3}, {header + 8 * 16, 1}, {header + 10 * 16, 0}};
    for (int r = 1; r <= 4; ++r) {
        EXPECT_EQ(doc.RepInfo(r).m_lFilePos, expected[r - 1].pos) << r;
        EXPECT_EQ(doc.RepInfo(r).m_nObsCount, expected[r - 1].count) << r;
    }
    EXPECT_THROW(doc.RepInfo(5), std::out_of_range);

    int first = 0, count = 0;
    doc.m_nTreatment = REP_ALL;
    doc.GetRepRange(&first, &count);
    EXPECT_EQ(first, 1);
    EXPECT_EQ(count, 6);
    doc.m_nTreatment = REP_LUMPED;
    doc.GetRepRange(&first, &count);
    EXPECT_EQ(count, 6);
    doc.m_nTreatment = 2;
    doc.GetRepRange(&first, &count);
    EXPECT_EQ(first, 2);
    EXPECT_EQ(count, 3);
}

TEST(SingleDoc, OpenFailures) {
    TempDir dir;
    RecordingHost host;
    ScopedHost scope(&host);
    // The count's error id passes as a count, so the open itself reports.
    CSingleDoc missing;
    EXPECT_FALSE(missing.OnOpenDocument(dir.Path("none.dat").c_str()));
    test_WriteBytes(dir.Path("bad.dat"), "garbage\n");
    CSingleDoc bad;
    EXPECT_FALSE(bad.OnOpenDocument(dir.Path("bad.dat").c_str()));
    EXPECT_FALSE(bad.IsOpen());
    EXPECT_EQ(host.ids, (std::vector<int>{15811, 15928}));
}

TEST(SingleDoc, AFileWithoutItsEndMarkerStillOpens) {
    // The count is an error id, which passes as a (large) count.
    TempDir dir;
    std::string path = dir.Path("cut.dat");
    test_WriteDataFile(path, {}, {{1, 1}, {2, 2}});
    CSingleDoc doc;
    ASSERT_TRUE(doc.OnOpenDocument(path.c_str()));
    EXPECT_EQ(doc.RepCount(), 15836);
    EXPECT_EQ(doc.RepInfo(1).m_nObsCount, 2);
}

class CountingDoc : public CSingleDoc {
public:
    CSingleDoc* CreateSibling() override {
        ++made;
        return new CountingDoc;
    }
    static inline int made = 0;
};

TEST(SingleDoc, AllReplicationsOpenOneSiblingEach) {
    TempDir dir;
    std::string path = dir.Path("three.dat");
    test_WriteDataFile(path, {}, test_Replications({{{1, 1}}, {{1, 2}}, {{1, 3}}}));
    CountingDoc doc;
    doc.SetPathName(path);
    ASSERT_TRUE(doc.OnOpenDocument(path.c_str()));
    CountingDoc::made = 0;
    EXPECT_EQ(doc.OpenAllReps(&doc), 0);
    EXPECT_EQ(CountingDoc::made, 2);
    ASSERT_EQ(doc.Siblings().size(), 3u);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(doc.Siblings()[i]->m_nTreatment, i + 1);
        EXPECT_NE(dynamic_cast<CountingDoc*>(doc.Siblings()[i]), nullptr);
        EXPECT_TRUE(doc.Siblings()[i]->IsOpen());
    }
    EXPECT_EQ(doc.Siblings()[0], &doc);
    EXPECT_EQ(doc.ReleaseSiblings(), 0);
    EXPECT_TRUE(doc.Siblings().empty());
    EXPECT_FALSE(doc.IsOpen());

    // One replication makes no siblings.
    test_WriteDataFile(path, {}, test_Replications({{{1, 1}}}));
    CountingDoc one;
    one.SetPathName(path);
    ASSERT_TRUE(one.OnOpenDocument(path.c_str()));
    CountingDoc::made = 0;
    EXPECT_EQ(one.OpenAllReps(&one), 0);
    EXPECT_EQ(CountingDoc::made, 0);
    EXPECT_EQ(one.Siblings().size(), 1u);
}

}  // namespace
