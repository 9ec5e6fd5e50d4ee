// One data file of a data group: its path, the line the group's view shows for
// it, and the file's last-write time when that line was made, so that an
// unchanged file is not read again to refresh its line.
#pragma once

#include <cstdint>
#include <string>

#include "framework/Object.h"

class CDGItem : public CObject {
public:
    static constexpr std::int64_t kUnknownTime = -1;  // both 32-bit halves -1

    CDGItem() = default;  // for reading from an archive
    // Stores path and describes the file; when that succeeds the file's current
    // last-write time is kept.
    explicit CDGItem(const std::string& path);

    // Makes the description line. With checkChanged the file is read again
    // only if its last-write time differs from the stored one; a missing file
    // gives 15811. Returns 0 or a message id; on a failure the line is the path
    // and ", <error accessing file>". The file is read at where (the item's
    // path resolved by its group), or at its path when where is empty; the
    // line always shows the path.
    int Describe(bool checkChanged, const std::string& where = {});

    void Serialize(CArchive& ar) override;
    const CRuntimeClass* GetRuntimeClass() const override { return &classCDGItem; }
    static const CRuntimeClass classCDGItem;

    std::int64_t m_time = kUnknownTime;  // seconds since 1970, or kUnknownTime
    std::string m_strDescription;
    std::string m_strPath;
};

// The last-write time of a file in whole seconds; false when it has no status.
bool grp_FileTime(const std::string& path, std::int64_t* time);
