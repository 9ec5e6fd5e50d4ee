// What a data file holds, as text for a person: the header's fields and the
// number of observations in each replication. Both hosts show this text.
#pragma once

#include <string>
#include <vector>

// The fields the description shows.
struct DataFileInfo {
    std::string path;
    std::string ident;
    std::string title;
    int kind = 0;
    std::string typeText;
    bool reinitialised = false;
    bool doubles = true;  // 8-byte records, else 4-byte
    int countField = 0;
    // Observations per replication; empty with repsError set when no
    // replication ended properly (the count's message id).
    int replications = 0;  // the file's count of them
    std::vector<long> observations;
    int repsError = 0;
};

// Reads the description of the data file at path. Returns 0 or the id of the
// message to show for a file that cannot be described; messages that arise
// while the file is opened are shown on the way.
int op_ReadDataFileInfo(const std::string& path, DataFileInfo* info);

// The description as text.
std::string op_DataFileInfoText(const DataFileInfo& info);

// Fills text with the description of the data file at path (the two above).
int op_DescribeDataFile(const std::string& path, std::string& text);
