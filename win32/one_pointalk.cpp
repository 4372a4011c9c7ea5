#include "win32/one_pointalk.h"

#include "win32/late_procedure.h"
#include "win32/panel.h"

namespace pointalk::win32 {
namespace {

constexpr wchar_t kOne[] = L"Local\\Pointalk.One";  // a session has names of its own
constexpr wchar_t kMark[] = L"Pointalk.Panel";      // of the panel's window
constexpr ULONGLONG kSecondStartLimit = 10'000;     // milliseconds, for all that a second start waits for
constexpr DWORD kPollInterval = 50;                 // milliseconds
constexpr LRESULT kComesForward = 0x50544B;

// Whether the name was free; then it is ours. The system frees it when the process is gone, killed or not.
// Where the system cannot tell, Pointalk runs.
bool TakeName() {
  const HANDLE one = CreateMutexW(nullptr, FALSE, kOne);
  const DWORD outcome = GetLastError();
  if (one == nullptr) return outcome != ERROR_ACCESS_DENIED;  // of one with more rights, or of another user
  if (outcome != ERROR_ALREADY_EXISTS) return true;
  CloseHandle(one);
  return false;
}

HWND FindPanel() {
  HWND panel = nullptr;
  do {
    panel = FindWindowExW(nullptr, panel, kPanelClass, nullptr);
  } while (panel != nullptr && GetPropW(panel, kMark) == nullptr);
  return panel;
}

// The user has just started this process, which may therefore let another one come to the front.
bool AskToComeForward(HWND panel, UINT limit) {
  DWORD process = 0;
  GetWindowThreadProcessId(panel, &process);
  AllowSetForegroundWindow(process);
  DWORD_PTR answer = 0;
  return SendMessageTimeoutW(panel, ComeForwardMessage(), 0, 0, SMTO_NORMAL | SMTO_ERRORONEXIT, limit,
                             &answer) != 0 &&
         answer == kComesForward;
}

}  // namespace

// The panel is not there yet when both were started at once, and not any more when the other one ends. It
// does not say that it comes while a text is spoken that the program waits for.
bool BecomeTheOne() {
  const ULONGLONG end = GetTickCount64() + kSecondStartLimit;
  while (!TakeName()) {
    const ULONGLONG now = GetTickCount64();
    if (now >= end) return false;
    const HWND panel = FindPanel();
    if (panel != nullptr && AskToComeForward(panel, static_cast<UINT>(end - now))) return false;
    Sleep(kPollInterval);
  }
  return true;
}

// Where Pointalk runs with more rights than the second start, the system keeps messages from it that it has
// not allowed.
void ShowToSecondStarts(HWND panel) {
  const auto allow =
      LateProcedure<decltype(&ChangeWindowMessageFilterEx)>(L"user32.dll", "ChangeWindowMessageFilterEx");
  if (allow != nullptr) allow(panel, ComeForwardMessage(), MSGFLT_ALLOW, nullptr);
  SetPropW(panel, kMark, panel);
}

void HideFromSecondStarts(HWND panel) { RemovePropW(panel, kMark); }

LRESULT AnswerToSecondStart(HWND panel) { return GetPropW(panel, kMark) != nullptr ? kComesForward : 0; }

UINT ComeForwardMessage() {
  static const UINT message = RegisterWindowMessageW(L"Pointalk.ComeForward");
  return message;
}

}  // namespace pointalk::win32
