// Parameter dialogs of the interval analyses: a list of data files with their
// replication treatments, a title, a confidence level and the chart's scale flag.
// The standard deviation and standardized time series dialogs differ only in
// their caption.
#pragma once

#include <cstddef>

#include "dialog/FileDialogs.h"

class CIntrvlDlg : public CBaseMultiDlg {
public:
    CIntrvlDlg() = default;

    // Checks in order: a file at all (15814), the level (15813), then each file
    // in list order: exists (15811), treatment (15804), header (15821),
    // observation data (15810). failingIndex receives the row being checked.
    int Validate(int* failingIndex) override;

    // The Edit button and a double click: 15841 "No item is selected." when no
    // row is, else 0 and the host opens the entry's edit dialog.
    int OnChange(int selectedRow) const;

    // Row selected in the file list after a failed check on a file; -1 if none.
    int SelectedRow() const { return m_nSelected; }
    int CaptionId() const override { return m_nCaptionId; }

    // The items of the level combo box, and the most it takes typed in.
    static const char* const kLevels[3];
    static constexpr std::size_t kLevelTextLimit = 128;

protected:
    explicit CIntrvlDlg(int captionId) : m_nCaptionId(captionId) {}

private:
    int Fail(int id, int row);

    int m_nSelected = -1;
    int m_nCaptionId = 0;  // 0: the caption of the dialog resource
};

class CSdIntDlg : public CIntrvlDlg {
public:
    CSdIntDlg() = default;
};
