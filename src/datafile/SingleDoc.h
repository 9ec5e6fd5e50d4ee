// Documents that analyse data files: the base of every analysis document, and
// the single-file document that keeps its file open with an index of the
// replications so that any replication can be reached by a seek.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "datafile/RecordReader.h"
#include "framework/Document.h"

// One replication of a data file.
class CRepInfo : public CObject {
public:
    long m_lFilePos = 0;  // byte offset of the replication's first record
    int m_nObsCount = 0;  // observation records (time > -1.0)
};

class CDialog;

// Base of every analysis document.
class CBaseFileDoc : public CDocument {
public:
    // Takes the parameters from the analysis's dialog and computes; returns 0 or
    // the message id to show (then no window is made).
    virtual int InitFromDialog(CDialog& dlg);
};

class CSingleDoc : public CBaseFileDoc {
public:
    CSingleDoc();
    ~CSingleDoc() override;

    bool OnNewDocument() override;
    // Opens the file and reads its header; the file stays open, positioned at
    // the first record. The replications are counted and indexed as the
    // records are read: the analysis's own pass finds them on its way, and
    // asking for the count or the index before reads on to complete them.
    bool OnOpenDocument(const char* path) override;
    void OnCloseDocument() override;

    // Makes first sibling 0 and opens one sibling per further replication.
    // 0 when all opened, -1 when one failed (then none are kept).
    virtual int OpenAllReps(CSingleDoc* first);
    // A new, unopened document of the same class.
    virtual CSingleDoc* CreateSibling();
    // Deletes every sibling but this document and closes the stream.
    virtual int ReleaseSiblings();

    void GetRepRange(int* firstRep, int* obsCount) const;
    // Index entry r (1 = first replication); throws std::out_of_range past the index.
    const CRepInfo& RepInfo(int r) const { return *Index().at(static_cast<std::size_t>(r)); }
    int RepIndexSize() const { return static_cast<int>(Index().size()); }
    // The replication count of op_CountReps: an error id (a large number)
    // when the file does not end properly.
    int RepCount() const {
        Index();
        return m_nReps;
    }
    const std::vector<CSingleDoc*>& Siblings() const { return m_siblings; }

    int m_nKind = 0;
    int m_nReinit = 0;
    int m_nTreatment = 1;
    std::string m_strTitle;
    std::string m_strIdent;
    std::string m_strType;
    std::vector<std::unique_ptr<CObject>> m_objList;  // for the derived analyses
    double m_dValue[4] = {0.0, 0.0, 0.0, 0.0};        // for the derived analyses
    int m_nIsDouble = 1;

    // The open data file; analyses read through it.
    CRecordReader& Reader() const { return m_reader; }
    bool IsOpen() const { return m_reader.IsOpen(); }

private:
    void CloseStream();
    // The index, completed from the reader first if need be.
    const std::vector<std::unique_ptr<CRepInfo>>& Index() const;

    // Completing the index reads on and comes back: the position, and so the
    // document's state as the analyses see it, does not change.
    mutable CRecordReader m_reader;
    mutable int m_nReps = 0;
    mutable bool m_bIndexed = false;
    mutable std::vector<std::unique_ptr<CRepInfo>> m_repIndex;
    std::vector<CSingleDoc*> m_siblings;  // [0] is the document itself; owns the rest
};
