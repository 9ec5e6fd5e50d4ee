// The data group document: its list operations and its .dgr file, read back by
// an independent reader written here from the byte layout.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <fstream>
#include <random>

#include "framework/Archive.h"
#include "framework/ListBox.h"
#include "group/GroupTestFiles.h"
#include "group/OutputDoc.h"
#include "group/OutputView.h"
#include "group/RecordingHost.h"

namespace fs = std::filesystem;

namespace {

using Bytes = std::vector<unsigned char>;

struct Item {
    std::string path;
    std::string description;
    std::int64_t time;
    bool operator==(const Item&) const = default;
};

// Reads a .dgr byte by byte from the layout: the 10-byte header, the count
// (16 bits, or 0xFFFF and 32 bits), then per item a new-class tag for the first
// and the class reference 0x8001 for the rest, path, description and the time
// as two 32-bit halves, low first. Returns false at the first surprise.
class LayoutReader {
public:
    explicit LayoutReader(const Bytes& b) : m_b(b) {}

    bool Read(std::vector<Item>& items) {
        const char header[] = {'O', 'P', 'D', 'H', '.', 'D', 'G', 'R', 1, 0};
        for (char c : header)
            if (Byte() != static_cast<unsigned char>(c)) return false;
        std::uint64_t count = Word();
        if (count == 0xFFFF) count = Dword();
        for (std::uint64_t i = 0; i < count; ++i) {
            unsigned tag = Word();
            if (i == 0) {
                if (tag != 0xFFFF || Word() != 1 || Word() != 7) return false;
                std::string name;
                for (int k = 0; k < 7; ++k) name += static_cast<char>(Byte());
                if (name != "CDGItem") return false;
            } else if (tag != 0x8001) {
                return false;
            }
            Item item;
            item.path = String();
            item.description = String();
            std::uint64_t low = Dword(), high = Dword();
            item.time = static_cast<std::int64_t>((high << 32) | low);
            if (m_bad) return false;
            items.push_back(item);
        }
        return !m_bad && m_pos == m_b.size();
    }

private:
    unsigned Byte() {
        if (m_pos >= m_b.size()) {
            m_bad = true;
            return 0;
        }
        return m_b[m_pos++];
    }
    unsigned Word() {
        unsigned lo = Byte();
        return lo | (Byte() << 8);
    }
    std::uint64_t Dword() {
        std::uint64_t lo = Word();
        return lo | (static_cast<std::uint64_t>(Word()) << 16);
    }
    std::string String() {
        std::uint64_t n = Byte();
        if (n == 0xFF) {
            n = Word();
            if (n == 0xFFFF) n = Dword();
        }
        if (n > m_b.size() - m_pos) {
            m_bad = true;
            return {};
        }
        std::string s(m_b.begin() + static_cast<long>(m_pos), m_b.begin() + static_cast<long>(m_pos + n));
        m_pos += n;
        return s;
    }

