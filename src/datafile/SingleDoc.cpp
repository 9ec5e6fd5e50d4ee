#include "datafile/SingleDoc.h"

#include "datafile/DataFile.h"
#include "framework/Host.h"
#include "framework/Messages.h"

int CBaseFileDoc::InitFromDialog(CDialog&) { return 0; }

CSingleDoc::CSingleDoc() {
    m_repIndex.push_back(std::make_unique<CRepInfo>());
    m_repIndex.push_back(std::make_unique<CRepInfo>());
}

CSingleDoc::~CSingleDoc() {
    for (CSingleDoc* s : m_siblings)
        if (s != this) delete s;
    CloseStream();
}

bool CSingleDoc::OnNewDocument() { return CBaseFileDoc::OnNewDocument(); }

bool CSingleDoc::OnOpenDocument(const char* path) {
    if (int rc = m_reader.Open(path)) {
        // 23 has no text of its own.
        AfxMessageBox(rc == IDS_NO_FILE_OPEN ? IDS_FILE_NOT_FOUND : rc);
        CloseStream();
        return false;
    }
    const DataFileHeader& h = m_reader.Header();
    m_nKind = h.kind;
    m_nReinit = h.reinit;
    m_strTitle = h.title;
    m_strIdent = h.ident;
    m_strType = h.type;
    m_nIsDouble = h.isDouble;

    // An error id from the count is a positive number and passes as a count;
    // only an empty count (which the counting rules never give) stops the open.
    m_nReps = m_reader.CountReps();
    if (m_nReps < 1) {
        CloseStream();
        return false;
    }
    // Entry r follows the marker that closes replication r - 1; the last
    // marker leaves a trailing entry with no observations.
    const std::vector<RepSpan>& index = m_reader.Index();
    m_repIndex.resize(1);
    for (const RepSpan& span : index) {
        auto info = std::make_unique<CRepInfo>();
        info->m_lFilePos = static_cast<long>(span.pos);
        info->m_nObsCount = span.obsCount;
        m_repIndex.push_back(std::move(info));
    }
    m_reader.Seek(m_reader.FirstRecord());
    return true;
}

void CSingleDoc::OnCloseDocument() {
    ReleaseSiblings();
    CBaseFileDoc::OnCloseDocument();
}

int CSingleDoc::OpenAllReps(CSingleDoc* first) {
    first->m_siblings.assign(1, first);
    first->m_nTreatment = 1;
    if (first->m_nReps < 2) return 0;
    const std::string path = first->GetPathName();
    for (int i = 1; i < first->m_nReps; ++i) {
        std::unique_ptr<CSingleDoc> sibling(first->CreateSibling());
        sibling->m_nTreatment = i + 1;
        sibling->SetPathName(path, false);
        if (!sibling->OnOpenDocument(path.c_str())) {
            first->ReleaseSiblings();
            return -1;
        }
        first->m_siblings.push_back(sibling.release());
    }
    return 0;
}

CSingleDoc* CSingleDoc::CreateSibling() { return new CSingleDoc; }

int CSingleDoc::ReleaseSiblings() {
    for (CSingleDoc* s : m_siblings)
        if (s != this) delete s;
    m_siblings.clear();
    CloseStream();
    return 0;
}

void CSingleDoc::GetRepRange(int* firstRep, int* obsCount) const {
    if (m_nTreatment >= 1) {
        *firstRep = m_nTreatment;
        *obsCount = RepInfo(m_nTreatment).m_nObsCount;
        return;
    }
    *firstRep = 1;
    *obsCount = 0;
    for (std::size_t r = 1; r < m_repIndex.size(); ++r) *obsCount += m_repIndex[r]->m_nObsCount;
}

void CSingleDoc::CloseStream() { m_reader.Close(); }
