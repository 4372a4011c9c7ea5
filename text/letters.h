// Upper and lower case, character by character: a character becomes one character or stays.
#pragma once

#include "text/text.h"

namespace pointalk {

char16_t ToUpper(char16_t character);
char16_t ToLower(char16_t character);

Text ToLower(TextView text);
Text ToUpper(TextView text);

// True for a character whose lower case is another character.
bool IsCapital(char16_t character);

}  // namespace pointalk
