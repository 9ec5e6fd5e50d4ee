// The analyses wired into the program make whole windows: a dialog, a document
// and a report view, through the template of their command.
#include <gtest/gtest.h>

#include "framework/DocTemplate.h"
#include "group/AnalysisFactory.h"
#include "group/Commands.h"
#include "group/Startup.h"
#include "report/TextView.h"

namespace {

TEST(AnalysisWiring, EveryInstalledAnalysisMakesDialogDocumentAndReport) {
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
        // The report view comes last, below any graph.
        auto* text = dynamic_cast<CTextView*>(views.back().get());
        ASSERT_NE(text, nullptr) << c.templateName;
        EXPECT_EQ(text->GetDocument(), doc.get());
        // A command that writes a file names the field its extension goes to.
        if (f->outputFile) {
            auto dlg = f->createDialog();
            EXPECT_NE(f->outputFile(*dlg), nullptr) << c.templateName;
            EXPECT_NE(c.defaultExt, nullptr) << c.templateName;
        }
    }
    // The pair analyses and the correlogram at least.
    EXPECT_NE(grp_FindAnalysis("Comparison"), nullptr);
    EXPECT_NE(grp_FindAnalysis("Vartest"), nullptr);
    EXPECT_NE(grp_FindAnalysis("Correlogram"), nullptr);
    EXPECT_GE(installed, 3);
    ShutdownOutputProcessor();
}

}  // namespace
