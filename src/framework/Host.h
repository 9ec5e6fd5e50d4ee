// The host interface: what the core asks of the program it runs in (a terminal
// or a desktop window). The core never talks to a user directly.
#pragma once

#include <string>

// Message box styles and answers, as the core uses them.
enum : unsigned { MB_OK = 0x0, MB_YESNO = 0x4, MB_ICONQUESTION = 0x20 };
enum : int { IDOK = 1, IDCANCEL = 2, IDYES = 6, IDNO = 7 };

class IHost {
public:
    virtual ~IHost() = default;

    // Shows a message; id is the string id it came from, or 0 for a free text.
    // Returns the user's answer (IDOK for a plain message).
    virtual int ShowMessage(int id, const std::string& text, unsigned style) = 0;

    // Reports progress of long work; done and total in any common unit.
    virtual void Progress(const char* /*what*/, double /*done*/, double /*total*/) {}
};

// The current host; a silent default until a host installs itself.
IHost& host_Get();
// Installs a host (nullptr restores the default); returns the previous one.
IHost* host_Set(IHost* host);

int AfxMessageBox(int id, unsigned style = MB_OK);
int AfxMessageBox(const std::string& text, unsigned style = MB_OK);

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
