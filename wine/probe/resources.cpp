#include <windows.h>

#include <winternl.h>

#include <cstddef>
#include <vector>

#include "wine/probe/questions.h"

namespace pointalk::probe {
namespace {

using target::JsonObject;

constexpr int kExtendedHandleInformation = 64;  // not among the header's classes
constexpr NTSTATUS kTooSmall = static_cast<NTSTATUS>(0xC0000004);

// The beginning of what the system tells of its handles, and each of them.
struct HandleList {
  ULONG_PTR count;
  ULONG_PTR reserved;
};
struct HandleEntry {
  void* object;
  ULONG_PTR process;
  ULONG_PTR handle;
  ULONG access;
  USHORT trace;
  USHORT type;
  ULONG attributes;
  ULONG reserved;
};

NTSTATUS AskSystem(int what, std::vector<std::byte>& answer) {
  return NtQuerySystemInformation(static_cast<SYSTEM_INFORMATION_CLASS>(what), answer.data(),
                                  static_cast<ULONG>(answer.size()), nullptr);
}

// The handles that a process has open. They are counted in the list of all, since not every system counts
// them by process.
LONG_PTR HandlesOf(DWORD process) {
  std::vector<std::byte> list(1 << 16);
  for (;;) {
    const NTSTATUS status = AskSystem(kExtendedHandleInformation, list);
    if (status == kTooSmall) {
      list.resize(list.size() * 2);
      continue;
    }
    if (status != 0) throw target::CommandError("the system does not list its handles");
    const auto* const head = reinterpret_cast<const HandleList*>(list.data());
    const auto* const entries = reinterpret_cast<const HandleEntry*>(list.data() + sizeof(HandleList));
    LONG_PTR found = 0;
    for (ULONG_PTR i = 0; i < head->count; ++i) found += entries[i].process == process ? 1 : 0;
    return found;
  }
}

struct WindowCount {
  DWORD process;
  LONG_PTR windows;
};

BOOL CALLBACK CountOwn(HWND window, LPARAM place) {
  auto& count = *reinterpret_cast<WindowCount*>(place);
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  count.windows += process == count.process ? 1 : 0;
  return TRUE;
}

BOOL CALLBACK CountOwnAndBelow(HWND window, LPARAM place) {
  CountOwn(window, place);
  EnumChildWindows(window, CountOwn, place);
  return TRUE;
}

// Windows of every kind: hidden ones, children, and those that only take messages.
LONG_PTR WindowsOf(DWORD process) {
  WindowCount count{process, 0};
  EnumWindows(CountOwnAndBelow, reinterpret_cast<LPARAM>(&count));
  for (HWND window = nullptr; (window = FindWindowExW(HWND_MESSAGE, window, nullptr, nullptr));)
    CountOwnAndBelow(window, reinterpret_cast<LPARAM>(&count));
  return count.windows;
}

}  // namespace

std::string AnswerResources(HWND window) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  const HANDLE opened = OpenProcess(PROCESS_QUERY_INFORMATION, FALSE, process);
  if (!opened) throw target::CommandError("the process cannot be asked");
  JsonObject json;
  json.Number("handles", HandlesOf(process))
      .Number("windows", WindowsOf(process))
      .Number("gdi", GetGuiResources(opened, GR_GDIOBJECTS))
      .Number("user", GetGuiResources(opened, GR_USEROBJECTS));
  CloseHandle(opened);
  return json.Line();
}

}  // namespace pointalk::probe
