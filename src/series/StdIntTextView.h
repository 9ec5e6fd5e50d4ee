// Report of the standardized time series intervals: the classical report with
// its own title and headers; the second column carries sqrt(V).
#pragma once

#include "stats/IntrvlTextView.h"

class CStdIntTextView : public CIntrvlTextView {
public:
    CStdIntTextView() {
        m_nTitleId = 16038;
        m_nHeader1Id = 15921;
        m_nHeader2Id = 15922;
    }
};
