#include "report/TextView.h"

#include <cstdlib>

CTextView::CTextView()
    : m_szTitleFmt("%45s\n"),
      m_szLabelFmt("%35s :"),
      m_szStringFmt(" %-40s\n"),
      m_szIntFmt(" %11ld\n"),
      m_szRealFmt(" %11.4g\n") {}

std::string txt_ReportText(CTextView& view) {
    char* buffer = nullptr;
    std::size_t size = 0;
    FILE* stream = ::open_memstream(&buffer, &size);
    if (!stream) return {};
    view.WriteReport(stream);
    std::fclose(stream);
    std::string text(buffer, size);
    std::free(buffer);
    return text;
}
