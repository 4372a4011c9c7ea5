#include "wine/target/behaviour.h"

#include <cstdlib>

#include "wine/target/messages.h"

namespace pointalk::target {

void Die() {
  TerminateProcess(GetCurrentProcess(), 3);
  std::abort();
}

Rule ParseRule(const CommandLine& line, std::size_t first) {
  const std::wstring& kind = line.Word(first);
  const auto number = [&](std::size_t offset) { return ParseNumber(line.Word(first + offset)); };
  Rule rule;
  if (kind == L"die") {
    rule.kind = Rule::Kind::kDie;
  } else if (kind == L"result") {
    rule.kind = Rule::Kind::kResult;
    rule.result = static_cast<LRESULT>(number(1));
  } else if (kind == L"delay") {
    rule.kind = Rule::Kind::kDelay;
    rule.milliseconds = static_cast<DWORD>(number(1));
  } else if (kind == L"hold") {
    rule.kind = Rule::Kind::kHold;
  } else if (kind == L"text") {
    rule.kind = Rule::Kind::kText;
    rule.text = line.Word(first + 1);
    rule.result =
        line.Count() > first + 2 ? static_cast<LRESULT>(number(2)) : static_cast<LRESULT>(rule.text.size());
  } else if (kind == L"hit") {
    rule.kind = Rule::Kind::kHit;
    rule.item = static_cast<int>(number(1));
    rule.flags = static_cast<UINT>(number(2));
  } else if (kind == L"then") {
    rule.kind = Rule::Kind::kThen;
    rule.command = ToAnsi(line.Word(first + 1));
  } else {
    throw CommandError("unknown rule " + JsonText(kind));
  }
  return rule;
}

void Behaviour::Count(UINT message) {
  const std::scoped_lock lock(mutex_);
  ++counts_[message];
}

void Behaviour::Reset() {
  const std::scoped_lock lock(mutex_);
  counts_.clear();
}

std::string Behaviour::CountsJson() const {
  const std::scoped_lock lock(mutex_);
  JsonObject counts;
  for (const auto& [message, count] : counts_) counts.Number(MessageName(message), count);
  return counts.Line();
}

void Behaviour::Set(UINT message, const Rule& rule) {
  const std::scoped_lock lock(mutex_);
  rules_[message] = rule;
  rulesChanged_.notify_all();
}

void Behaviour::Clear(UINT message) {
  const std::scoped_lock lock(mutex_);
  if (message == kAnyMessage)
    rules_.clear();
  else
    rules_.erase(message);
  rulesChanged_.notify_all();
}

const Rule* Behaviour::Lookup(UINT message) const {
  for (const UINT key : {message, kAnyMessage}) {
    const auto found = rules_.find(key);
    if (found != rules_.end()) return &found->second;
  }
  return nullptr;
}

std::optional<Rule> Behaviour::Find(UINT message) const {
  const std::scoped_lock lock(mutex_);
  const Rule* const rule = Lookup(message);
  return rule ? std::optional(*rule) : std::nullopt;
}

void Behaviour::WaitWhileHeld(UINT message) {
  std::unique_lock lock(mutex_);
  rulesChanged_.wait(lock, [&] {
    const Rule* const rule = Lookup(message);
    return !rule || rule->kind != Rule::Kind::kHold;
  });
}

bool Behaviour::EnterCall(UINT call) {
  Count(call);
  const auto rule = Find(call);
  if (!rule) return false;
  if (rule->kind == Rule::Kind::kDie) Die();
  if (rule->kind == Rule::Kind::kDelay) Sleep(rule->milliseconds);
  if (rule->kind == Rule::Kind::kHold) WaitWhileHeld(call);
  return rule->kind == Rule::Kind::kResult;
}

}  // namespace pointalk::target
