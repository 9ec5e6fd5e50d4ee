// Append: the replications of a data file added after those of another data
// file of the same kind, the one file a conversion changes. The destination
// is rebuilt beside itself and renamed into place: its bytes up to its end
// marker as they are (header included), that marker turned into the close of
// its last replication, then the source's replications at the destination's
// precision, their markers numbered on from its last, and a new end marker.
// A kill at any moment leaves the old file or the new one, whole; the source
// is only read.
#pragma once

#include <string>

#include "convert/ConvertSummary.h"
#include "datafile/SingleDoc.h"

// The result record of an append.
struct AppendResults {
    std::string source;
    std::string destination;
    std::string reps;       // the treatment as the user wrote it
    int repsBefore = 0;     // the destination's replications
    int repsAfter = 0;
    long observations = 0;  // observations appended
    long records = 0;       // records the destination gained: the observations and one marker per replication
};

class CAppendDoc : public CSingleDoc, public CConversion {
public:
    // Takes a validated CAppendDlg and rewrites the destination. 0, -1 when
    // the source could not be opened (its message shown), or a message id;
    // on a message the destination is as it was.
    int InitFromDialog(CDialog& dlg) override;

    const AppendResults& Results() const { return m_results; }
    ConversionSummary Summary() const override;

private:
    int Append(int treatment);

    AppendResults m_results;
};
