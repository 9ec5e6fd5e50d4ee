#include "report/TextView.h"

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
    // Views write through a stream; an anonymous temporary file is the portable one.
    FILE* stream = std::tmpfile();
    if (!stream) return {};
    view.WriteReport(stream);
    std::string text;
    if (std::fflush(stream) == 0 && std::fseek(stream, 0, SEEK_END) == 0) {
        const long size = std::ftell(stream);
        if (size > 0 && std::fseek(stream, 0, SEEK_SET) == 0) {
            text.resize(static_cast<std::size_t>(size));
            text.resize(std::fread(text.data(), 1, text.size(), stream));
        }
    }
    std::fclose(stream);
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
