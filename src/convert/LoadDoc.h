// Load ASCII: a text file of time/value pairs into a data file. Fields are
// separated by blanks or tabs, or by one comma or semicolon among them; "#"
// starts a comment; a blank line or a line "end" closes a replication. A
// decimal comma is refused, and a line that is not a pair names its number:
// then nothing is written.
#pragma once

#include <string>

#include "datafile/SingleDoc.h"

// The result record of a load.
struct LoadResults {
    std::string source;       // "-": standard input
    std::string destination;
    int kind = 0;
    int isDouble = 1;
    long lines = 0;
    int replications = 0;
    long observations = 0;
};

class CLoadDoc : public CBaseFileDoc {
public:
    // Takes a validated CLoadDlg and writes the data file. 0 or a message id
    // (a bad line's message has been shown with its number).
    int InitFromDialog(CDialog& dlg) override;

    const LoadResults& Results() const { return m_results; }

private:
    LoadResults m_results;
};
