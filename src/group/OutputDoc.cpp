#include "group/OutputDoc.h"

#include <filesystem>

#include "datafile/FileGlobals.h"
#include "framework/Archive.h"
#include "framework/ListBox.h"

namespace fs = std::filesystem;

namespace {

// Smallest archive size of one element (a null reference): bounds a count
// read from a file by the bytes that could hold it.
constexpr std::uint64_t kMinElementBytes = 2;

}  // namespace

COutputDoc::~COutputDoc() { DeleteContents(); }

bool COutputDoc::OnNewDocument() {
    op_InitFileGlobals();
    if (!CDocument::OnNewDocument()) return false;
    sys_UpdateHdr(m_hdr, kGroupType, kGroupVersion);
    return true;
}

bool COutputDoc::OnOpenDocument(const char* path) {
    op_InitFileGlobals();
    // Kept whole: the items' relative paths lead from its folder.
    std::error_code ec;
    std::string full = fs::absolute(path, ec).lexically_normal().string();
    if (ec) full = path;
    if (!LoadArchive(full.c_str())) return false;
    SetPathName(full);
    return true;
}

void COutputDoc::DeleteContents() {
    m_items.clear();
    ForgetKeys();
}

void COutputDoc::Serialize(CArchive& ar) {
    if (ar.IsStoring()) {
        sys_WriteHdr(ar, kGroupType, kGroupVersion, nullptr);
        ar.WriteCount(m_items.size());
        for (const auto& item : m_items) ar.WriteObject(item.get());
        if (ar.IsOk()) sys_UpdateHdr(m_hdr, kGroupType, kGroupVersion);
        return;
    }
    sys_ReadHdr(ar, m_hdr);
    if (!ar.IsOk()) return;
    if (sys_ValidateHdr(m_hdr, kGroupType, kGroupVersion, kGroupVersion) != 0) {
        ar.Fail(CArchive::badIndex);
        return;
    }
    std::uint64_t count = ar.ReadCount();
    if (!ar.IsOk()) return;
    if (count > ar.BytesLeft() / kMinElementBytes) {
        ar.Fail(CArchive::endOfFile);
        return;
    }
    std::vector<std::unique_ptr<CDGItem>> items;
    for (std::uint64_t i = 0; i < count && ar.IsOk(); ++i) {
        std::unique_ptr<CObject> object = ar.ReadObject(&CDGItem::classCDGItem);
        // A null element holds no file; the group simply has one line fewer.
        if (object) items.emplace_back(static_cast<CDGItem*>(object.release()));
    }
    if (!ar.IsOk()) return;
    m_items = std::move(items);
    ForgetKeys();
    sys_UpdateHdr(m_hdr, kGroupType, kGroupVersion);
}

int COutputDoc::InsertItem(int index, std::unique_ptr<CDGItem> item) {
    if (index < 0 || index > GetItemCount()) index = GetItemCount();
    m_items.insert(m_items.begin() + index, std::move(item));
    if (index + 1 < GetItemCount())
        ForgetKeys();  // the later items moved
    else if (m_keysFor)
        m_keys.emplace(grp_SameFileKey(ItemPath(index)), index);
    SetModifiedFlag();
    return 1;
}

int COutputDoc::RemoveItem(int index) {
    if (index < 0 || index >= GetItemCount()) return 0;
    m_items.erase(m_items.begin() + index);
    ForgetKeys();
    SetModifiedFlag();
    return 1;
}

int COutputDoc::RemoveItems(const std::set<int>& indexes) {
    std::size_t kept = 0;
    for (std::size_t i = 0; i < m_items.size(); ++i)
        if (!indexes.count(static_cast<int>(i))) m_items[kept++] = std::move(m_items[i]);
    const int removed = static_cast<int>(m_items.size() - kept);
    if (removed == 0) return 0;
    m_items.resize(kept);
    ForgetKeys();
    SetModifiedFlag();
    return removed;
}

CDGItem* COutputDoc::GetItem(int index) const {
    return (index >= 0 && index < GetItemCount()) ? m_items[static_cast<std::size_t>(index)].get() : nullptr;
}

std::string COutputDoc::ItemPath(int index) const {
    const CDGItem* item = GetItem(index);
    if (!item) return {};
    fs::path p(item->m_strPath);
    if (p.is_absolute() || GetPathName().empty()) return item->m_strPath;
    return (fs::path(GetPathName()).parent_path() / p).string();
}

int COutputDoc::DescribeItem(int index, bool checkChanged) {
    CDGItem* item = GetItem(index);
    return item ? item->Describe(checkChanged, ItemPath(index)) : 0;
}

int COutputDoc::FindItem(const std::string& path) const {
    if (!m_keysFor || *m_keysFor != GetPathName()) {
        m_keys.clear();
        m_keys.reserve(m_items.size());
        for (int i = 0; i < GetItemCount(); ++i) m_keys.emplace(grp_SameFileKey(ItemPath(i)), i);
        m_keysFor = GetPathName();
    }
    auto it = m_keys.find(grp_SameFileKey(path));
    return it == m_keys.end() ? -1 : it->second;
}

void COutputDoc::FillList(CListBox& list) const {
    for (const auto& item : m_items) list.AddString(item->m_strDescription);
}

std::string grp_SameFileKey(const std::string& path) {
    std::error_code ec;
    fs::path p = fs::weakly_canonical(fs::absolute(path, ec), ec);
    if (ec) p = fs::absolute(path, ec).lexically_normal();
    return p.string();
}
