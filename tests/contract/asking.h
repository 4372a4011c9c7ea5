// Questions that have a limit, asked on a machine that may be busy.
#pragma once

#include <chrono>
#include <thread>

namespace pointalk::contract {

// Asks until there is an answer, for a minute at most: where other programs work, one takes longer than a
// question waits.
template <typename Question> auto Answered(Question ask) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(1);
  auto answer = ask();
  while (!answer && std::chrono::steady_clock::now() < end) {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    answer = ask();
  }
  return answer;
}

}  // namespace pointalk::contract
