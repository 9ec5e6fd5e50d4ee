// oproc info FILE...: what a data file holds: its header and its replications.
#include <cstdio>
#include <ostream>

#include "Command.h"
#include "GroupArgs.h"
#include "datafile/DataFile.h"
#include "datafile/SingleDoc.h"
#include "framework/Host.h"
#include "framework/Messages.h"

namespace {

std::vector<std::string> g_files;
CliGroup g_group;

CLI::App* Setup(CLI::App& app) {
    g_files.clear();
    CLI::App* sub = app.add_subcommand("info", "Show the header and replications of data files");
    sub->add_option("FILE", g_files, "Data files (#N: the Nth file of the --group)")->required();
    g_group.AddOption(sub);
    return sub;
}

int Describe(const std::string& path, CliIO& io) {
    int kind = 0, reinit = 0, count = 0;
    std::string title;
    int rc = op_CheckFileHdr(path.c_str(), &kind, &reinit, &count, &title, 2);
    if (rc == IDS_NO_FILE_OPEN) rc = IDS_FILE_NOT_FOUND;
    if (rc == IDS_INVALID_HEADER) rc = IDS_INVALID_DATA_FILE;
    if (rc) return AfxMessageBox(rc), rc;
    CSingleDoc doc;
    doc.SetPathName(path, false);
    if (!doc.OnOpenDocument(path.c_str())) {
        AfxMessageBox(IDS_INVALID_DATA_FILE);
        return IDS_INVALID_DATA_FILE;
    }
    char line[160];
    io.out << "File:           " << path << '\n';
    io.out << "Identifier:     " << doc.m_strIdent << '\n';
    io.out << "Title:          " << doc.m_strTitle << '\n';
    std::snprintf(line, sizeof line, "Data kind:      %d (%s)%s\n", doc.m_nKind, op_KindText(doc.m_nKind),
                  op_IsTimePersistent(doc.m_nKind) ? ", time-persistent" : "");
    io.out << line;
    io.out << "Type text:      " << doc.m_strType << '\n';
    io.out << "Reinitialised:  " << (doc.m_nReinit ? "yes" : "no") << '\n';
    io.out << "Records:        " << (doc.m_nIsDouble ? "8-byte doubles" : "4-byte floats") << '\n';
    io.out << "Count field:    " << count << '\n';
    const int reps = doc.RepCount();
    if (reps >= 15000) {
        io.out << "Replications:   none complete (" << msg_Text(reps).substr(0, 20) << "...)\n";
        return 0;
    }
    io.out << "Replications:   " << reps << '\n';
    long total = 0;
    for (int r = 1; r <= reps && r < doc.RepIndexSize(); ++r) {
        std::snprintf(line, sizeof line, "  replication %4d: %10d observations\n", r, doc.RepInfo(r).m_nObsCount);
        io.out << line;
        total += doc.RepInfo(r).m_nObsCount;
    }
    io.out << "Observations:   " << total << "\n\n";
    return 0;
}

int Run(CliIO& io) {
    int rc = 0;
    std::vector<std::string> files;
    for (const std::string& f : g_files) files.push_back(g_group.Resolve(f));
    if (int r = g_group.Open()) return cli_Status(r);
    for (const std::string& f : files)
        if (int r = Describe(f, io); r && !rc) rc = r;
    return cli_Status(rc);
}

CommandRegistrar g_reg(20, Setup, Run);

}  // namespace
