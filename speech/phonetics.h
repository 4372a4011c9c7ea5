// Rewriting for the ear, as rules on texts. The odd spellings are meant for the speech engine and are kept to
// the letter.
#pragma once

#include "text/text.h"

namespace pointalk {

// Words run together are split at their capitals, digits stand apart, at most four equal characters in a row
// stay, and words that engines misread are respelt. With spelling every character stands apart and capitals
// are announced.
Text Pronounced(TextView text, bool spelling);

// The last step of the above: the phonetic word table.
Text SubstituteWords(TextView text);

// Splits a class name into words before it is pronounced: combined words get the capitals at which they are
// split.
Text WithSplitMarks(TextView className);

// A pronounced class name, in lower case, with what is only clutter removed.
Text WithoutClutter(TextView pronounced);

// The last step over class names: parts of the task bar by their usual names.
Text WithDesktopNames(TextView words);

// A clock's text as a spoken time.
Text SpokenClock(TextView text);

// What the class name of the task bar's clock becomes.
inline constexpr TextView kClockClassWords = u"tray clock w class";

}  // namespace pointalk
