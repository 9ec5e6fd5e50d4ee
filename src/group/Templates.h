// The document templates of the component: the data group's and one per
// command of the command table.
#pragma once

#include <string>

#include "framework/DocTemplate.h"

struct GroupCommand;

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

// The template of a command's analysis; its document and views are made as
// the command's row says.
class CAnalysisTemplate : public CDocTemplate {
public:
    explicit CAnalysisTemplate(const GroupCommand& command);

    const GroupCommand& Command() const { return m_command; }
    // Null when the analysis is not part of this build.
    std::unique_ptr<CDocument> CreateNewDocument() override;

protected:
    std::vector<std::unique_ptr<CObject>> CreateViews(CDocument& doc) override;

private:
    const GroupCommand& m_command;
};
