// Export: a data file as text. The export header (four lines), then one line
// per record as stored, markers included: time, a blank, value, each the
// shortest text that reads back to the same number at the file's precision.
#pragma once

#include <string>

#include "datafile/SingleDoc.h"

// The result record of an export: what its summary and any other writer of
// results read.
struct ExportResults {
    std::string source;
    std::string destination;  // "-": standard output
    int replications = 0;     // closing markers
    long observations = 0;
    long records = 0;         // every record written, markers included
};

class CExprtDoc : public CSingleDoc {
public:
    // Takes a validated CExprtDlg, opens the data file and writes the text.
    // 0, -1 when the open failed (its message shown), or a message id; on a
    // message no text file is left under the target name.
    int InitFromDialog(CDialog& dlg) override;

    const ExportResults& Results() const { return m_results; }

private:
    int Write();

    ExportResults m_results;
};
