// Path questions the dialogs ask about the file names a user typed.
#pragma once

#include <string>

// True when both names lead to the same file: the same existing file (links
// followed), or the same place once made absolute and normalised.
bool fn_SameFile(const std::string& a, const std::string& b);

// True when the last component of the path has an extension ("out.flt", "a.").
bool fn_HasExtension(const std::string& path);
