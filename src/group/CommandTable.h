// The command table: one row per command of the component, in the order its
// document templates are registered. A row names the command's export, its
// template (document name, template string, document and view classes, frame
// kind), the window title prefix, the default extension of its output file,
// how the analysis's dialog, document and views are made, and how its
// results reach scripts. Adding a command is adding its row and its classes.
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <typeinfo>
#include <vector>

#include "datafile/SingleDoc.h"
#include "framework/Dialog.h"
#include "report/ResultValue.h"

// A CBaseWnd holds one view; a CBaseWndSplit has the graph above the second view.
enum class FrameKind { Single, Split };

// The frame class a template of that kind names.
const char* grp_FrameClass(FrameKind kind);

struct AnalysisFactory {
    std::unique_ptr<CDialog> (*createDialog)() = nullptr;
    std::unique_ptr<CBaseFileDoc> (*createDocument)() = nullptr;
    // The views of the document's frame: in a split frame the graph view
    // first and the report view last.
    std::vector<std::unique_ptr<CObject>> (*createViews)(CBaseFileDoc& doc) = nullptr;
    // The dialog's output file field, for commands that write a file.
    std::string* (*outputFile)(CDialog& dlg) = nullptr;
    // The document's results for scripts (JSON, CSV); null for a command
    // that gives none yet. Make it with grp_Results.
    ResultRecord (*results)(const CBaseFileDoc& doc) = nullptr;
    // The class of document createDocument makes.
    const std::type_info* docType = nullptr;

    // False for a command whose analysis is not part of this build.
    bool Built() const { return createDialog && createDocument; }
};

struct GroupCommand {
    const char* exportName;    // "g_OnInterval"
    const char* templateName;  // the template's document name, "Intervals"
    int templateId;            // the template string, 16385
    int titleId;               // the window title prefix, 16021 "Classical C.I. On Mean - "
    const char* defaultExt;    // given to an output file name without one; null when none
    const char* docClass;      // the classes the template names
    const char* viewClass;
    FrameKind frame;
    AnalysisFactory make;      // empty for a command not built yet
};

// Every command, in template registration order (Append first, Vartest last).
std::span<const GroupCommand> grp_Commands();
// The row of an export name ("g_OnPlot") or of a template name ("Plot"); null when none.
const GroupCommand* grp_FindCommand(const std::string& name);

// The row whose analysis made doc; null when none.
const GroupCommand* grp_FindCommand(const CDocument& doc);
// The results for scripts of a document an analysis made; none when its
// command gives none.
std::optional<ResultRecord> grp_DocumentResults(const CDocument& doc);

// Makes a view over doc: views of this program take their document after construction.
template <class View>
std::unique_ptr<CObject> grp_MakeView(CBaseFileDoc& doc) {
    auto view = std::make_unique<View>();
    view->SetDocument(&doc);
    return view;
}

// A dialog's output file field as AnalysisFactory::outputFile wants it.
template <class Dlg, std::string Dlg::*Field>
std::string* grp_OutputField(CDialog& dlg) {
    return &(static_cast<Dlg&>(dlg).*Field);
}

// AnalysisFactory::results from a function of the analysis's own document
// class: grp_Results<CIntrvlDoc, st_IntervalRecord>.
template <class Doc, ResultRecord (*Convert)(const Doc&)>
ResultRecord grp_Results(const CBaseFileDoc& doc) {
    return Convert(static_cast<const Doc&>(doc));
}

// The factory of an analysis whose classes are default-constructible; Views in
// the frame's order.
template <class Dlg, class Doc, class... Views>
constexpr AnalysisFactory grp_Analysis(std::string* (*outputFile)(CDialog&) = nullptr,
                                       ResultRecord (*results)(const CBaseFileDoc&) = nullptr) {
    AnalysisFactory f;
    f.createDialog = []() -> std::unique_ptr<CDialog> { return std::make_unique<Dlg>(); };
    f.createDocument = []() -> std::unique_ptr<CBaseFileDoc> { return std::make_unique<Doc>(); };
    f.createViews = [](CBaseFileDoc& doc) {
        std::vector<std::unique_ptr<CObject>> views;
        (views.push_back(grp_MakeView<Views>(doc)), ...);
        return views;
    };
    f.outputFile = outputFile;
    f.results = results;
    f.docType = &typeid(Doc);
    return f;
}
