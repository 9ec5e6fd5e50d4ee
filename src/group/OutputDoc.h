// The data group document: an ordered list of data files saved as a .dgr file.
// The file is a document header (type ".DGR", version 1) followed by the items
// as an object array of CDGItem.
#pragma once

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "framework/DocHdr.h"
#include "framework/Document.h"
#include "group/DGItem.h"

class CListBox;

inline constexpr char kGroupType[] = ".DGR";
inline constexpr int kGroupVersion = 1;

class COutputDoc : public CDocument {
public:
    COutputDoc() = default;
    ~COutputDoc() override;

    // Sets up the data-file layer; a new group is empty.
    bool OnNewDocument() override;
    // Loads the group. The process's current folder stays as it is: the
    // items' relative paths lead from the group's folder (ItemPath).
    bool OnOpenDocument(const char* path) override;
    void Serialize(CArchive& ar) override;
    void DeleteContents() override;

    // Takes item and inserts it at index (clamped to the list); returns 1.
    int InsertItem(int index, std::unique_ptr<CDGItem> item);
    // Removes and deletes the item at index; 1, or 0 for an index not in the list.
    int RemoveItem(int index);
    // Removes every item whose index is in indexes, in one pass; indexes not in
    // the list are ignored. The number removed.
    int RemoveItems(const std::set<int>& indexes);
    // The item at index; null for an index not in the list.
    CDGItem* GetItem(int index) const;
    int GetItemCount() const { return static_cast<int>(m_items.size()); }
    // Where item index's file is: its path, led from the group's folder when
    // relative. Empty for an index not in the list.
    std::string ItemPath(int index) const;
    // Describes item index afresh (CDGItem::Describe) from where its file is.
    int DescribeItem(int index, bool checkChanged);
    // Index of the item for the same file as path; -1 when none.
    int FindItem(const std::string& path) const;
    // Adds every item's description to list, in order.
    void FillList(CListBox& list) const;

    DocHdr m_hdr;

private:
    void ForgetKeys() const { m_keys.clear(); m_keysFor.reset(); }

    std::vector<std::unique_ptr<CDGItem>> m_items;
    // Same-file keys of the items (key to first index), made by the first
    // FindItem and extended by appends: a key costs a walk of the file
    // system, and adding N files must not cost N^2/2 of them. Anything else
    // that changes the list or the group's folder starts them afresh.
    mutable std::unordered_map<std::string, int> m_keys;
    mutable std::optional<std::string> m_keysFor;  // the group path they were made for
};

// The form of a path used to tell whether two paths name the same file:
// absolute, with "." and ".." and symbolic links resolved as far as they exist.
std::string grp_SameFileKey(const std::string& path);
