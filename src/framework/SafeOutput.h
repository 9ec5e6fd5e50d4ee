// An output file written under a temporary name beside its target and renamed
// into place only when complete: a failed run never leaves a half-written file
// under the target name, and an existing file survives until the new one is whole.
#pragma once

#include <string>

class CSafeOutput {
public:
    // An empty target means no output; TempPath is then empty too.
    explicit CSafeOutput(std::string target);
    ~CSafeOutput();  // removes the temporary file unless committed
    CSafeOutput(const CSafeOutput&) = delete;
    CSafeOutput& operator=(const CSafeOutput&) = delete;

    const std::string& Target() const { return m_target; }
    const std::string& TempPath() const { return m_temp; }
    // Renames the temporary file onto the target; false when that fails.
    bool Commit();

private:
    std::string m_target;
    std::string m_temp;
    bool m_committed = false;
};
