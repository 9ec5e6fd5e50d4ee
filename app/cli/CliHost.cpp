#include "CliHost.h"

#include <unistd.h>

#include <cstdio>
#include <iostream>

#include "GraphOutput.h"
#include "MessageSubject.h"
#include "framework/Frame.h"
#include "graph/FramePanes.h"
#include "group/CommandTable.h"
#include "report/TextView.h"

CliHost::CliHost(std::ostream& err) : CliHost(std::cout, err) {}

CliHost::CliHost(std::ostream& out, std::ostream& err)
    : m_out(&out), m_err(&err), m_terminal(::isatty(STDERR_FILENO) != 0) {}

int CliHost::RunDialog(CDialog&) { return IDCANCEL; }

void CliHost::ShowFrame(std::unique_ptr<CDocFrame> frame) {
    if (m_format != ResultFormat::Text) {
        if (const CDocument* doc = frame->GetActiveDocument())
            if (std::optional<ResultRecord> record = grp_DocumentResults(*doc)) m_results = std::move(*record);
    } else {
        for (const auto& v : frame->Views()) {
            if (auto* paged = dynamic_cast<CPagedReport*>(v.get()))
                paged->WriteAll(*m_out, m_pagedFormat);
            else if (const auto* text = dynamic_cast<const CTextView*>(v.get()))
                *m_out << text->GetText();
        }
    }
    if (m_svg) cli_WriteGraphs(*frame, *m_svg);
}

int CliHost::ShowMessage(int id, const std::string& text, unsigned style) {
    m_messages.emplace_back(id, text);
    if (m_lastPercent >= 0) {
        *m_err << '\n';
        m_lastPercent = -1;
    }
    *m_err << text << '\n';
    if (std::string subject = cli_MessageSubject(id); !subject.empty()) *m_err << subject << '\n';
    *m_err << std::flush;
    m_shown = true;
    // Nobody can answer a question here: a yes/no prompt is taken as no.
    return (style & MB_YESNO) ? IDNO : IDOK;
}

void CliHost::Note(const std::string& text) {
    if (!m_quiet && !text.empty()) m_notes.push_back(text);
}

void CliHost::FlushNotes() {
    for (const std::string& note : m_notes) *m_err << note << '\n';
    m_notes.clear();
    *m_err << std::flush;
}

void CliHost::Progress(const char* what, double done, double total) {
    if (!m_terminal || total <= 0) return;
    int percent = static_cast<int>(100.0 * done / total);
    if (percent == m_lastPercent) return;
    m_lastPercent = percent;
    *m_err << '\r' << what << ' ' << percent << '%' << std::flush;
    if (percent >= 100) {
        *m_err << "\r\033[K" << std::flush;
        m_lastPercent = -1;
    }
}
