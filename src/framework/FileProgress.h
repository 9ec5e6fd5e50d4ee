// The reading of one file reported to the host (IHost::Progress) as bytes
// read of its size, by the readers that take a file in large blocks. The size
// is asked for at the first report, so a file read in one block costs no
// more than its open.
#pragma once

#include <cstdint>
#include <string>

class CFileProgress {
public:
    // A new file; nothing is reported until Report.
    void Start(const std::string& path);
    // The bytes read so far. False when the user asked to stop, which the
    // reader takes as a read error.
    bool Report(std::int64_t done);

private:
    std::string m_path;
    double m_size = -1;  // unknown until the first report; 0 for no size (a pipe)
};
