// The checks the parameter dialogs make on a data file and its replication
// treatment before an analysis document is made, and the reading of a
// confidence level. Each dialog runs the steps it needs in its own order.
#pragma once

#include <initializer_list>
#include <string>

#include "framework/Dialog.h"

enum class FileCheck {
    Exists,             // 15811: there is no such file
    Treatment,          // 15804: the text names no replications
    Header,             // 15821: the header does not read as a data file's
    HeaderReadable,     // as Header, and any other failure to read it is the
                        // result (15811 for a file that cannot be opened)
    EnoughReps,         // 15940: a replication number past the file's last
    NotTimePersistent,  // 15810: kinds 1, 2, 6 and 7
    Observations,       // 15810: as above, and kind 4 unless lumped
};

// A data file as a dialog names it, and what the checks learn of it.
struct DataFileCheck {
    std::string path;
    std::string reps;        // the treatment text
    int treatment = 1;       // parsed from reps before any step
    int kind = 0;            // from the header step; 0 until it has run
    FileCheck failed = FileCheck::Exists;  // the step that failed
};

// Runs the steps in the order given; 0, or the message id of the first
// failing step (then file.failed names it).
int dlg_CheckDataFile(DataFileCheck& file, std::initializer_list<FileCheck> steps);

// The control of a single-file dialog that takes the focus after a step
// failed: the replications field for the treatment steps, else the data file.
DlgControl dlg_FileFocus(FileCheck failed);

// True when two names denote the same file: the same existing file, or the
// same path once made absolute and normal. False when either is empty.
bool dlg_SameFileName(const std::string& a, const std::string& b);

// The error probability of a confidence level typed as text: a level above 1
// is a percentage. Text that is not a number counts as 0.
double dlg_AlphaFromLevel(const std::string& level);
