// One-way analysis of variance: each entry of the list is a group (an entry
// under "All" one group per replication, identified PATH@N), read exactly as
// the classical intervals read theirs; then the ANOVA table or Welch's test,
// and simultaneous intervals on every difference of two means.
#pragma once

#include <vector>

#include "stats/IntrvlDoc.h"
#include "stats/Moments.h"
#include "stats/OnewayResult.h"

class COnewyDoc : public CIntrvlDoc {
public:
    COnewyDoc() = default;

    // Takes the entries, title, level and choices of a COnewyDlg and computes.
    int InitFromDialog(CDialog& dlg) override;
    int Compute(double alpha) override;

    const OnewayResult& Result() const { return m_result; }

protected:
    int ComputeRow(CRecordReader& in, IntervalRow& row, double alpha) override;
    // A group without observations cannot take part.
    bool StopOnEmptyRow() const override { return true; }

private:
    OnewayResult m_result;
    std::vector<CMoments> m_sums;  // one per row, as read
};
