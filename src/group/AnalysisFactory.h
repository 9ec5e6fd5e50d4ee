// How an analysis plugs into the command spine. Each analysis defines a
// registration function beside its classes that fills an AnalysisFactory and
// installs it under its template's name; the spine then makes the analysis's
// dialog, document and views through it without knowing their classes.
//
//     void grp_RegisterIntervals() {
//         grp_SetAnalysis("Intervals", grp_MakeAnalysis<CIntrvlDlg, CIntrvlDoc, CIntrvlTextView>());
//     }
//
// and a line in AnalysisWiring.cpp calls it at start-up.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "datafile/SingleDoc.h"
#include "framework/Dialog.h"

class COutputView;

struct AnalysisFactory {
    std::unique_ptr<CDialog> (*createDialog)() = nullptr;
    std::unique_ptr<CBaseFileDoc> (*createDocument)() = nullptr;
    // The views of the document's frame once it is initialised: in a split
    // frame the graph view first and the report view last.
    std::vector<std::unique_ptr<CObject>> (*createViews)(CBaseFileDoc& doc) = nullptr;
    // The dialog's output file field, for commands that write a file; the
    // command adds its default extension to a name without one.
    std::string* (*outputFile)(CDialog& dlg) = nullptr;
    // Fills the dialog from the data group view before it is shown; null: a
    // single-file dialog takes the selected file, a file-list dialog with an
    // empty list starts with it.
    void (*prepare)(CDialog& dlg, COutputView* view) = nullptr;
    // What follows the title prefix in the window caption; null: the
    // document's title, else the dialog's data file name, or the title or
    // first file of a file-list dialog.
    std::string (*subject)(const CDialog& dlg, const CBaseFileDoc& doc) = nullptr;
};

// Installs factory under a template name ("Intervals", "BatchTruncate", ...);
// returns what was installed before (empty when nothing).
AnalysisFactory grp_SetAnalysis(const std::string& templateName, const AnalysisFactory& factory);
// The installed factory; null when the analysis is not part of this build.
const AnalysisFactory* grp_FindAnalysis(const std::string& templateName);

// Makes a view over doc: views of this program take their document after construction.
template <class View>
std::unique_ptr<CObject> grp_MakeView(CBaseFileDoc& doc) {
    auto view = std::make_unique<View>();
    view->SetDocument(&doc);
    return view;
}

// A factory for an analysis whose classes are default-constructible; Views in
// the frame's order.
template <class Dlg, class Doc, class... Views>
AnalysisFactory grp_MakeAnalysis() {
    AnalysisFactory f;
    f.createDialog = []() -> std::unique_ptr<CDialog> { return std::make_unique<Dlg>(); };
    f.createDocument = []() -> std::unique_ptr<CBaseFileDoc> { return std::make_unique<Doc>(); };
    f.createViews = [](CBaseFileDoc& doc) {
        std::vector<std::unique_ptr<CObject>> views;
        (views.push_back(grp_MakeView<Views>(doc)), ...);
        return views;
    };
    return f;
}
