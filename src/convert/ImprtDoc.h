// Import: export text back to a data file. The header's fields come from the
// export header (old 1xx numbers included); each record line becomes one
// record at the precision asked for. Damaged text names its line and leaves
// no file behind.
#pragma once

#include <string>

#include "datafile/SingleDoc.h"

// The result record of an import.
struct ImportResults {
    std::string source;       // "-": standard input
    std::string destination;
    int kind = 0;
    int isDouble = 1;
    int replications = 0;
    long observations = 0;
    long records = 0;
};

class CImprtDoc : public CBaseFileDoc {
public:
    // Takes a validated CImprtDlg and writes the data file. 0 or a message id
    // (a damaged line's message has been shown with its number).
    int InitFromDialog(CDialog& dlg) override;

    const ImportResults& Results() const { return m_results; }

private:
    ImportResults m_results;
};
