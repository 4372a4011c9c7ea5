// What the companion answers, as the tests have written it down.
//
// The environment variable POINTALK_AUTOMATION names a file of lines, which is read anew for each question.
// The last line whose rectangle holds the place answers:
//
//   rect=L,T,R,B [name=] [role=N] [description=] [value=] [state=N] [password=1] [fails=password,...]
//   [delay=MS]
//
// in the words of the target's commands. `fails` names what cannot be told: "all" is the question itself.
// `hold` has the question wait until the file says something else.
#pragma once

#include <windows.h>

#include <optional>

#include "wine/target/text.h"

namespace pointalk::wine {

// Whether there are any to be given.
bool HaveAnswers();

// No value where no line has the place. Waits while the answer is held.
std::optional<target::CommandLine> AnswerAt(POINT place);

bool Fails(const target::CommandLine& answer, std::wstring_view what);

}  // namespace pointalk::wine
