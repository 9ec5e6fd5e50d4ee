#include "datafile/FileInfo.h"

#include <cstdio>

#include "datafile/DataFile.h"
#include "datafile/SingleDoc.h"
#include "framework/Messages.h"

int op_ReadDataFileInfo(const std::string& path, DataFileInfo* info) {
    *info = DataFileInfo{};
    int kind = 0, reinit = 0, count = 0;
    std::string title;
    int rc = op_CheckFileHdr(path.c_str(), &kind, &reinit, &count, &title, 2);
    if (rc == IDS_NO_FILE_OPEN) rc = IDS_FILE_NOT_FOUND;
    if (rc == IDS_INVALID_HEADER) rc = IDS_INVALID_DATA_FILE;
    if (rc) return rc;
    CSingleDoc doc;
    doc.SetPathName(path, false);
    if (!doc.OnOpenDocument(path.c_str())) return IDS_INVALID_DATA_FILE;
    info->path = path;
    info->ident = doc.m_strIdent;
    info->title = doc.m_strTitle;
    info->kind = doc.m_nKind;
    info->typeText = doc.m_strType;
    info->reinitialised = doc.m_nReinit != 0;
    info->doubles = doc.m_nIsDouble != 0;
    info->countField = count;
    // A count that is really an error id: no replication ended properly.
    const int reps = doc.RepCount();
    if (reps >= 15000) {
        info->repsError = reps;
        return 0;
    }
    info->replications = reps;
    for (int r = 1; r <= reps && r < doc.RepIndexSize(); ++r) info->observations.push_back(doc.RepInfo(r).m_nObsCount);
    return 0;
}

std::string op_DataFileInfoText(const DataFileInfo& info) {
    std::string text;
    char line[160];
    text += "File:           " + info.path + '\n';
    text += "Identifier:     " + info.ident + '\n';
    text += "Title:          " + info.title + '\n';
    std::snprintf(line, sizeof line, "Data kind:      %d (%s)%s\n", info.kind, op_KindText(info.kind),
                  op_IsTimePersistent(info.kind) ? ", time-persistent" : "");
    text += line;
    text += "Type text:      " + info.typeText + '\n';
    text += std::string("Reinitialised:  ") + (info.reinitialised ? "yes" : "no") + '\n';
    text += std::string("Records:        ") + (info.doubles ? "8-byte doubles" : "4-byte floats") + '\n';
    text += "Count field:    " + std::to_string(info.countField) + '\n';
    if (info.repsError) {
        text += "Replications:   none complete (" + msg_Text(info.repsError).substr(0, 20) + "...)\n";
        return text;
    }
    text += "Replications:   " + std::to_string(info.replications) + '\n';
    long total = 0;
    for (std::size_t r = 0; r < info.observations.size(); ++r) {
        std::snprintf(line, sizeof line, "  replication %4d: %10ld observations\n", static_cast<int>(r + 1),
                      info.observations[r]);
        text += line;
        total += info.observations[r];
    }
    text += "Observations:   " + std::to_string(total) + "\n\n";
    return text;
}

int op_DescribeDataFile(const std::string& path, std::string& text) {
    text.clear();
    DataFileInfo info;
    if (int rc = op_ReadDataFileInfo(path, &info)) return rc;
    text = op_DataFileInfoText(info);
    return 0;
}
