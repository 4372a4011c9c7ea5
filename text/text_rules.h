// Small rules on texts. A blank is character 32 and no other.
#pragma once

#include <vector>

#include "text/text.h"

namespace pointalk {

// Without the blanks at both ends. The view lies within the given text.
TextView Trimmed(TextView text);

// True for a text of blanks only, and for an empty one.
bool IsBlank(TextView text);

bool Contains(TextView text, TextView part);

// The same, the text taken in lower case; the part must be given in lower case.
bool ContainsInLowerCase(TextView text, TextView lowerPart);

// Every occurrence replaced, scanned once from the start; an empty find leaves the text as it is.
Text Replaced(TextView text, TextView find, TextView replacement);

// The beginning of the text up to, and not including, the first NUL.
TextView UpToNul(TextView text);

// The lines of a file's content. A line ends at CR LF or where the content ends; a lone CR or LF is a
// character of its line. A line end at the end of the content begins no further line. The views lie within
// the content.
std::vector<TextView> Lines(TextView content);

}  // namespace pointalk
