#include "datafile/FileInfo.h"

#include <cstdio>

#include "datafile/DataFile.h"
#include "datafile/SingleDoc.h"
#include "framework/Messages.h"

int op_DescribeDataFile(const std::string& path, std::string& text) {
    text.clear();
    int kind = 0, reinit = 0, count = 0;
    std::string title;
    int rc = op_CheckFileHdr(path.c_str(), &kind, &reinit, &count, &title, 2);
    if (rc == IDS_NO_FILE_OPEN) rc = IDS_FILE_NOT_FOUND;
    if (rc == IDS_INVALID_HEADER) rc = IDS_INVALID_DATA_FILE;
    if (rc) return rc;
    CSingleDoc doc;
    doc.SetPathName(path, false);
    if (!doc.OnOpenDocument(path.c_str())) return IDS_INVALID_DATA_FILE;
    char line[160];
    text += "File:           " + path + '\n';
    text += "Identifier:     " + doc.m_strIdent + '\n';
    text += "Title:          " + doc.m_strTitle + '\n';
    std::snprintf(line, sizeof line, "Data kind:      %d (%s)%s\n", doc.m_nKind, op_KindText(doc.m_nKind),
                  op_IsTimePersistent(doc.m_nKind) ? ", time-persistent" : "");
    text += line;
    text += "Type text:      " + doc.m_strType + '\n';
    text += std::string("Reinitialised:  ") + (doc.m_nReinit ? "yes" : "no") + '\n';
    text += std::string("Records:        ") + (doc.m_nIsDouble ? "8-byte doubles" : "4-byte floats") + '\n';
    text += "Count field:    " + std::to_string(count) + '\n';
    // A count that is really an error id: no replication ended properly.
    if (doc.m_nReps >= 15000) {
        text += "Replications:   none complete (" + msg_Text(doc.m_nReps).substr(0, 20) + "...)\n";
        return 0;
    }
    text += "Replications:   " + std::to_string(doc.m_nReps) + '\n';
    long total = 0;
    for (int r = 1; r <= doc.m_nReps && r < doc.RepIndexSize(); ++r) {
        std::snprintf(line, sizeof line, "  replication %4d: %10d observations\n", r, doc.RepInfo(r).m_nObsCount);
        text += line;
        total += doc.RepInfo(r).m_nObsCount;
    }
    text += "Observations:   " + std::to_string(total) + "\n\n";
    return 0;
}
