// The analyses wired into the program make whole windows: a dialog, a document
// and views over it, through the template of their command.
#include <gtest/gtest.h>

#include "framework/DocTemplate.h"
#include "framework/View.h"
#include "group/AnalysisFactory.h"
#include "group/Commands.h"
#include "group/Startup.h"
#include "report/TextView.h"

namespace {

TEST(AnalysisWiring, EveryInstalledAnalysisMakesDialogDocumentAndViews) {
    CWinApp app;
    InitOutputProcessor2(&app);
    int installed = 0;
    for (const GroupCommand& c : grp_Commands()) {
        const AnalysisFactory* f = grp_FindAnalysis(c.templateName);
        if (!f) continue;
        ++installed;
        EXPECT_NE(f->createDialog(), nullptr) << c.templateName;
        std::unique_ptr<CBaseFileDoc> doc = f->createDocument();
        ASSERT_NE(doc, nullptr) << c.templateName;
        ASSERT_NE(f->createViews, nullptr) << c.templateName;
        auto views = f->createViews(*doc);
        ASSERT_FALSE(views.empty()) << c.templateName;
        for (std::size_t i = 0; i < views.size(); ++i) {
            auto* text = dynamic_cast<CTextView*>(views[i].get());
            auto* graph = dynamic_cast<CView*>(views[i].get());
            ASSERT_TRUE(text || graph) << c.templateName;
            EXPECT_EQ(text ? text->GetDocument() : graph->GetDocument(), doc.get()) << c.templateName;
            // A report sits below any graph.
            if (text) {
                EXPECT_EQ(i, views.size() - 1) << c.templateName;
            }
        }
        // A command that writes a file names the field its extension goes to.
        if (f->outputFile) {
            auto dlg = f->createDialog();
            EXPECT_NE(f->outputFile(*dlg), nullptr) << c.templateName;
            EXPECT_NE(c.defaultExt, nullptr) << c.templateName;
        }
    }
    for (const char* name : {"Comparison", "Vartest", "Correlogram", "BatchTruncate", "Intervals", "SdIntervals",
                             "StdInterval", "Plot"})
        EXPECT_NE(grp_FindAnalysis(name), nullptr) << name;
    EXPECT_GE(installed, 8);
    ShutdownOutputProcessor();
}

}  // namespace
