#include "win32/control_messages.h"

#include <richedit.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>

#include "win32/ansi.h"
#include "win32/password_field.h"
#include "win32/wide_text.h"
#include "win32/window_handles.h"

namespace pointalk::win32 {
namespace {

constexpr UINT kLimit = 100;  // milliseconds

// Milliseconds, for all that a thread is asked once the pointer has left it.
constexpr ULONGLONG kLeftLimit = 60;

// Messages that other programs send to us are let in while we wait: one that sends us something while it
// answers would otherwise wait for us, and we for it, to the end of the limit.
constexpr UINT kHowToWait = SMTO_NORMAL | SMTO_ABORTIFHUNG;

constexpr std::int32_t kLongestText = 1024 * 1024;  // characters
constexpr std::int32_t kLongestLine = 65'535;
constexpr std::int32_t kLongestItem = 65'536;

// The messages that text fields answer with their text, a part of it, or its length.
constexpr UINT kAskForText[] = {WM_GETTEXT,   WM_GETTEXTLENGTH, EM_GETHANDLE,
                                EM_GETLINE,   EM_GETSELTEXT,    EM_GETTEXTRANGE,
                                EM_STREAMOUT, EM_GETTEXTEX,     EM_GETTEXTLENGTHEX};

bool AsksForText(UINT message) {
  return std::find(std::begin(kAskForText), std::end(kAskForText), message) != std::end(kAskForText);
}

LPARAM Address(wchar_t* text) { return reinterpret_cast<LPARAM>(text); }

// The control answered with a count but left the size of the buffer, which is no character, at its beginning.
// What comes back behind it need not be what we sent: the system may carry the other program's memory over.
bool IsUntouched(const wchar_t* line) { return line[0] == kLongestLine; }

}  // namespace

std::optional<std::int32_t> WinControlMessages::Ask(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  const auto ask = [this](HWND field, UINT question) { return AskOpenly(field, question, 0, 0); };
  if (AsksForText(message) && HoldsPassword(window, ask)) return std::nullopt;
  return AskOpenly(window, message, wParam, lParam);
}

std::optional<std::int32_t> WinControlMessages::AskOpenly(HWND window, UINT message, WPARAM wParam,
                                                          LPARAM lParam) {
  if (answerTime_.IsOver(GetTickCount64()) || !unresponsiveThreads_.MayAsk(window)) return std::nullopt;
  DWORD_PTR result = 0;
  const ULONGLONG begin = GetTickCount64();
  SetLastError(0);
  const bool answered =
      SendMessageTimeoutW(window, message, wParam, lParam, kHowToWait, kLimit, &result) != 0;
  const DWORD error = GetLastError();
  const ULONGLONG end = GetTickCount64();
  answerTime_.Add(begin, end);
  if (answered) {
    CountTime(window, begin, end);
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(result));
  }
  if (ShowsUnresponsive(error)) unresponsiveThreads_.TimedOut(window);
  return std::nullopt;
}

// A slow control that the pointer has left is not asked the rest: what is under the pointer now waits to be
// named. The clock advances in steps of several milliseconds, so most answers take 0 by it and cost no look
// at the pointer.
void WinControlMessages::CountTime(HWND window, ULONGLONG begin, ULONGLONG end) {
  if (begin == end) return;
  if (begin > lastSlowAnswer_ + kLimit) takenSinceLeft_ = 0;  // an earlier control's
  lastSlowAnswer_ = end;
  if (ThreadUnderPointer() == GetWindowThreadProcessId(window, nullptr)) return;
  takenSinceLeft_ += end - begin;
  if (takenSinceLeft_ >= kLeftLimit) unresponsiveThreads_.TimedOut(window);
}

std::optional<std::int32_t> WinControlMessages::Send(WindowHandle window, std::uint32_t message,
                                                     std::uint64_t wParam, std::uint64_t lParam) {
  return Ask(ToWindow(window), message, static_cast<WPARAM>(wParam), static_cast<LPARAM>(lParam));
}

std::optional<Text> WinControlMessages::WindowText(WindowHandle window, std::int32_t capacity) {
  capacity = std::clamp(capacity, 0, kLongestText);
  std::wstring text(static_cast<std::size_t>(capacity), L'\0');
  const auto count = Ask(ToWindow(window), WM_GETTEXT, static_cast<WPARAM>(capacity), Address(text.data()));
  if (!count) return std::nullopt;
  if (capacity == 0) return Text();
  text.back() = L'\0';
  return ThroughAnsi(FromWide(text.c_str()));
}

// The control reads from the first word how much it may write. It is always told of the most that a word can
// tell: where that word is lost on the way, as Wine 8 loses it, a control writes the whole line, and must not
// write it beyond the buffer.
std::optional<Text> WinControlMessages::EditLine(WindowHandle window, std::int32_t line,
                                                 std::int32_t capacity) {
  const auto wanted = static_cast<std::size_t>(std::clamp(capacity, 0, kLongestLine));
  wchar_t* const buffer = texts_.Cleared(wanted + 2);
  if (buffer == nullptr) return std::nullopt;
  buffer[0] = static_cast<wchar_t>(kLongestLine);
  const auto count = Ask(ToWindow(window), EM_GETLINE, static_cast<WPARAM>(line), Address(buffer));
  if (!count || *count < 0 || *count > kLongestLine) return std::nullopt;
  const std::wstring_view text(buffer, std::min(wanted, static_cast<std::size_t>(*count)));
  return IsUntouched(buffer) ? Text() : ThroughAnsi(FromWide(text));
}

std::optional<Text> WinControlMessages::ListBoxText(WindowHandle window, std::int32_t item,
                                                    std::int32_t length) {
  if (length < 1 || length > kLongestItem) return std::nullopt;
  const auto characters = static_cast<std::size_t>(length);
  wchar_t* const buffer = texts_.Cleared(characters);
  if (buffer == nullptr) return std::nullopt;
  if (!Ask(ToWindow(window), LB_GETTEXT, static_cast<WPARAM>(item), Address(buffer))) return std::nullopt;
  Text text = ThroughAnsi(FromWide({buffer, characters}));
  text.resize(characters);
  return text;
}

}  // namespace pointalk::win32
