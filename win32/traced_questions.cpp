#include "win32/traced_questions.h"

#include <windows.h>

#include <iterator>
#include <string>

#include "win32/wide_text.h"

namespace pointalk::win32 {
namespace {

// When the pointer came to a place, by the system's own list of its movements; 0 where that does not tell. It
// may have been there before, and whoever moves it by a program gives the time that he likes.
DWORD MillisecondsAt(Point place) {
  constexpr int kOfSignedPlace = 0xFFFF;  // the list holds places as 16 bits
  constexpr DWORD kLongestDelay = 10'000;
  MOUSEMOVEPOINT at{};
  at.x = place.x & kOfSignedPlace;
  at.y = place.y & kOfSignedPlace;
  MOUSEMOVEPOINT found[1]{};
  if (GetMouseMovePointsEx(sizeof at, &at, found, static_cast<int>(std::size(found)),
                           GMMP_USE_DISPLAY_POINTS) < 1)
    return 0;
  const DWORD passed = GetTickCount() - found[0].time;
  return passed <= kLongestDelay ? passed : 0;
}

// Why there is no answer.
std::string Failure(const UnresponsiveThreads& unresponsiveThreads, unsigned probesBefore) {
  if (unresponsiveThreads.ProbesSent() != probesBefore) return "timed out";
  return unresponsiveThreads.AllAnswer() ? "not answered"
                                         : "not answered, while some program does not answer";
}

}  // namespace

std::optional<Point> TracedInput::PointerPosition() {
  const auto place = base_.PointerPosition();
  if (place == last_) return place;
  last_ = place;
  if (place) {
    trace_.Moved(MillisecondsAt(*place));
  } else {
    trace_.Step("the system does not tell where the pointer is");
  }
  return place;
}

bool TracedInput::KeyDown(int virtualKey) {
  const bool down = base_.KeyDown(virtualKey);
  if (down) trace_.Step("key " + std::to_string(virtualKey) + " down");
  return down;
}

bool TracedInput::ReportMouse(bool on) {
  const bool done = base_.ReportMouse(on);
  trace_.State(std::string("mouse hook ") + (on ? "on" : "off") + (done ? "" : ": refused"));
  return done;
}

std::optional<AccessibleFacts> TracedAccessibility::ObjectAt(Point screen) {
  std::string asked = "asked";
  if (trace_.WithTexts()) {
    wchar_t name[256] = {};
    GetClassNameW(WindowFromPhysicalPoint({screen.x, screen.y}), name, static_cast<int>(std::size(name)));
    asked += " (class " + trace_.Shown(FromWide(name)) + ")";
  }
  trace_.Step(asked);
  const unsigned probes = unresponsiveThreads_.ProbesSent();
  auto facts = base_.ObjectAt(screen);
  const bool ranOver = unresponsiveThreads_.ProbesSent() != probes;  // and told some of it at most
  if (!facts || ranOver) trace_.Step(Failure(unresponsiveThreads_, probes));
  if (!facts) return facts;
  const auto shown = [this](const std::optional<Text>& text) { return text ? trace_.Shown(*text) : "none"; };
  trace_.Step("answered (name " + shown(facts->name) + ", role " +
              (facts->role ? std::to_string(*facts->role) : "none") + ", description " +
              shown(facts->description) + ", value " + shown(facts->value) + ")");
  return facts;
}

// Numbers come by the dozen, so only those that do not come are told.
std::optional<std::int32_t> TracedControlMessages::Send(WindowHandle window, std::uint32_t message,
                                                        std::uint64_t wParam, std::uint64_t lParam) {
  const unsigned probes = unresponsiveThreads_.ProbesSent();
  const auto answer = base_.Send(window, message, wParam, lParam);
  if (!answer)
    trace_.Step("message " + std::to_string(message) + " " + Failure(unresponsiveThreads_, probes));
  return answer;
}

template <typename Ask> std::optional<Text> TracedControlMessages::AskForText(const char* name, Ask ask) {
  const unsigned probes = unresponsiveThreads_.ProbesSent();
  auto text = ask();
  trace_.Step(name + (text ? " (" + trace_.Shown(*text) + ")" : " " + Failure(unresponsiveThreads_, probes)));
  return text;
}

std::optional<Text> TracedControlMessages::WindowText(WindowHandle window, std::int32_t capacity) {
  return AskForText("window text", [&] { return base_.WindowText(window, capacity); });
}

std::optional<Text> TracedControlMessages::EditLine(WindowHandle window, std::int32_t line,
                                                    std::int32_t capacity) {
  return AskForText("line of text", [&] { return base_.EditLine(window, line, capacity); });
}

std::optional<Text> TracedControlMessages::ListBoxText(WindowHandle window, std::int32_t item,
                                                       std::int32_t length) {
  return AskForText("list item", [&] { return base_.ListBoxText(window, item, length); });
}

int TracedDialogs::AskByBox(TextView text, TextView title, int style) {
  trace_.Step("box opened");
  const int answer = base_.AskByBox(text, title, style);
  trace_.Step("box answered by " + std::to_string(answer));
  return answer;
}

Text TracedDialogs::AskByInput(TextView prompt, TextView title, TextView proposed) {
  trace_.Step("input box opened");
  Text answer = base_.AskByInput(prompt, title, proposed);
  trace_.Step("input box answered");
  return answer;
}

// The names are those of our own menu.
void TracedPanel::SetMenuChecked(TextView name, bool checked) {
  trace_.State(std::string(name.begin(), name.end()) + (checked ? " checked" : " not checked"));
  base_.SetMenuChecked(name, checked);
}

bool TracedSystem::SetClipboard(TextView text) {
  const bool done = base_.SetClipboard(text);
  trace_.Step(done ? "clipboard set" : "clipboard refused");
  return done;
}

bool TracedSystem::ShellOpen(TextView operation, TextView file, TextView parameters, TextView directory,
                             int show) {
  const bool done = base_.ShellOpen(operation, file, parameters, directory, show);
  trace_.Step(done ? "shell has opened" : "shell has refused");
  return done;
}

void TracedSystem::EndProgram() {
  trace_.State("the program ends");
  trace_.Finish();
  base_.EndProgram();
}

}  // namespace pointalk::win32
