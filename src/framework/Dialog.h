// Base of the parameter dialogs. A dialog holds its fields as the texts a user
// typed; Validate checks them in a fixed order and names the control that would
// take the focus, so that every host reports a bad field the same way.
#pragma once

#include <string>

#include "framework/Object.h"

// The controls of the parameter dialogs that can take the focus after a failed
// check; a host maps them onto its own widgets.
enum class DlgControl {
    None,          // the focus stays where it was
    FileList,      // the list of data files (or of pairs)
    Level,         // the confidence level
    DataFile,      // the single data file
    Replications,  // its replication treatment
    OutputFile,
    MaxLags,
    Truncation,    // Batch/Truncate: initial observations or time
    BatchSize,
    BeginTime,     // Plot: the time window and value range
    EndTime,
    MinValue,
    MaxValue,
    CellStart,     // Histogram: the first cell's lower bound, the width, the count
    CellWidth,
    CellCount,
    Window,        // Moving average: the window and the method
    Method,
};

class CDialog : public CObject {
public:
    // The framework's field exchange that precedes validation: typed fields
    // with a fixed type and range (a whole number from 0 to 9999) are taken
    // into their values. False with the framework's message text.
    virtual bool ExchangeFields(std::string* /*message*/) { return true; }

    // Returns 0 or the message id of the first failing check. For list dialogs
    // failingIndex receives the row at fault; it may be null.
    virtual int Validate(int* failingIndex) = 0;

    // Control that takes the focus after the last failed Validate.
    DlgControl FocusControl() const { return m_focus; }

    // Runs the dialog through the host; IDOK or IDCANCEL.
    int DoModal();

protected:
    void SetFocusControl(DlgControl control) { m_focus = control; }

private:
    DlgControl m_focus = DlgControl::None;
};

// What pressing OK does: exchanges the fields, then validates; a failure shows
// its message (a pair check's negated id is shown as the id) so the user can
// correct the field. Returns 0 when the dialog may close, else the failing id
// (-1 for a failed exchange).
int dlg_ValidateOnOK(CDialog& dlg);
