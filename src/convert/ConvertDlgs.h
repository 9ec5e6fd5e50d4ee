// Parameter dialogs of the file conversions. Export, DIF and append start from
// a data file of the group (the single-file dialog's file and replications);
// import and load start from a text file. Each names the file it writes; an
// empty name means the source's name with the command's extension.
#pragma once

#include <string>

#include "datafile/FileGlobals.h"
#include "dialog/FileDialogs.h"

// Export: a data file to text.
class CExprtDlg : public CBaseDlg {
public:
    std::string m_strOutFile;  // "-": standard output
    int Validate(int* failingIndex) override;
};

// Import: export text back to a data file.
class CImprtDlg : public CDialog {
public:
    std::string m_strFile;     // "-": standard input
    std::string m_strOutFile;
    int m_nPrecision = -1;     // 1 doubles, 0 floats, -1 as the configuration says
    int Validate(int* failingIndex) override;
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
};

// The output name a conversion writes when the dialog names none: the
// source's path with ext in place of its extension; empty for "-".
std::string conv_DefaultOutput(const std::string& source, const char* ext);
