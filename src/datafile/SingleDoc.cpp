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
    // An error id from the count is a positive number and passes as a count;
    // only an empty or unreadable count stops the open here.
    m_nReps = op_CountReps(path);
    if (m_nReps < 1) return false;

    int err = 0;
    m_pFile = op_OpenDataFile(&err, path, 2, true);
    if (!m_pFile) {
        // 23 has no text of its own: the file went away after it was counted.
        AfxMessageBox(err == IDS_NO_FILE_OPEN ? IDS_FILE_NOT_FOUND : err);
        return false;
    }
    DataFileHeader h;
    if (int rc = op_ReadFileHdr(m_pFile, false, &h)) {
        CloseStream();
        AfxMessageBox(rc);
        return false;
    }
    m_nKind = h.kind;
    m_nReinit = h.reinit;
    m_strTitle = h.title;
    m_strIdent = h.ident;
    m_strType = h.type;
    m_nIsDouble = h.isDouble;
    BuildIndex();
    return true;
}

void CSingleDoc::BuildIndex() {
    m_repIndex[1]->m_lFilePos = std::ftell(m_pFile);
    CRepInfo* current = m_repIndex[1].get();
    double time = 0.0;
    double value = 0.0;
    for (;;) {
        op_ReadPair(m_pFile, m_nIsDouble, &time, &value);
        if (::feof_unlocked(m_pFile) || ::ferror_unlocked(m_pFile)) break;
        if (time > -1.0) {
            ++current->m_nObsCount;
            continue;
        }
        if (value == MARK_SKIP) continue;
        // Entry r follows the marker that closes replication r - 1; the last
        // marker leaves a trailing entry with no observations.
        m_repIndex.push_back(std::make_unique<CRepInfo>());
        current = m_repIndex.back().get();
        current->m_lFilePos = std::ftell(m_pFile);
        if (value == MARK_END) break;
    }
    std::clearerr(m_pFile);
    std::fseek(m_pFile, m_repIndex[1]->m_lFilePos, SEEK_SET);
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

void CSingleDoc::CloseStream() {
    if (m_pFile) std::fclose(m_pFile);
    m_pFile = nullptr;
}
