#include "sim/dialogs.h"

#include "sim/code_page.h"
#include "sim/script_error.h"

namespace pointalk::sim {
namespace {

constexpr int kMostUnanswered = 100;  // in one step

}  // namespace

std::optional<Answer> SimDialogs::NextAnswer() {
  if (machine_.answers.empty()) {
    if (++machine_.unansweredQuestions == kMostUnanswered) {
      throw ScriptError{"asks " + std::to_string(kMostUnanswered) +
                        " questions for which there is no answer"};
    }
    return std::nullopt;
  }
  Answer answer = machine_.answers.front();
  machine_.answers.pop_front();
  return answer;
}

int SimDialogs::AskByBox(TextView text, TextView title, int style) {
  constexpr int kButtons = 15;  // what else a style holds does not change the buttons
  const bool offersNo = (style & kButtons) == kBoxYesNo || (style & kButtons) == kBoxYesNoCancel;
  int pressed = offersNo ? kAnswerNo : kAnswerOk;
  if (const auto answer = NextAnswer()) {
    const int* const button = std::get_if<int>(&*answer);
    if (button == nullptr) throw ScriptError{"a message box gets an answer that is typed text"};
    pressed = *button;
  }
  machine_.Record("box", style, ThroughAnsi(title), ThroughAnsi(text), "->", pressed);
  return pressed;
}

Text SimDialogs::AskByInput(TextView prompt, TextView title, TextView proposed) {
  Text typed;
  if (const auto answer = NextAnswer()) {
    if (const Text* const text = std::get_if<Text>(&*answer)) {
      typed = *text;
    } else if (std::get<int>(*answer) != kAnswerCancel) {
      throw ScriptError{"an input box gets an answer that is neither typed text nor cancel"};
    }
  }
  machine_.Record("input", ThroughAnsi(title), ThroughAnsi(prompt), ThroughAnsi(proposed), "->", typed);
  return typed;
}

}  // namespace pointalk::sim
