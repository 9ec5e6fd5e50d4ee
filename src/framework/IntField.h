// The dialog framework's exchange of a whole-number field: the text must be an
// integer, blanks and tabs around it allowed, within the field's range. The
// framework shows its own texts (they have no string id).
#pragma once

#include <string>

// True with *value set; otherwise false with the framework's text in *message.
bool ddx_IntField(const std::string& text, int min, int max, int* value, std::string* message);
