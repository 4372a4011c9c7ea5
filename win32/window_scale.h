// Windows whose programs count in other pixels than the screen's.
#pragma once

#include <windows.h>

#include <optional>

namespace pointalk::win32 {

// What systems offer for windows of other programs; null where one lacks it.
struct ScaleCalls {
  using Convert = BOOL(WINAPI*)(HWND, POINT*);

  // Those of this system.
  static ScaleCalls OfSystem();

  // Windows 10 and later: whose pixels a thread's calls count in.
  decltype(&GetWindowDpiAwarenessContext) ofWindow = nullptr;
  decltype(&GetThreadDpiAwarenessContext) ofThread = nullptr;
  decltype(&AreDpiAwarenessContextsEqual) areEqual = nullptr;
  decltype(&SetThreadDpiAwarenessContext) set = nullptr;

  Convert toOwnPerMonitor = nullptr;  // Windows 8.1 and later
  Convert toOwn = nullptr;            // does its work up to Windows 8 only

  Convert toClient = nullptr;
  Convert toScreen = nullptr;

  bool HaveAwareness() const { return ofWindow && ofThread && areEqual && set && toOwnPerMonitor; }
};

// While it lives, the thread's calls count as a window's program does, where that is not how they count
// anyway and the system can do so.
class InOwnAwareness {
 public:
  // The place is one of the screen's.
  InOwnAwareness(const ScaleCalls& system, HWND window, POINT place);
  ~InOwnAwareness();
  InOwnAwareness(const InOwnAwareness&) = delete;
  InOwnAwareness& operator=(const InOwnAwareness&) = delete;

  // The place as calls have to be given it now.
  POINT Place() const { return place_; }

 private:
  const ScaleCalls& system_;
  POINT place_;
  DPI_AWARENESS_CONTEXT before_ = nullptr;  // the thread's, to be set back; null where it was left alone
};

// A program that knows nothing of the screen's scale counts in pixels of its own, which the system enlarges.
// The system converts what it knows to be a place, but no number in a message to such a program's control.
class WindowScale {
 public:
  explicit WindowScale(const ScaleCalls& system = ScaleCalls::OfSystem()) : system_(system) {}

  // A place of the screen within a window, from the top left of its inside, as its program counts; no value
  // when there is no such window.
  std::optional<POINT> ToClient(HWND window, POINT place) const;

  // The answer of a call that compares a place of the screen with what the window's program told the system.
  template <typename Question> auto AskAt(HWND window, POINT place, Question question) const {
    const InOwnAwareness own(system_, window, place);
    return question(HasOlderCallOnly() ? OwnPlace(window, place) : own.Place());
  }

 private:
  bool HasOlderCallOnly() const { return system_.toOwnPerMonitor == nullptr && system_.toOwn != nullptr; }
  POINT OwnPlace(HWND window, POINT place) const;
  std::optional<POINT> FromTopLeft(HWND window, POINT place) const;

  ScaleCalls system_;
};

}  // namespace pointalk::win32
