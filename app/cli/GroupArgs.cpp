#include "GroupArgs.h"

#include <charconv>
#include <filesystem>

#include "framework/Host.h"
#include "framework/Messages.h"
#include "group/OutputDoc.h"
#include "group/OutputView.h"

namespace fs = std::filesystem;

CliGroup::CliGroup() = default;
CliGroup::~CliGroup() = default;
CliGroup::CliGroup(CliGroup&&) noexcept = default;
CliGroup& CliGroup::operator=(CliGroup&&) noexcept = default;

void CliGroup::AddOption(CLI::App* sub) {
    m_path.clear();
    m_opened = false;
    m_openResult = 0;
    m_view.reset();
    m_doc.reset();
    m_files.clear();
    sub->add_option("--group", m_path, "Data group (.dgr) to start from; then #N names its Nth file");
}

int CliGroup::Open() {
    if (m_opened) return m_openResult;
    m_opened = true;
    m_openResult = Read();
    return m_openResult;
}

int CliGroup::Read() {
    m_doc = std::make_unique<COutputDoc>();
    m_view = std::make_unique<COutputView>(m_doc.get());
    if (m_path.empty()) {
        m_doc->OnNewDocument();
    } else {
        std::error_code ec;
        if (!fs::is_regular_file(m_path, ec)) {
            AfxMessageBox(IDS_FILE_NOT_FOUND);
            return IDS_FILE_NOT_FOUND;
        }
        fs::path shellDir = fs::current_path(ec);
        bool ok = m_doc->OnOpenDocument(m_path.c_str());
        // Relative paths inside the group resolve against its folder, current now.
        for (int i = 0; ok && i < m_doc->GetItemCount(); ++i)
            m_files.push_back(fs::absolute(m_doc->GetItem(i)->m_strPath, ec).lexically_normal().string());
        fs::current_path(shellDir, ec);
        if (!ok) return IDS_BAD_FORMAT;
    }
    m_view->OnUpdate();
    return 0;
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
    f.path = Resolve(f.path);
    return f;
}

std::vector<FileArg> CliGroup::ParseFileArgs(const std::vector<std::string>& args) {
    std::vector<FileArg> files;
    for (const std::string& a : args) files.push_back(ParseFileArg(a));
    return files;
}
