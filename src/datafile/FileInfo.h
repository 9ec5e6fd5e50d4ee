// What a data file holds, as text for a person: the header's fields and the
// number of observations in each replication. Both hosts show this text.
#pragma once

#include <string>

// Fills text with the description of the data file at path. Returns 0 or the
// id of the message to show for a file that cannot be described; messages
// that arise while the file is opened are shown on the way.
int op_DescribeDataFile(const std::string& path, std::string& text);
