// Base of the parameter dialogs. A dialog holds its fields as the texts a user
// typed; Validate checks them in a fixed order and names the control that would
// take the focus, so that every host reports a bad field the same way.
#pragma once

#include <string>
#include <vector>

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
    FirstRecord,   // Table: the range of rows shown
    RecordCount,
    CellStart,     // Histogram: the first cell's lower bound, the width, the count
    CellWidth,
    CellCount,
    Window,        // Moving average: the window and the method
    Method,
};

// One of a dialog's own controls, for a host that lays the dialog out: the
// field it edits (a text, a choice among values, or a check), its label with
// the mnemonic marked by '&', and the control's focus name. The shared file
// lists of the dialog bases are not fields: a host knows them by the base.
struct DlgField {
    enum class Kind {
        Text,      // an edit; with items, an editable combo offering them
        Choice,    // one of items, stored as the matching entry of values
        Check,
        SaveFile,  // an output file name with a browse button (filter)
    };
    Kind kind = Kind::Text;
    const char* key = "";  // stable name, for keeping the entry across runs
    std::string label;
    DlgControl control = DlgControl::None;
    std::string* text = nullptr;  // Text and SaveFile
    int* value = nullptr;         // Choice
    bool* check = nullptr;        // Check
    std::vector<std::string> items;
    std::vector<int> values;      // Choice: the value of each item
    std::size_t maxLength = 0;    // 0: no limit
    std::string filter;           // SaveFile: "Name (*.x)|*.x|...||"
};

class CDialog : public CObject {
public:
    // The dialog's own fields in the order a user meets them. A dialog of a new
    // command lists its fields here and every host can show it.
    virtual std::vector<DlgField> Fields() { return {}; }
    // The string id of the dialog's caption; 0: the command's name.
    virtual int CaptionId() const { return 0; }

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
// (-1 for a failed exchange). For a list dialog failingIndex, when given,
// receives the row at fault (-1 when none).
int dlg_ValidateOnOK(CDialog& dlg, int* failingIndex = nullptr);
