#include "framework/Host.h"

#include "framework/Dialog.h"
#include "framework/Frame.h"
#include "framework/Messages.h"

namespace {

// Answers every question with OK/yes and shows nothing: the core stays usable
// from tests and tools that install no host.
class SilentHost : public IHost {
public:
    int ShowMessage(int, const std::string&, unsigned style) override {
        return (style & MB_YESNO) ? IDYES : IDOK;
    }
};

SilentHost g_silent;
IHost* g_host = &g_silent;
unsigned long g_messageCount = 0;
int g_lastMessageId = 0;
MessageSubject g_subject;

int Shown(int id, int answer) {
    ++g_messageCount;
    g_lastMessageId = id;
    return answer;
}

}  // namespace

IHost& host_Get() { return *g_host; }

IHost* host_Set(IHost* host) {
    IHost* previous = g_host;
    g_host = host ? host : &g_silent;
    return previous == &g_silent ? nullptr : previous;
}

int IHost::ShowCaptionedMessage(int id, const std::string& text, const std::string&, unsigned style) {
    return ShowMessage(id, text, style);
}

int IHost::RunDialog(CDialog& dlg) { return dlg_ValidateOnOK(dlg) == 0 ? IDOK : IDCANCEL; }

void IHost::ShowFrame(std::unique_ptr<CDocFrame>) {}

std::string IHost::AskOpenFileName(const std::string&, const std::string&) { return {}; }

int AfxMessageBox(int id, unsigned style) { return Shown(id, g_host->ShowMessage(id, msg_Text(id), style)); }

int AfxMessageBox(const std::string& text, unsigned style) { return Shown(0, g_host->ShowMessage(0, text, style)); }

int AfxMessageBox(int id, const std::string& text, unsigned style) {
    return Shown(id, g_host->ShowMessage(id, text, style));
}

int AfxMessageBox(int id, int captionId, unsigned style) {
    return Shown(id, g_host->ShowCaptionedMessage(id, msg_Text(id), msg_Text(captionId), style));
}

unsigned long host_MessageCount() { return g_messageCount; }

int host_LastMessageId() { return g_lastMessageId; }

const MessageSubject& host_Subject() { return g_subject; }

void host_SetSubjectFile(const std::string& path) { g_subject.file = path; }

void host_SetSubjectControl(DlgControl control) { g_subject.control = control; }

void host_ClearSubject() { g_subject = MessageSubject{}; }
