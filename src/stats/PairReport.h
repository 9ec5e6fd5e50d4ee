// Report lines shared by the two pair analyses.
#pragma once

#include <cstdio>
#include <string>

// B's line of a pair: minimum, maximum and count. An identifier of at most 20
// characters (all of it on A's line) gives the plain line shortFmt. A longer one
// gives longFmt, whose first column carries characters 21 to 40 (22 to 41 when
// character 21 is a blank, so that a word break does not start the column),
// and, for identifiers longer than 40, one further line with the rest.
void pair_WriteSecondLine(FILE* f, const std::string& ident, int shortFmt, int longFmt, double min, double max,
                          long n);