    const Bytes& m_b;
    std::size_t m_pos = 0;
    bool m_bad = false;
};

std::unique_ptr<CDGItem> MakeItem(const std::string& path, const std::string& desc, std::int64_t time) {
    auto item = std::make_unique<CDGItem>();
    item->m_strPath = path;
    item->m_strDescription = desc;
    item->m_time = time;
    return item;
}

Bytes Save(COutputDoc& doc) {
    Bytes out;
    CArchive ar(out, CArchive::store);
    doc.Serialize(ar);
    EXPECT_TRUE(ar.IsOk());
    return out;
}

// Loads bytes into a new document; the archive's cause comes back in *cause.
std::unique_ptr<COutputDoc> Load(Bytes bytes, int* cause) {
    auto doc = std::make_unique<COutputDoc>();
    CArchive ar(bytes, CArchive::load);
    doc->Serialize(ar);
    *cause = ar.GetCause();
    return doc;
}

std::vector<Item> ItemsOf(const COutputDoc& doc) {
    std::vector<Item> items;
    for (int i = 0; i < doc.GetItemCount(); ++i) {
        const CDGItem* it = doc.GetItem(i);
        items.push_back({it->m_strPath, it->m_strDescription, it->m_time});
    }
    return items;
}

COutputDoc& Fill(COutputDoc& doc, int n) {
    for (int i = 0; i < n; ++i) {
        std::string path = "/data/run" + std::to_string(i) + ".dat";
        doc.InsertItem(i, MakeItem(path, path + ", " + std::to_string(i % 50) + ", Tally", 1000000000LL + i));
    }
    return doc;
}

const Bytes kEmptyGroup{'O', 'P', 'D', 'H', '.', 'D', 'G', 'R', 0x01, 0x00, 0x00, 0x00};

TEST(OutputDoc, EmptyAndOneItemGroupsHaveThisExactLayout) {
    COutputDoc doc;
    ASSERT_TRUE(doc.OnNewDocument());
    EXPECT_EQ(Save(doc), kEmptyGroup);
    doc.InsertItem(0, MakeItem("/d/w.dat", "/d/w.dat, 5, Tally", -1));
    Bytes expected = kEmptyGroup;
    expected[10] = 1;
    const unsigned char tail[] = {0xFF, 0xFF, 0x01, 0x00, 0x07, 0x00, 'C', 'D', 'G', 'I', 't', 'e', 'm', 8,
                                  '/', 'd', '/', 'w', '.', 'd', 'a', 't', 18};
    expected.insert(expected.end(), std::begin(tail), std::end(tail));
    const char desc[] = "/d/w.dat, 5, Tally";
    expected.insert(expected.end(), desc, desc + 18);
    expected.insert(expected.end(), 8, 0xFF);  // time unknown: both halves -1
    EXPECT_EQ(Save(doc), expected);
}

TEST(OutputDoc, GroupsOfManyItemsRoundTrip) {
    for (int n : {1, 300, 65535, 70000}) {
        COutputDoc doc;
        Fill(doc, n);
        Bytes b = Save(doc);
        // 16-bit count below 0xFFFF, else the escape and a 32-bit count.
        if (n < 0xFFFF) {
            EXPECT_EQ(b[10] | (b[11] << 8), n);
        } else {
            EXPECT_EQ(b[10], 0xFF);
            EXPECT_EQ(b[11], 0xFF);
            EXPECT_EQ(b[12] | (b[13] << 8) | (b[14] << 16) | (b[15] << 24), n);
        }
        std::vector<Item> independent;
        ASSERT_TRUE(LayoutReader(b).Read(independent)) << n;
        EXPECT_EQ(independent, ItemsOf(doc));
        int cause = -1;
        auto back = Load(b, &cause);
        EXPECT_EQ(cause, CArchive::none);
        EXPECT_EQ(ItemsOf(*back), ItemsOf(doc)) << n;
    }
}

TEST(OutputDoc, SaveAndOpenThroughAFile) {
    KeepCurrentDir keep;
    TempDir dir;
    fs::create_directories(dir.Dir() / "sub");
    std::string path = dir.Path("sub/g.dgr");
    RecordingHost host;
    ScopedHost scope(&host);
    {
        COutputDoc doc;
        doc.OnNewDocument();
        Fill(doc, 299);
        doc.InsertItem(299, MakeItem("../w.dat", "w", 1));
        grp_test_WriteDataFile(dir.Path("w.dat"), 3, 2, "Waits");
        EXPECT_TRUE(doc.IsModified());
        ASSERT_TRUE(doc.OnSaveDocument(path.c_str()));
        EXPECT_FALSE(doc.IsModified());
    }
    // Opened by a path relative to where the user stands, not to the group.
    fs::current_path(dir.Dir());
    COutputDoc doc;
    ASSERT_TRUE(doc.OnOpenDocument("sub/g.dgr"));
    EXPECT_EQ(doc.GetItemCount(), 300);
    EXPECT_EQ(doc.GetItem(298)->m_strPath, "/data/run298.dat");
    EXPECT_FALSE(doc.IsModified());
    // The current folder stays; a relative item leads from the group's folder.
    EXPECT_EQ(fs::current_path(), dir.Dir());
    EXPECT_EQ(doc.ItemPath(298), "/data/run298.dat");
    EXPECT_EQ(doc.ItemPath(299), (dir.Dir() / "sub" / "../w.dat").string());
    EXPECT_EQ(doc.DescribeItem(299, true), 0);
    EXPECT_EQ(doc.GetItem(299)->m_strDescription, "../w.dat, 2, Tally, Waits");
    EXPECT_TRUE(host.messages.empty());
}

TEST(OutputDoc, InsertRemoveAndListKeepOrder) {
    COutputDoc doc;
    doc.OnNewDocument();
    EXPECT_EQ(doc.InsertItem(0, MakeItem("b", "line b", 1)), 1);
    EXPECT_TRUE(doc.IsModified());
    doc.SetModifiedFlag(false);
    doc.InsertItem(0, MakeItem("a", "line a", 1));
    doc.InsertItem(2, MakeItem("c", "line c", 1));
    EXPECT_TRUE(doc.IsModified());
    CListBox list;
    doc.FillList(list);
    ASSERT_EQ(list.GetCount(), 3);
    EXPECT_EQ(list.GetText(0), "line a");
    EXPECT_EQ(list.GetText(2), "line c");

    doc.SetModifiedFlag(false);
    EXPECT_EQ(doc.RemoveItem(1), 1);
    EXPECT_TRUE(doc.IsModified());
    EXPECT_EQ(doc.GetItem(1)->m_strPath, "c");
    EXPECT_EQ(doc.RemoveItem(5), 0);
    EXPECT_EQ(doc.GetItem(2), nullptr);
    EXPECT_EQ(doc.GetItem(-1), nullptr);
}

// Bytes of a group built by hand, for the damaged and hostile cases.
Bytes Group(std::initializer_list<Bytes> parts) {
    Bytes b(kEmptyGroup.begin(), kEmptyGroup.end() - 2);
    for (const Bytes& p : parts) b.insert(b.end(), p.begin(), p.end());
    return b;
}

const Bytes kNewClass{0xFF, 0xFF, 0x01, 0x00, 0x07, 0x00, 'C', 'D', 'G', 'I', 't', 'e', 'm'};
const Bytes kSmallItemData{1, 'p', 1, 'd', 0, 0, 0, 0, 0, 0, 0, 0};

TEST(OutputDoc, DamagedAndHostileFilesAreRefused) {
    struct Case {
        const char* what;
        Bytes bytes;
    };
    const Case cases[] = {
        {"empty file", {}},
        {"header cut short", {'O', 'P', 'D', 'H', '.', 'D'}},
        {"another document type", {'O', 'P', 'D', 'H', '.', 'X', 'Y', 'Z', 1, 0, 0, 0}},
        {"a later version", {'O', 'P', 'D', 'H', '.', 'D', 'G', 'R', 2, 0, 0, 0}},
        {"not our header at all", {'P', 'K', 3, 4, '.', 'D', 'G', 'R', 1, 0, 0, 0}},
        {"no count", Group({})},
        {"count of billions", Group({{0xFF, 0xFF, 0x00, 0xCA, 0x9A, 0x3B}, kNewClass, kSmallItemData})},
        {"64-bit count", Group({{0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0, 0, 0, 0, 0, 0, 0, 0x10}, kNewClass})},
        {"count larger than the items", Group({{2, 0}, kNewClass, kSmallItemData})},
        {"path length past the end", Group({{1, 0}, kNewClass, {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x7F, 'p'}})},
        {"description cut", Group({{1, 0}, kNewClass, {1, 'p', 40, 'd', 'e'}})},
        {"time cut", Group({{1, 0}, kNewClass, {1, 'p', 1, 'd', 0, 0, 0}})},
        {"unknown class", Group({{1, 0}, {0xFF, 0xFF, 0x01, 0x00, 0x07, 0x00, 'C', 'O', 'b', 'A', 'r', 'r', 'y'},
                                 kSmallItemData})},
        {"a class that is no item", Group({{1, 0}, {0xFF, 0xFF, 0xFF, 0xFF, 0x07, 0x00, 'C', 'O', 'b', 'j', 'e', 'c', 't'}})},
        {"item schema 2", Group({{1, 0}, {0xFF, 0xFF, 0x02, 0x00, 0x07, 0x00, 'C', 'D', 'G', 'I', 't', 'e', 'm'},
                                 kSmallItemData})},
        {"class reference first", Group({{1, 0}, {0x01, 0x80}, kSmallItemData})},
        {"object back-reference", Group({{2, 0}, kNewClass, kSmallItemData, {0x02, 0x00}})},
        {"big class reference to nothing", Group({{1, 0}, {0xFF, 0x7F, 0x09, 0x00, 0x00, 0x80}, kSmallItemData})},
    };
    for (const Case& c : cases) {
        int cause = 0;
        auto doc = Load(c.bytes, &cause);
        EXPECT_NE(cause, CArchive::none) << c.what;
        EXPECT_EQ(doc->GetItemCount(), 0) << c.what;
    }
}

TEST(OutputDoc, NullElementsAreSkipped) {
    int cause = -1;
    auto doc = Load(Group({{3, 0}, {0, 0}, kNewClass, kSmallItemData, {0, 0}}), &cause);
    EXPECT_EQ(cause, CArchive::none);
    ASSERT_EQ(doc->GetItemCount(), 1);
    EXPECT_EQ(doc->GetItem(0)->m_strPath, "p");
}

TEST(OutputDoc, OpeningADamagedFileShowsTheFormatMessageOnce) {
    KeepCurrentDir keep;
    TempDir dir;
    RecordingHost host;
    ScopedHost scope(&host);
    std::string path = dir.Path("bad.dgr");
    std::ofstream(path, std::ios::binary) << "OPDH.DGR\x01";
    COutputDoc doc;
    EXPECT_FALSE(doc.OnOpenDocument(path.c_str()));
    ASSERT_EQ(host.messages.size(), 1u);
    EXPECT_EQ(host.messages[0].text, "Unexpected file format.");
    EXPECT_EQ(doc.GetItemCount(), 0);

    host.messages.clear();
    EXPECT_FALSE(doc.OnOpenDocument(dir.Path("missing.dgr").c_str()));
    ASSERT_EQ(host.messages.size(), 1u);
    EXPECT_EQ(host.messages[0].text, "File not found");
}

// Mutated and random byte strings: the reader must end cleanly every time, and
// whatever it accepts must hold no more items than the bytes could carry.
TEST(OutputDoc, FuzzedInputNeverCrashes) {
    COutputDoc source;
    Fill(source, 5);
    source.InsertItem(2, MakeItem(std::string(300, 'x'), "long", -1));
    const Bytes valid = Save(source);
    std::mt19937 rng(20240607);
    auto pick = [&](std::size_t n) { return std::uniform_int_distribution<std::size_t>(0, n - 1)(rng); };
    const unsigned char interesting[] = {0x00, 0x01, 0x7F, 0x80, 0xFE, 0xFF};
    int accepted = 0;
    for (int iter = 0; iter < 4000; ++iter) {
        Bytes b = valid;
        switch (iter % 5) {
            case 0:  // flip a few bits
                for (int k = 0; k < 3; ++k) b[pick(b.size())] ^= static_cast<unsigned char>(1u << pick(8));
                break;
            case 1:  // plant values that are tags and escapes
                for (int k = 0; k < 4; ++k) b[pick(b.size())] = interesting[pick(std::size(interesting))];
                break;
            case 2:  // cut anywhere
                b.resize(pick(b.size()));
                break;
            case 3:  // duplicate or drop a stretch
                if (pick(2)) {
                    std::size_t at = pick(b.size()), n = pick(40);
                    b.insert(b.begin() + static_cast<long>(at), b.begin() + static_cast<long>(at),
                             b.begin() + static_cast<long>(std::min(b.size(), at + n)));
                } else {
                    std::size_t at = pick(b.size());
                    b.erase(b.begin() + static_cast<long>(at), b.begin() + static_cast<long>(std::min(b.size(), at + pick(40))));
                }
                break;
            default: {  // random bytes behind a valid header
                b.assign(kEmptyGroup.begin(), kEmptyGroup.end() - 2);
                std::size_t n = pick(200);
                for (std::size_t k = 0; k < n; ++k) b.push_back(static_cast<unsigned char>(pick(256)));
            }
        }
        int cause = 0;
        auto doc = Load(b, &cause);
        if (cause == CArchive::none) {
            ++accepted;
            // Each item takes at least a 2-byte tag and 10 bytes of data.
            EXPECT_LE(static_cast<std::size_t>(doc->GetItemCount()) * 12, b.size());
        } else {
            EXPECT_EQ(doc->GetItemCount(), 0);
        }
    }
    // Some mutations (inside a path or description) leave a readable group.
    EXPECT_GT(accepted, 0);
}

class OutputViewTest : public ::testing::Test {
protected:
    void SetUp() override {
        m_doc.OnNewDocument();
        grp_test_WriteDataFile(m_dir.Path("a.dat"), 3, 2, "A");
        grp_test_WriteDataFile(m_dir.Path("b.dat"), 1, 4, "");
    }
    TempDir m_dir;
    RecordingHost m_host;
    ScopedHost m_scope{&m_host};
    COutputDoc m_doc;
    COutputView m_view{&m_doc};
};

TEST_F(OutputViewTest, AddingAFileAlreadyInTheGroupIsRefused) {
    EXPECT_EQ(m_view.AddFile(m_dir.Path("a.dat")), 0);
    EXPECT_EQ(m_view.AddFile(m_dir.Path("b.dat")), 0);
    EXPECT_EQ(m_view.GetSelection(), 1);
    // The same file named another way is still the same file.
    std::string other = (m_dir.Dir() / "." / "a.dat").string();
    EXPECT_EQ(m_view.AddFile(other), 15905);
    ASSERT_EQ(m_host.messages.size(), 1u);
    EXPECT_EQ(m_host.messages[0].text, "File already is in the data group.");
    ASSERT_EQ(m_view.List().GetCount(), 2);
    EXPECT_EQ(m_view.List().GetText(0), m_dir.Path("a.dat") + ", 2, Tally, A");
    EXPECT_EQ(m_view.List().GetText(1), m_dir.Path("b.dat") + ", 4, DSTAT");
}

TEST_F(OutputViewTest, AddAsksForADataFile) {
    m_host.fileToOpen = m_dir.Path("b.dat");
    EXPECT_EQ(m_view.OnAddFile(), 0);
    EXPECT_EQ(m_host.askedExt, "*.dat");
    EXPECT_EQ(m_host.askedFilter, "Simulation Output (*.dat)|*.dat|Batch/Truncate Files (*.flt)|*.flt|All Files (*.*)|*.*||");
    EXPECT_EQ(m_doc.GetItemCount(), 1);
    m_host.fileToOpen.clear();  // cancelled
    EXPECT_EQ(m_view.OnAddFile(), 0);
    EXPECT_EQ(m_doc.GetItemCount(), 1);
}

TEST_F(OutputViewTest, RemovingNeedsASelectionAndAYes) {
    m_view.AddFile(m_dir.Path("a.dat"));
    m_view.AddFile(m_dir.Path("b.dat"));
    m_view.SetSelection(LB_ERR);
    EXPECT_EQ(m_view.OnRemoveFile(), 15841);
    ASSERT_EQ(m_host.messages.size(), 1u);
    EXPECT_EQ(m_host.messages[0].text, "No item is selected.");

    m_host.messages.clear();
    m_view.SetSelection(0);
    m_host.answer = IDNO;
    EXPECT_EQ(m_view.OnRemoveFile(), 0);
    EXPECT_EQ(m_doc.GetItemCount(), 2);
    ASSERT_EQ(m_host.messages.size(), 1u);
    EXPECT_EQ(m_host.messages[0].text, "Remove selected file from data group?");
    EXPECT_EQ(m_host.messages[0].caption, "Remove file from data group");

    m_host.answer = IDYES;
    EXPECT_EQ(m_view.OnRemoveFile(), 0);
    ASSERT_EQ(m_doc.GetItemCount(), 1);
    EXPECT_EQ(m_doc.GetItem(0)->m_strPath, m_dir.Path("b.dat"));
    EXPECT_EQ(m_view.List().GetCount(), 1);
}

TEST_F(OutputViewTest, InitialUpdateRefreshesChangedFiles) {
    m_view.AddFile(m_dir.Path("a.dat"));
    grp_test_WriteDataFile(m_dir.Path("a.dat"), 3, 12, "A2");
    fs::last_write_time(m_dir.Path("a.dat"), fs::last_write_time(m_dir.Path("a.dat")) + std::chrono::hours(1));
    m_view.OnInitialUpdate();
    EXPECT_EQ(m_view.List().GetText(0), m_dir.Path("a.dat") + ", 12, Tally, A2");
}

}  // namespace
