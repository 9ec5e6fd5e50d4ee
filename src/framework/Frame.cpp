#include "framework/Frame.h"

CDocFrame::CDocFrame(std::string frameClass, std::unique_ptr<CDocument> doc,
                     std::vector<std::unique_ptr<CObject>> views)
    : m_frameClass(std::move(frameClass)), m_doc(std::move(doc)), m_views(std::move(views)) {}
