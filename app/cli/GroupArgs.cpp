#include "GroupArgs.h"

#include <charconv>
#include <filesystem>
#include <set>

#include "MessageSubject.h"
#include "datafile/DataFile.h"
#include "group/OutputDoc.h"

namespace fs = std::filesystem;

void CliGroup::AddOption(CLI::App* sub) {
    m_path.clear();
    m_opened = false;
    m_openResult = 0;
    m_files.clear();
    sub->add_option("--group", m_path, "Data group (.dgr) to start from; then #N names its Nth file");
}

int CliGroup::Open() {
    if (m_opened) return m_openResult;
    m_opened = true;
    CSession& session = cli_Session();
    m_openResult = session.OpenGroup(m_path);
    if (m_openResult == 0 && Given()) {
        std::error_code ec;
        for (int i = 0; i < session.Group().GetItemCount(); ++i)
            m_files.push_back(fs::absolute(session.Group().ItemPath(i), ec).lexically_normal().string());
    }
    return m_openResult;
}

std::string CliGroup::Resolve(const std::string& arg) {
    if (arg.size() < 2 || arg[0] != '#') return arg;
    // A group that cannot be read has been reported; the command stops on it.
    if (Open()) return arg;
    long n = 0;
    auto [end, err] = std::from_chars(arg.data() + 1, arg.data() + arg.size(), n);
    if (err != std::errc() || end != arg.data() + arg.size()) return arg;
    if (!Given()) throw CLI::ValidationError(arg, "#N names a file of the data group given with --group");
    if (n < 1 || n > static_cast<long>(m_files.size()))
        throw CLI::ValidationError(arg, "the data group " + m_path + " holds " + std::to_string(m_files.size()) +
                                            (m_files.size() == 1 ? " file" : " files"));
    return m_files[static_cast<std::size_t>(n - 1)];
}

FileArg CliGroup::ParseFileArg(const std::string& arg) {
    FileArg f = cli_ParseFileArg(arg);
    if (op_ParseRepTreatment(f.reps.c_str()) == REP_INVALID)
        throw CLI::ValidationError(arg, "REPS after @ must be a replication number, All or Lumped");
    f.path = Resolve(f.path);
    return f;
}

std::vector<FileArg> CliGroup::ParseFileArgs(const std::vector<std::string>& args) {
    std::vector<FileArg> files;
    for (const std::string& a : args) files.push_back(ParseFileArg(a));
    std::set<std::string> noted;
    for (const FileArg& f : files)
        if (f.reps.empty() && noted.insert(f.path).second) cli_Host().Note(cli_ReplicationNote(f.path, f.path + "@"));
    return files;
}
