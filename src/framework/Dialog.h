// Base of the parameter dialogs. A dialog holds its fields as the texts a user
// typed; Validate checks them in a fixed order and names the control that would
// take the focus, so that every host reports a bad field the same way.
#pragma once

#include <string>

#include "framework/Object.h"

class CDialog : public CObject {
public:
    // Returns 0 or the message id of the first failing check. For list dialogs
    // failingIndex receives the row at fault; it may be null.
    virtual int Validate(int* failingIndex) = 0;

    // Control that takes the focus after the last failed Validate; empty when none.
    const std::string& FocusControl() const { return m_focus; }

protected:
    void SetFocusControl(std::string control) { m_focus = std::move(control); }

private:
    std::string m_focus;
};
