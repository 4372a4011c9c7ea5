// How one window misbehaves, and what other programs have asked of it.
#pragma once

#include <windows.h>

#include <condition_variable>
#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <string>

#include "wine/target/text.h"

namespace pointalk::target {

// What happens when another program sends a certain message.
struct Rule {
  enum class Kind {
    kDie,     // the process ends inside the message
    kResult,  // the result alone, nothing written
    kDelay,   // as always, but later
    kHold,    // as always, but not before the rule is taken away
    kText,    // another text is written, as far as the sender's buffer goes, and the result given
    kHit,     // the list view's hit test says another item and flags
    kThen,    // as always, and a command runs before the sender gets its answer
  };
  Kind kind = Kind::kResult;
  LRESULT result = 0;
  DWORD milliseconds = 0;
  std::wstring text;
  int item = 0;
  UINT flags = 0;
  std::string command;
};

// From the words after `rule NAME MESSAGE`: die | result N | delay MS | hold | text TEXT [RESULT] |
// hit ITEM FLAGS | then COMMAND. Throws CommandError.
Rule ParseRule(const CommandLine& line, std::size_t first);

// Shared by a window, its accessible objects and the command channel; callable from any thread.
class Behaviour {
 public:
  void Count(UINT message);
  void Reset();
  // A JSON object of message names and numbers.
  std::string CountsJson() const;

  void Set(UINT message, const Rule& rule);
  void Clear(UINT message);
  // The rule for the message, else the one for any message.
  std::optional<Rule> Find(UINT message) const;

  // Returns once no rule says that the message is held.
  void WaitWhileHeld(UINT message);

  // Counts a call on an accessible object, then waits or ends the process if a rule says so; true when the
  // rule says that the call fails.
  bool EnterCall(UINT call);

 private:
  const Rule* Lookup(UINT message) const;

  mutable std::mutex mutex_;
  std::condition_variable rulesChanged_;
  std::map<UINT, std::int64_t> counts_;
  std::map<UINT, Rule> rules_;
};

// Ends the process as a crash would: at once, with exit status 3.
[[noreturn]] void Die();

}  // namespace pointalk::target
