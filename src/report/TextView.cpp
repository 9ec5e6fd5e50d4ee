#include "report/TextView.h"

#include <cstdlib>
#include <vector>

#include "framework/Config.h"
#include "framework/Host.h"
#include "framework/Messages.h"

namespace {

// Edit controls of the limited hosts hold no more than this.
constexpr long kLimitedHostText = 32767;

}  // namespace

CTextView::CTextView()
    : m_szTitleFmt("%45s\n"),
      m_szLabelFmt("%35s :"),
      m_szStringFmt(" %-40s\n"),
      m_szIntFmt(" %11ld\n"),
      m_szRealFmt(" %11.4g\n") {}

int CTextView::OnInitialUpdate() {
    m_bReadOnly = true;
    m_font = ReportFont{};
    return txt_FillView(*this);
}

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

int txt_FillView(CTextView& view) {
    FILE* f = std::fopen(kReportTempFile, "w");
    if (!f) {
        AfxMessageBox(IDS_TEMP_FILE_ERROR);
        return IDS_TEMP_FILE_ERROR;
    }
    view.WriteReport(f);
    std::fclose(f);

    f = std::fopen(kReportTempFile, "r");
    if (!f) {
        std::remove(kReportTempFile);
        AfxMessageBox(IDS_TEMP_FILE_ERROR);
        return IDS_TEMP_FILE_ERROR;
    }
    std::fseek(f, 0, SEEK_END);
    long length = std::ftell(f);
    std::fseek(f, 0, SEEK_SET);
    int shown = 0;
    if (IsWin95() && length > kLimitedHostText) {
        length = kLimitedHostText;
        AfxMessageBox(IDS_TEXT_TOO_LONG);
        shown = IDS_TEXT_TOO_LONG;
    }
    if (length > 0) {
        // A short read leaves zeros; the control takes the text up to the first one.
        std::vector<char> buffer(static_cast<std::size_t>(length) + 1, '\0');
        std::size_t got = std::fread(buffer.data(), 1, static_cast<std::size_t>(length), f);
        (void)got;
        buffer[static_cast<std::size_t>(length)] = '\0';
        view.SetText(std::string(buffer.data()));
    }
    std::fclose(f);
    std::remove(kReportTempFile);
    return shown;
}
