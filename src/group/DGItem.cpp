#include "group/DGItem.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <filesystem>

#include "datafile/DataFile.h"
#include "framework/Archive.h"
#include "framework/Messages.h"

namespace {

CObject* CreateItem() { return new CDGItem; }

const AFX_CLASSINIT g_init(&CDGItem::classCDGItem);

// The type texts by data kind, taken once from the data-file layer's table.
const std::string& TypeText(int kind) {
    static const auto texts = [] {
        std::array<std::string, 8> t;
        for (int k = 1; k <= 7; ++k) t[static_cast<std::size_t>(k)] = op_KindText(k);
        return t;
    }();
    static const std::string none;
    return (kind >= 1 && kind <= 7) ? texts[static_cast<std::size_t>(kind)] : none;
}

}  // namespace

const CRuntimeClass CDGItem::classCDGItem{"CDGItem", 1 | VERSIONABLE_SCHEMA, &CreateItem, &CObject::classCObject};

bool grp_FileTime(const std::string& path, std::int64_t* time) {
    std::error_code ec;
    auto written = std::filesystem::last_write_time(path, ec);
    if (ec) return false;
    auto sys = std::chrono::file_clock::to_sys(written);
    *time = std::chrono::floor<std::chrono::seconds>(sys.time_since_epoch()).count();
    return true;
}

CDGItem::CDGItem(const std::string& path) : m_strPath(path) {
    if (Describe(false) == 0) {
        std::int64_t t = kUnknownTime;
        if (grp_FileTime(m_strPath, &t)) m_time = t;
    }
}

int CDGItem::Describe(bool checkChanged, const std::string& where) {
    const std::string& file = where.empty() ? m_strPath : where;
    if (checkChanged) {
        std::int64_t now = 0;
        if (!grp_FileTime(file, &now)) {
            m_strDescription = m_strPath + msg_Text(IDS_ERROR_ACCESSING_FILE);
            return IDS_FILE_NOT_FOUND;
        }
        if (now == m_time) return 0;
        m_time = now;
    }
    int kind = 0, reinit = 0, count = 0;
    std::string title;
    int rc = op_CheckFileHdr(file.c_str(), &kind, &reinit, &count, &title, 2);
    long reps = 0;
    if (rc == 0) {
        // An error id from the count is positive and shows as the count.
        reps = op_CountReps(file.c_str());
        if (reps <= 0) rc = IDS_INVALID_DATA_FILE;
    }
    if (rc) {
        m_strDescription = m_strPath + msg_Text(IDS_ERROR_ACCESSING_FILE);
        return rc;
    }
    char number[32];
    std::snprintf(number, sizeof number, reps < 10 ? "%1ld" : reps < 100 ? "%2ld" : "%4ld", reps);
    m_strDescription = m_strPath + ", " + number + ", " + TypeText(kind);
    if (!title.empty()) m_strDescription += ", " + title;
    return 0;
}

void CDGItem::Serialize(CArchive& ar) {
    if (ar.IsStoring()) {
        auto bits = static_cast<unsigned long long>(m_time);
        ar << m_strPath << m_strDescription << static_cast<unsigned int>(bits)
           << static_cast<unsigned int>(bits >> 32);
        return;
    }
    if (ar.GetObjectSchema() != 1) {
        ar.Fail(CArchive::badSchema);
        return;
    }
    unsigned int low = 0, high = 0;
    ar >> m_strPath >> m_strDescription >> low >> high;
    m_time = static_cast<std::int64_t>((static_cast<unsigned long long>(high) << 32) | low);
}
