#include "convert/ConvertViews.h"

#include "convert/ConvertSummary.h"
#include "framework/Document.h"
#include "framework/Messages.h"

void CConvertView::WriteReport(FILE* f) {
    const auto* doc = dynamic_cast<const CConversion*>(GetDocument());
    if (!doc) return;
    const ConversionSummary s = doc->Summary();
    std::fprintf(f, m_szTitleFmt, msg_Text(s.titleId).c_str());
    std::fputs("\n", f);
    for (const SummaryField& field : s.fields) {
        if (!field.labelId) continue;
        std::fprintf(f, m_szLabelFmt, msg_Text(field.labelId).c_str());
        if (field.value.GetKind() == ResultValue::Kind::Number)
            std::fprintf(f, m_szIntFmt, static_cast<long>(field.value.AsNumber()));
        else
            std::fprintf(f, m_szStringFmt, field.value.AsString().c_str());
    }
}
