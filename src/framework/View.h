// View bases: a view shows its document in a client rectangle and draws itself
// into a device context on every paint and print.
#pragma once

#include "framework/DC.h"
#include "framework/Object.h"

class CDocument;

// What the print dialog is set up with.
struct CPrintInfo {
    int m_nMinPage = 1;
    int m_nMaxPage = 0xFFFF;
    bool m_bPageNumbers = true;  // the dialog offers a page range
};

class CView : public CObject {
public:
    void SetDocument(CDocument* doc) { m_pDocument = doc; }
    CDocument* GetDocument() const { return m_pDocument; }

    // The client area; the host sets it when the window is sized (or, for a
    // printout, to the area laid out on the page).
    void SetClientRect(const CRect& rect) { m_client = rect; }
    CRect GetClientRect() const { return m_client; }

    virtual void OnDraw(CDC& dc) = 0;
    virtual bool OnPreparePrinting(CPrintInfo& info);
    virtual void OnInitialUpdate() {}

protected:
    // Shows the print dialog; the host answers. True to print.
    virtual bool DoPreparePrinting(CPrintInfo& info);

    CDocument* m_pDocument = nullptr;
    CRect m_client{0, 0, 0, 0};
};

enum { MM_TEXT = 1 };

class CScrollView : public CView {
public:
    void SetScrollSizes(int mapMode, CSize total) {
        m_mapMode = mapMode;
        m_total = total;
    }
    CSize GetTotalSize() const { return m_total; }
    int GetMapMode() const { return m_mapMode; }

private:
    int m_mapMode = MM_TEXT;
    CSize m_total{0, 0};
};
