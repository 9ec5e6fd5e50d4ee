#include "framework/View.h"

bool CView::OnPreparePrinting(CPrintInfo& info) { return DoPreparePrinting(info); }

bool CView::DoPreparePrinting(CPrintInfo&) { return true; }
