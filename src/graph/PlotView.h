// The plot's two panes: the curves in the graph frame, and the legend that
// names each file and its treatment in its curve's colour and line style.
#pragma once

#include <string>

#include "graph/BaseView.h"

class CPlotDoc;

// Curve attributes by position in the file list.
COLORREF plot_Colour(std::size_t index);
int plot_PenStyle(std::size_t index);
// "lumped", "all" or the replication number, as the legend shows it.
std::string plot_TreatmentText(int treatment);

class CPlotView : public CBaseView {
public:
    bool CanGraph() override;
    int DrawGraph(CDC& dc) override;

    CPlotDoc* GetPlotDoc() const;
};

class CPlotLegendView : public CBaseView {
public:
    // The legend needs no plot area: it draws whenever it is laid out.
    bool CanGraph() override { return true; }
    int DrawGraph(CDC& dc) override;

    CPlotDoc* GetPlotDoc() const;
};

// Pen width of curves and legend samples on a device of this scale.
int plot_PenWidth(double scale);
