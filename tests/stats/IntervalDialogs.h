// Interval dialogs filled as the user fills them, and their reports as text.
#pragma once

#include <string>
#include <vector>

#include "report/TextView.h"

struct FileRow {
    std::string path;
    const char* reps;
    std::string ident;
};

template <class Dlg>
Dlg test_IntervalDialog(const std::vector<FileRow>& rows, const char* level, const char* title = "") {
    Dlg dlg;
    for (const FileRow& r : rows) {
        dlg.AddFile(r.path, r.reps);
        dlg.m_items.back().m_strIdent = r.ident;
    }
    dlg.m_strLevel = level;
    dlg.m_strTitle = title;
    return dlg;
}

template <class View, class Doc>
std::string test_Report(Doc& doc) {
    View view;
    view.SetDocument(&doc);
    return txt_ReportText(view);
}

// The document initialised from such a dialog: 0 or a message id.
template <class Dlg, class Doc>
int test_RunIntervals(Doc& doc, const std::vector<FileRow>& rows, const char* level) {
    Dlg dlg = test_IntervalDialog<Dlg>(rows, level);
    return doc.InitFromDialog(dlg);
}
