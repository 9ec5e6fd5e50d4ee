#include "framework/Host.h"

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

}  // namespace

IHost& host_Get() { return *g_host; }

IHost* host_Set(IHost* host) {
    IHost* previous = g_host;
    g_host = host ? host : &g_silent;
    return previous == &g_silent ? nullptr : previous;
}

int AfxMessageBox(int id, unsigned style) { return g_host->ShowMessage(id, msg_Text(id), style); }

int AfxMessageBox(const std::string& text, unsigned style) { return g_host->ShowMessage(0, text, style); }
