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

    m_bIndexed = false;
    m_nReps = 0;
    m_repIndex.clear();
    m_repIndex.push_back(std::make_unique<CRepInfo>());
    m_repIndex.push_back(std::make_unique<CRepInfo>());
    return true;
}

const std::vector<std::unique_ptr<CRepInfo>>& CSingleDoc::Index() const {
    if (m_bIndexed || !m_reader.IsOpen()) return m_repIndex;
    // An error id from the count is a positive number and passes as a count.
    m_nReps = m_reader.CountReps();
    // Entry r follows the marker that closes replication r - 1; the last
    // marker leaves a trailing entry with no observations.
    m_repIndex.resize(1);
    for (const RepSpan& span : m_reader.Index()) {
        auto info = std::make_unique<CRepInfo>();
        info->m_lFilePos = static_cast<long>(span.pos);
        info->m_nObsCount = span.obsCount;
        m_repIndex.push_back(std::move(info));
    }
    m_bIndexed = true;
    return m_repIndex;
}

void CSingleDoc::OnCloseDocument() {
    ReleaseSiblings();
    CBaseFileDoc::OnCloseDocument();
}

int CSingleDoc::OpenAllReps(CSingleDoc* first) {
    first->m_siblings.assign(1, first);
    first->m_nTreatment = 1;
    if (first->RepCount() < 2) return 0;
    const std::string path = first->GetPathName();
    for (int i = 1; i < first->RepCount(); ++i) {
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
        // One replication's count needs the index only that far.
        *obsCount = m_bIndexed || !m_reader.IsOpen() ? RepInfo(m_nTreatment).m_nObsCount
                                                     : m_reader.EntryObsCount(m_nTreatment);
        return;
    }
    *firstRep = 1;
    *obsCount = 0;
    const auto& index = Index();
    for (std::size_t r = 1; r < index.size(); ++r) *obsCount += index[r]->m_nObsCount;
}

void CSingleDoc::CloseStream() { m_reader.Close(); }
