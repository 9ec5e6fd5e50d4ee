// Parameter dialogs of the file conversions. Export, DIF and append start from
// a data file of the group (the single-file dialog's file and replications);
// import and load start from a text file. Each names the file it writes; an
// empty name means the source's name with the command's extension.
#pragma once

#include <string>

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

// The output name a conversion writes when the dialog names none: the
// source's path with ext in place of its extension; empty for "-".
std::string conv_DefaultOutput(const std::string& source, const char* ext);
