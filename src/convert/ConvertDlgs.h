// Parameter dialogs of the file conversions. Export, DIF and append start from
// a data file of the group (the single-file dialog's file and replications);
// import and load start from a text file. Each names the file it writes; an
// empty name means the source's name with the command's extension.
#pragma once

#include <string>
#include <vector>

#include "datafile/FileGlobals.h"
#include "datafile/SingleDoc.h"
#include "dialog/FileDialogs.h"

// Export: a data file to text.
class CExprtDlg : public CBaseDlg {
public:
    std::string m_strOutFile;  // "-": standard output
    int Validate(int* failingIndex) override;
    // The output file only: an export writes every replication and no title.
    std::vector<DlgField> Fields() override;
    bool TakesReplications() const override { return false; }
};

// Append: the replications of the dialog's file added to the end of another
// data file of the same kind. The treatment says which: a number, "All" (each
// its own replication) or "Lumped" (all as one).
class CAppendDlg : public CBaseDlg {
public:
    std::string m_strOutFile;  // the destination, which must exist
    int Validate(int* failingIndex) override;
    std::vector<DlgField> Fields() override;
};

// DIF: a data file as a spreadsheet, one row per observation.
class CDiffDlg : public CBaseDlg {
public:
    std::string m_strOutFile;  // "-": standard output
    int Validate(int* failingIndex) override;
    std::vector<DlgField> Fields() override;
};

// Import: export text back to a data file.
class CImprtDlg : public CDialog {
public:
    std::string m_strFile;     // "-": standard input
    std::string m_strOutFile;
    int m_nPrecision = -1;     // 1 doubles, 0 floats, -1 as the configuration says
    int Validate(int* failingIndex) override;
    // The text file, the data file and its precision.
    std::vector<DlgField> Fields() override;
};

// Load ASCII: a text file of time/value pairs to a data file.
class CLoadDlg : public CDialog {
public:
    std::string m_strFile;     // "-": standard input
    std::string m_strOutFile;
    std::string m_strKind;     // data kind 1 to 7; empty: 3 (Tally)
    std::string m_strIdent;    // empty: the text file's name
    std::string m_strTitle;    // empty: the text file's name
    int m_nPrecision = -1;     // as for import
    int m_nKind = KIND_TALLY;  // set by Validate
    int Validate(int* failingIndex) override;
    // The text file, the data file, its kind, identifier, title and precision.
    std::vector<DlgField> Fields() override;
};

// Opens the data file that a conversion reads under a treatment (the
// dialog's file and replications) as doc, whose treatment it sets. 0, -1
// when the open failed (its message shown), or a message id: 15925 when the
// output is the source itself.
int conv_OpenSource(CSingleDoc& doc, const CBaseDlg& dlg, const std::string& output);

// The output name a conversion writes when the dialog names none: the
// source's path with ext in place of its extension; empty for "-".
std::string conv_DefaultOutput(const std::string& source, const char* ext);
