// The desktop host of the core: its messages and questions in message boxes,
// file choices in file dialogs, and the document windows it opens handed to
// the main window. Long work reports its progress to gui_RunInBackground.
#pragma once

#include <QPointer>
#include <QString>

#include <functional>
#include <memory>

#include "framework/Host.h"

class QWidget;

class QtHost : public IHost {
public:
    QtHost() = default;
    ~QtHost() override;

    int ShowMessage(int id, const std::string& text, unsigned style) override;
    int ShowCaptionedMessage(int id, const std::string& text, const std::string& caption, unsigned style) override;
    void ShowFrame(std::unique_ptr<CDocFrame> frame) override;
    std::string AskOpenFileName(const std::string& defaultExt, const std::string& filter) override;

    // Where the document windows go (the main window); without one they close at once.
    void SetFrameSink(std::function<void(std::unique_ptr<CDocFrame>)> sink) { m_frameSink = std::move(sink); }
    // The window that message boxes and dialogs belong to.
    void SetParentWindow(QWidget* parent) { m_parent = parent; }

    // A file filter of the form "Name (*.a)|*.a|Other|*.b||" as a Qt file
    // dialog takes it; "*.*" means every file.
    static QString QtFileFilter(const std::string& filter);

private:
    QWidget* Parent() const;

    QPointer<QWidget> m_parent;
    std::function<void(std::unique_ptr<CDocFrame>)> m_frameSink;
};
