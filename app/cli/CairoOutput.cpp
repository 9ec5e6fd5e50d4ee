// PNG and PDF graphs through cairo, when the build found it (OPROC_HAVE_CAIRO).
#include "GraphOutput.h"

#include "framework/Frame.h"
#include "framework/Host.h"

#ifdef OPROC_HAVE_CAIRO

#include <cairo-pdf.h>
#include <cairo.h>

#include <cmath>

#include "CairoDC.h"
#include "framework/SafeOutput.h"
#include "framework/View.h"
#include "graph/FramePanes.h"

namespace {

// The panes as frame_WriteSvg draws them.
void Draw(const std::vector<FramePane>& panes, cairo_t* cr, int width, int height) {
    CCairoDC dc(cr, width, height);
    frame_DrawPanes(panes, dc, width);
}

}  // namespace

int cli_WriteCairo(const CDocFrame& frame, int width, int height, const std::string& path, bool pdf, double scale) {
    std::vector<FramePane> panes = frame_Panes(frame, width, height, true);
    if (panes.empty()) return 0;
    CSafeOutput out(path);
    cairo_surface_t* surface =
        pdf ? cairo_pdf_surface_create(out.TempPath().c_str(), width, height)
            : cairo_image_surface_create(CAIRO_FORMAT_RGB24, static_cast<int>(std::lround(width * scale)),
                                         static_cast<int>(std::lround(height * scale)));
    if (pdf) cairo_pdf_surface_set_metadata(surface, CAIRO_PDF_METADATA_TITLE, frame.GetWindowText().c_str());
    cairo_t* cr = cairo_create(surface);
    if (!pdf) cairo_scale(cr, scale, scale);
    Draw(panes, cr, width, height);
    cairo_destroy(cr);
    cairo_status_t status = pdf ? CAIRO_STATUS_SUCCESS : cairo_surface_write_to_png(surface, out.TempPath().c_str());
    cairo_surface_finish(surface);
    if (status == CAIRO_STATUS_SUCCESS) status = cairo_surface_status(surface);
    cairo_surface_destroy(surface);
    if (status != CAIRO_STATUS_SUCCESS || !out.Commit()) {
        AfxMessageBox("Cannot write the graph file " + path);
        return -1;
    }
    return 0;
}

#else

int cli_WriteCairo(const CDocFrame&, int, int, const std::string&, bool, double) {
    AfxMessageBox("This oproc was built without cairo: PNG and PDF graphs are not available.\n"
                  "Install libcairo2-dev and build again.");
    return -1;
}

#endif
