// UTF-8, in which scripts and transcripts are written.
#pragma once

#include <string>
#include <string_view>

#include "text/text.h"

namespace pointalk::sim {

// True for valid UTF-8 that holds a character beyond U+FFFF.
bool HasSupplementaryCharacters(std::string_view utf8);

// Valid UTF-8 without characters beyond U+FFFF as UTF-16.
Text FromUtf8(std::string_view utf8);

void AppendUtf8(TextView text, std::string& out);

// As a JSON string: only `"`, `\` and the characters below 32 are escaped.
void AppendQuoted(std::string_view utf8, std::string& out);
void AppendQuoted(TextView text, std::string& out);

}  // namespace pointalk::sim
