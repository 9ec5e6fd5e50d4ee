// The Plot document: the points of each data file of the list, under its own
// replication treatment, inside one time window and value range.
#pragma once

#include <string>
#include <vector>

#include "graph/GraphDoc.h"

struct CPlotEntry {
    std::string m_strPath;
    int m_nTreatment = 1;
    GraphArray m_xValues;
    GraphArray m_yValues;
    long m_nPoints = 0;
    bool m_bLoaded = false;
    // The range scan has read count points, at most limit of which are shown.
    bool m_bRead = false;
    std::size_t m_nRead = 0;
    std::size_t m_nLimit = 0;
};

class CPlotDoc : public CGraphDoc {
public:
    CPlotDoc();

    // Copies the dialog's fields, opens the first file, loads every file.
    // Returns the id of a failure of the first file (nothing to show); a
    // failure of a later file is shown here and ends loading, keeping the
    // files loaded before it.
    int InitFromDialog(CDialog& dlg) override;
    CSingleDoc* CreateSibling() override { return new CPlotDoc; }

    std::string m_strYLabel;
    std::string m_strXLabel;
    std::string m_strGraphTitle;
    // Entry 0 is the document's own file, whose points are the document's arrays.
    std::vector<CPlotEntry> m_entries;
    const GraphArray& EntryX(std::size_t i) const { return i == 0 ? m_xValues : m_entries[i].m_xValues; }
    const GraphArray& EntryY(std::size_t i) const { return i == 0 ? m_yValues : m_entries[i].m_yValues; }

protected:
    // Reads every file once, taking the open bounds and the points together.
    int ScanRange(double* bounds, const int* flags) override;
    bool WindowHasValues() const override { return true; }

private:
    int LoadEntry(CPlotEntry& entry);
};
