// Questions that have a limit, asked on a machine that may be busy.
#pragma once

#ifdef _WIN32
#include <windows.h>
#endif

#include <chrono>
#include <thread>

namespace pointalk::contract {

// What another thread answered after its limit comes in when messages are handled; until then it counts as
// unresponsive, and is asked nothing.
inline void LetAnswersIn() {
#ifdef _WIN32
  MSG message;
  PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);
#endif
}

// Asks until there is an answer, for a minute at most: where other programs work, one takes longer than a
// question waits.
template <typename Question> auto Answered(Question ask) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(1);
  auto answer = ask();
  while (!answer && std::chrono::steady_clock::now() < end) {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    LetAnswersIn();
    answer = ask();
  }
  return answer;
}

}  // namespace pointalk::contract
