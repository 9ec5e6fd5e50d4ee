// The shared parameter-dialog layer: a single-file dialog (data file,
// replications, title) and the file-list dialogs of the multi-file and pair
// analyses. Fields are held as the texts a user typed.
#pragma once

#include <string>
#include <vector>

#include "framework/Dialog.h"

class COutputView;

// A row of a file list: the path and treatment text a user entered, the parsed
// treatment, and room for the per-file results an analysis stores.
struct CMultiFileItem {
    std::string m_strPath;
    std::string m_strReps;       // treatment text ("", "All", "Lumped", "3")
    int m_nTreatment = 1;        // op_ParseRepTreatment of m_strReps
    std::string m_strIdent;      // identifier shown in reports; the path unless set

    double m_dAverage = 0.0;     // or the estimate / statistic of the analysis
    double m_dStdDev = 0.0;
    double m_dHalfWidth = 0.0;
    double m_dLower = 0.0;
    double m_dUpper = 0.0;
    double m_dMin = 0.0;
    double m_dMax = 0.0;
    double m_dRange = 0.0;
    long m_lNumObs = 0;
    bool m_bComputed = false;

    CMultiFileItem() = default;
    CMultiFileItem(std::string path, std::string reps);
    const std::string& Identifier() const { return m_strIdent.empty() ? m_strPath : m_strIdent; }
};

// Single-file dialogs: a data file and its replications, and a title.
class CBaseDlg : public CDialog {
public:
    std::string m_strFile;
    std::string m_strReps;
    std::string m_strTitle;
    COutputView* m_pView = nullptr;  // the data group the dialog was started from
};

// Dialogs with a list of data files, a title, a confidence level and the
// scale flag of the chart.
class CBaseMultiDlg : public CDialog {
public:
    std::vector<CMultiFileItem> m_items;
    std::string m_strTitle;
    std::string m_strLevel = "0.95";
    bool m_bScale = false;
    COutputView* m_pView = nullptr;

    void AddFile(const std::string& path, const std::string& reps);
};

// Pair dialogs: entries 2i and 2i + 1 are files A and B of pair i.
class CBasePairsDlg : public CBaseMultiDlg {
public:
    int PairCount() const { return static_cast<int>(m_items.size() / 2); }
};
