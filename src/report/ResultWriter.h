// Writes a ResultValue for scripts: as JSON, or one list of it as CSV.
//
// JSON numbers take the shortest text that reads back to the same double, so
// a script sees every digit the analysis computed; JSON has no NaN or
// infinity, so those are written as null. Bytes of a string that are not
// UTF-8 (an old data file's title) are written as the Latin-1 character of
// that byte, so the output always parses.
//
// CSV follows RFC 4180: CRLF line ends, a header row, fields holding a comma,
// a quote or a line end in quotes with quotes doubled. A null or non-finite
// number is an empty field; a list or object in a field is its compact JSON.
#pragma once

#include <iosfwd>
#include <string>

#include "report/ResultValue.h"

// The JSON text of a number: shortest round trip, "null" when not finite.
std::string res_JsonNumber(double x);

// The JSON text of v; indented by two spaces per level when pretty, with
// objects and lists that hold only scalars kept on one line.
std::string res_JsonText(const ResultValue& v, bool pretty);

// Writes v as pretty JSON followed by a line end.
void res_WriteJson(std::ostream& out, const ResultValue& v);

// Writes rows (a list of objects) as CSV: the header is every key met, in the
// order first met; a row without a key leaves its field empty. A list of
// scalars is written as one column named "value".
void res_WriteCsv(std::ostream& out, const ResultValue& rows);
