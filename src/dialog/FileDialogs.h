// The shared dialog layer: the parameter records that the analyses' dialogs
// are built from. A single-file dialog holds a data file, its replications and
// a title; the list dialogs hold rows of files (or pairs of files) with their
// treatments, a title, a confidence level and the chart's scale flag. Fields
// are the texts a user typed; results never live here.
#pragma once

#include <string>
#include <vector>

#include "framework/Dialog.h"

// A row of a file list: the path and treatment text a user entered and the
// parsed treatment.
struct CMultiFileItem {
    std::string m_strPath;
    std::string m_strReps;       // treatment text ("", "All", "Lumped", "3")
    int m_nTreatment = 1;        // op_ParseRepTreatment of m_strReps
    std::string m_strIdent;      // identifier shown in reports; the path unless set

    CMultiFileItem() = default;
    CMultiFileItem(std::string path, std::string reps);
    const std::string& Identifier() const { return m_strIdent.empty() ? m_strPath : m_strIdent; }
};

// A row of a pairs list: files A and B compared with each other.
struct CFilePairItem {
    CMultiFileItem a;
    CMultiFileItem b;
};

// Single-file dialogs: a data file and its replications, and a title.
class CBaseDlg : public CDialog {
public:
    // The title; the file and its replications belong to the shared layout.
    std::vector<DlgField> Fields() override;

    std::string m_strFile;
    std::string m_strReps;
    std::string m_strTitle;
};

// Dialogs with a list of data files, a title, a confidence level and the
// scale flag of the chart.
class CBaseMultiDlg : public CDialog {
public:
    // Title, level and scale flag; the file list belongs to the shared layout.
    std::vector<DlgField> Fields() override;

    std::vector<CMultiFileItem> m_items;
    std::string m_strTitle;
    std::string m_strLevel = "0.95";
    bool m_bScale = false;

    void AddFile(const std::string& path, const std::string& reps);
};

// Dialogs with a list of file pairs and the same title, level and scale flag.
class CBasePairsDlg : public CDialog {
public:
    std::vector<DlgField> Fields() override;

    std::vector<CFilePairItem> m_pairs;
    std::string m_strTitle;
    std::string m_strLevel = "0.95";
    bool m_bScale = false;

    void AddPair(const CMultiFileItem& a, const CMultiFileItem& b) { m_pairs.push_back({a, b}); }
};

// The fields the list dialogs share: "&Title:", "&Confidence Level:" (a combo
// of the usual levels, 128 characters at most) and "&Scale Display".
DlgField dlg_TitleField(std::string& title);
DlgField dlg_LevelField(std::string& level);
DlgField dlg_ScaleField(bool& scale);
