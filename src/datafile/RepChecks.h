// Checks that parameter dialogs make on a file and its replication treatment
// before an analysis document is created. Each returns 0 or a message id.
#pragma once

#include <string>
#include <vector>

// 15804 for REP_INVALID and for values below 1 other than lumped and all.
int rep_CheckTreatment(int treatment);
// Parses the treatment text into *treatment, then checks it as above.
int rep_CheckTreatmentText(const std::string& text, int* treatment);
// 15940 when a replication number exceeds the file's replications.
int rep_CheckEnoughReps(const char* path, int treatment);
// 15810 for time-persistent kinds, and for kind 4 unless the treatment is lumped.
int rep_CheckObservationKind(int kind, int treatment);
// 15806 when a source and a destination hold different kinds of data.
int rep_CheckSameKind(const char* source, const char* destination);
// 15926 when the files of a list do not all hold the same kind of data.
int rep_CheckSameKinds(const std::vector<std::string>& paths);
// 15807 / 15808: appending needs lumped data exactly when the destination is
// not a reinitialised system.
int rep_CheckAppendReinit(int destinationReinit, int treatment);
// 15932 for analyses that cannot pool replications.
int rep_CheckNotLumped(int treatment);
