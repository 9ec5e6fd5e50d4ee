// The host interface: what the core asks of the program it runs in (a terminal
// or a desktop window). The core never talks to a user directly.
#pragma once

#include <memory>
#include <string>

class CDialog;
class CDocFrame;
enum class DlgControl;

// Message box styles and answers, as the core uses them.
enum : unsigned { MB_OK = 0x0, MB_YESNO = 0x4, MB_ICONQUESTION = 0x20 };
enum : int { IDOK = 1, IDCANCEL = 2, IDYES = 6, IDNO = 7 };

class IHost {
public:
    virtual ~IHost() = default;

    // Shows a message; id is the string id it came from, or 0 for a free text.
    // Returns the user's answer (IDOK for a plain message).
    virtual int ShowMessage(int id, const std::string& text, unsigned style) = 0;

    // Shows a message under a caption of its own. By default the caption is dropped.
    virtual int ShowCaptionedMessage(int id, const std::string& text, const std::string& caption, unsigned style);

    // Reports progress of long work; done and total in any common unit.
    virtual void Progress(const char* /*what*/, double /*done*/, double /*total*/) {}

    // Runs a parameter dialog modally: a desktop host shows it and lets the
    // user edit until OK passes validation (dlg_ValidateOnOK) or Cancel; a
    // headless host fills it from elsewhere. Returns IDOK or IDCANCEL. By
    // default the dialog is taken as it stands.
    virtual int RunDialog(CDialog& dlg);

    // Takes a new document window, titled and filled, and shows it until the
    // user closes it. By default it is closed at once.
    virtual void ShowFrame(std::unique_ptr<CDocFrame> frame);

    // Asks for an existing file to open; empty when cancelled (the default).
    // defaultExt is like "*.dat", filter like "Name (*.dat)|*.dat|...||".
    virtual std::string AskOpenFileName(const std::string& defaultExt, const std::string& filter);
};

// The current host; a silent default until a host installs itself.
IHost& host_Get();
// Installs a host (nullptr restores the default); returns the previous one.
IHost* host_Set(IHost* host);

int AfxMessageBox(int id, unsigned style = MB_OK);
int AfxMessageBox(const std::string& text, unsigned style = MB_OK);
// The message of string id with its fields filled in (msg_Format): shown as
// text, counted as the id's.
int AfxMessageBox(int id, const std::string& text, unsigned style = MB_OK);
// A message with a caption, both string ids.
int AfxMessageBox(int id, int captionId, unsigned style);

// Messages shown so far through AfxMessageBox, and the id of the last one (0
// for free text): lets a caller tell whether a callee already reported a failure.
unsigned long host_MessageCount();
int host_LastMessageId();

// What the next message concerns, for a host that can name it beside the
// text (a terminal has no dialog to point at): the data file last opened or
// checked, and the dialog control a failed check puts the focus on. The file
// stays until the next one replaces it, since most messages are shown after
// the failing open has returned.
struct MessageSubject {
    std::string file;
    DlgControl control{};
};
const MessageSubject& host_Subject();
void host_SetSubjectFile(const std::string& path);
void host_SetSubjectControl(DlgControl control);
void host_ClearSubject();

// Installs a host for the life of a scope, then puts the previous one back.
class ScopedHost {
public:
    explicit ScopedHost(IHost* host) : m_previous(host_Set(host)) {}
    ~ScopedHost() { host_Set(m_previous); }
    ScopedHost(const ScopedHost&) = delete;
    ScopedHost& operator=(const ScopedHost&) = delete;

private:
    IHost* m_previous;
};
