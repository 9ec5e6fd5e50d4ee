// The data group's view: the list of the group's files, one description line
// each, with the actions that add and remove files. Analysis commands start
// from it and read its selection.
#pragma once

#include <string>

#include "framework/ListBox.h"
#include "framework/Object.h"

class COutputDoc;

class COutputView : public CObject {
public:
    explicit COutputView(COutputDoc* doc = nullptr) : m_pDocument(doc) {}

    COutputDoc* GetDocument() const { return m_pDocument; }
    void SetDocument(COutputDoc* doc) { m_pDocument = doc; }

    // Refreshes the line of every file that changed since it was described and
    // fills the list.
    void OnInitialUpdate();
    // Fills the list again from the document, keeping the selection where it can.
    void OnUpdate();

    CListBox& List() { return m_list; }
    const CListBox& List() const { return m_list; }
    // Index of the selected file, or LB_ERR.
    int GetSelection() const { return m_list.GetCurSel(); }
    void SetSelection(int index) { m_list.SetCurSel(index); }
    // Where the selected file is (COutputDoc::ItemPath); empty when nothing is selected.
    std::string SelectedPath() const;

    // Asks the host for a data file and adds it. 0 (also when cancelled) or the
    // id of the message shown.
    int OnAddFile();
    // Adds the file at path to the end of the group and selects it; a file
    // already in the group is refused with 15905 (shown). 0 or the id.
    int AddFile(const std::string& path);
    // Removes the selected file after the user confirms; 15841 (shown) when
    // nothing is selected. 0 or the id.
    int OnRemoveFile();

private:
    COutputDoc* m_pDocument;
    CListBox m_list;
};
