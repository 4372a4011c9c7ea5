// Small rules on texts that every room needs. A blank is character 32 and nothing else.
#pragma once

#include <vector>

#include "platform/text.h"

namespace pointalk {

// Without the blanks at both ends. The view lies within the given text.
TextView Trimmed(TextView text);

// Nothing but blanks, or nothing at all.
bool IsBlank(TextView text);

bool Contains(TextView text, TextView part);

// The same, the text taken in lower case; the part must be given in lower case.
bool ContainsInLowerCase(TextView text, TextView lowerPart);

// Every occurrence replaced, scanned once from the start; an empty find changes nothing.
Text Replaced(TextView text, TextView find, TextView replacement);

// The beginning of the text up to, and not including, the first NUL.
TextView UpToNul(TextView text);

// The lines of a file's content. A line ends at CR LF or where the content ends; a lone CR or LF is a
// character of its line. Nothing stands after the last line end. The views lie within the content.
std::vector<TextView> Lines(TextView content);

}  // namespace pointalk
