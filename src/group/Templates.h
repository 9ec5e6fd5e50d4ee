// The document templates of the component: the data group's and one per
// analysis. An analysis template makes its document, frame and views through
// the analysis's factory, found by the template's document name.
#pragma once

#include <string>

#include "framework/DocTemplate.h"

class CDialog;
struct AnalysisFactory;

// The data group template: COutputDoc in a COutputViewFrame with a COutputView.
class COutputTemplate : public CDocTemplate {
public:
    COutputTemplate();
    std::unique_ptr<CDocument> CreateNewDocument() override;
    void InitialUpdateFrame(CDocFrame& frame) override;
    // Opens the group at path (a new one when path is null) in a frame handed
    // to the host. 0, or the id of the failure (already shown).
    int OpenDocumentFile(const char* path);

protected:
    std::vector<std::unique_ptr<CObject>> CreateViews(CDocument& doc) override;
};

class CAnalysisTemplate : public CDocTemplate {
public:
    using CDocTemplate::CDocTemplate;

    // The template's document name ("Intervals").
    std::string Name() const;
    // The installed analysis; null when it is not part of this build.
    const AnalysisFactory* Factory() const;

    // Null when the analysis is not part of this build.
    std::unique_ptr<CDocument> CreateNewDocument() override;
    // Fills every report view with its report and lets the graph views take
    // their data.
    void InitialUpdateFrame(CDocFrame& frame) override;

    // Makes a document, initialises it from dlg and, only when that succeeds,
    // shows it in a frame captioned prefix + subject. -1 when no document can
    // be made; else the initialiser's result, its message shown exactly once.
    int OpenAnalysis(CDialog& dlg, const std::string& prefix);

protected:
    std::vector<std::unique_ptr<CObject>> CreateViews(CDocument& doc) override;
};
