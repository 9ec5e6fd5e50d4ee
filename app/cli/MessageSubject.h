// The second line of a message on the terminal: what the message concerns,
// named in the terms of the command line (the file as it was given, the
// option that fills the dialog field at fault, the replications a file has).
#pragma once

#include <string>

// Empty when the message concerns nothing the command line names.
std::string cli_MessageSubject(int id);

// One line telling that a file of several replications is read as
// replication 1, and how to choose; empty when the file's header gives one
// replication or cannot be read (the analysis reports that itself). choose
// is what the command puts before a treatment ("waits.dat@" or "--reps ").
std::string cli_ReplicationNote(const std::string& path, const std::string& choose);
