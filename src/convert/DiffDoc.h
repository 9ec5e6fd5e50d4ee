// DIF: a data file as a Data Interchange Format file, the plain spreadsheet
// format every spreadsheet reads. The header names the table (the title),
// its vectors (columns) and tuples (rows); the first tuple holds the
// headings as strings. One replication, or all lumped into one, gives a row
// per observation with its time and value; "All" gives a row per
// observation number with the observation number and a value column per
// replication, a replication without that observation leaving its cell
// empty. Numbers are written so that they read back to the stored double (or
// float); not-a-number is the format's NA and an infinity its ERROR.
#pragma once

#include <string>

#include "convert/ConvertSummary.h"
#include "datafile/SingleDoc.h"

// The result record of a DIF conversion.
struct DiffResults {
    std::string source;
    std::string destination;  // "-": standard output
    std::string reps;         // the treatment as the user wrote it
    std::string title;        // the table's
    int replications = 0;     // replications written
    long observations = 0;    // observations written
    long columns = 0;         // the table's vectors
    long rows = 0;            // its tuples, the headings included
};

class CDiffDoc : public CSingleDoc, public CConversion {
public:
    // Takes a validated CDiffDlg, opens the data file and writes the DIF
    // file. 0, -1 when the open failed (its message shown), or a message id;
    // on a message no file is left under the target name.
    int InitFromDialog(CDialog& dlg) override;

    const DiffResults& Results() const { return m_results; }
    ConversionSummary Summary() const override;

private:
    int Write(int treatment);

    DiffResults m_results;
};
