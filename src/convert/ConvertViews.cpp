#include "convert/ConvertViews.h"

#include <string>

#include "convert/ExprtDoc.h"
#include "convert/ImprtDoc.h"
#include "convert/LoadDoc.h"
#include "datafile/FileGlobals.h"
#include "framework/Messages.h"

namespace {

// One summary, written in the view's formats.
class Summary {
public:
    Summary(const CTextView& view, FILE* f, int titleId) : m_view(view), m_f(f) {
        std::fprintf(f, view.m_szTitleFmt, msg_Text(titleId).c_str());
        std::fputs("\n", f);
    }
    void Text(int labelId, const std::string& value) {
        Label(labelId);
        std::fprintf(m_f, m_view.m_szStringFmt, value.c_str());
    }
    void Number(int labelId, long value) {
        Label(labelId);
        std::fprintf(m_f, m_view.m_szIntFmt, value);
    }

private:
    void Label(int id) { std::fprintf(m_f, m_view.m_szLabelFmt, msg_Text(id).c_str()); }

    const CTextView& m_view;
    FILE* m_f;
};

const char* PrecisionText(int isDouble) { return isDouble ? "Double" : "Single"; }

}  // namespace

void CExprtView::WriteReport(FILE* f) {
    const auto* doc = dynamic_cast<const CExprtDoc*>(GetDocument());
    if (!doc) return;
    const ExportResults& r = doc->Results();
    Summary s(*this, f, IDS_EXPORT_SUMMARY);
    s.Text(IDS_SOURCE_FILE, r.source);
    s.Text(IDS_DESTINATION_FILE, r.destination);
    s.Number(IDS_REPLICATIONS, r.replications);
    s.Number(IDS_OBSERVATIONS, r.observations);
    s.Number(IDS_RECORDS, r.records);
}

void CImprtView::WriteReport(FILE* f) {
    const auto* doc = dynamic_cast<const CImprtDoc*>(GetDocument());
    if (!doc) return;
    const ImportResults& r = doc->Results();
    Summary s(*this, f, IDS_IMPORT_SUMMARY);
    s.Text(IDS_SOURCE_FILE, r.source);
    s.Text(IDS_DESTINATION_FILE, r.destination);
    s.Text(IDS_DATA_KIND, op_KindText(r.kind));
    s.Text(IDS_PRECISION, PrecisionText(r.isDouble));
    s.Number(IDS_REPLICATIONS, r.replications);
    s.Number(IDS_OBSERVATIONS, r.observations);
    s.Number(IDS_RECORDS, r.records);
}

void CLoadView::WriteReport(FILE* f) {
    const auto* doc = dynamic_cast<const CLoadDoc*>(GetDocument());
    if (!doc) return;
    const LoadResults& r = doc->Results();
    Summary s(*this, f, IDS_LOAD_SUMMARY);
    s.Text(IDS_SOURCE_FILE, r.source);
    s.Text(IDS_DESTINATION_FILE, r.destination);
    s.Text(IDS_DATA_KIND, op_KindText(r.kind));
    s.Text(IDS_PRECISION, PrecisionText(r.isDouble));
    s.Number(IDS_LINES_READ, r.lines);
    s.Number(IDS_REPLICATIONS, r.replications);
    s.Number(IDS_OBSERVATIONS, r.observations);
}
