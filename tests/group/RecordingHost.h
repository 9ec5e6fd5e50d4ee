// A host for tests: keeps every message, answers questions as told, runs
// dialogs through a test's function and keeps the frames it is given.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "framework/Dialog.h"
#include "framework/Frame.h"
#include "framework/Host.h"

class RecordingHost : public IHost {
public:
    struct Message {
        int id;
        std::string text;
        std::string caption;
    };

    int ShowMessage(int id, const std::string& text, unsigned style) override {
        return ShowCaptionedMessage(id, text, "", style);
    }
    int ShowCaptionedMessage(int id, const std::string& text, const std::string& caption, unsigned style) override {
        messages.push_back({id, text, caption});
        return (style & MB_YESNO) ? answer : IDOK;
    }
    int RunDialog(CDialog& dlg) override {
        ++dialogsRun;
        if (!onDialog) return IDCANCEL;
        return onDialog(dlg);
    }
    void ShowFrame(std::unique_ptr<CDocFrame> frame) override { frames.push_back(std::move(frame)); }
    std::string AskOpenFileName(const std::string& defaultExt, const std::string& filter) override {
        askedExt = defaultExt;
        askedFilter = filter;
        return fileToOpen;
    }

    std::vector<int> Ids() const {
        std::vector<int> ids;
        for (const Message& m : messages) ids.push_back(m.id);
        return ids;
    }

    std::vector<Message> messages;
    std::vector<std::unique_ptr<CDocFrame>> frames;
    int answer = IDYES;
    int dialogsRun = 0;
    std::function<int(CDialog&)> onDialog;
    std::string fileToOpen;
    std::string askedExt, askedFilter;
};
