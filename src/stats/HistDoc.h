// The histogram document: one data file under a replication treatment, its
// cells counted (or timed, for time-persistent data) in one pass.
#pragma once

#include <string>

#include "datafile/SingleDoc.h"
#include "stats/Histogram.h"

class CHistDoc : public CSingleDoc {
public:
    // InitFromDialog's result when the file could not be opened; the open has
    // shown its message already.
    static constexpr int kOpenFailed = -1;

    CSingleDoc* CreateSibling() override { return new CHistDoc; }
    // Takes a validated CHistDlg's fields, opens the file and computes.
    int InitFromDialog(CDialog& dlg) override;
    // 0 or a message id.
    int Compute();

    // Parameters.
    HistogramParams m_params;
    std::string m_strHistTitle;  // the user's title (m_strTitle is the file's)
    std::string m_strFile;       // as entered
    std::string m_strReps;       // the treatment text as entered

    const HistogramResult& Results() const { return m_results; }

protected:
    HistogramResult m_results;
};
