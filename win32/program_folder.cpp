#include "win32/program_folder.h"

#include <windows.h>

namespace pointalk::win32 {
namespace {

constexpr DWORD kLongestPath = 32'768;  // characters

// The path that a function of the system's writes into a buffer; empty on failure.
template <typename Write> std::wstring PathFrom(Write write) {
  std::wstring path(kLongestPath, L'\0');
  const DWORD length = write(path.data(), kLongestPath);
  path.resize(length < kLongestPath ? length : 0);
  return path;
}

bool IsSame(const std::wstring& a, const std::wstring& b) { return _wcsicmp(a.c_str(), b.c_str()) == 0; }

}  // namespace

std::wstring ProgramFolderPath() {
  std::wstring path = PathFrom([](wchar_t* to, DWORD size) { return GetModuleFileNameW(nullptr, to, size); });
  path.resize(path.find_last_of(L'\\') == std::wstring::npos ? 0 : path.find_last_of(L'\\'));
  return path;
}

void LeaveSystemFolder() {
  const auto current = PathFrom([](wchar_t* to, DWORD size) { return GetCurrentDirectoryW(size, to); });
  const auto system = PathFrom([](wchar_t* to, DWORD size) { return GetSystemDirectoryW(to, size); });
  const auto windows = PathFrom([](wchar_t* to, DWORD size) { return GetWindowsDirectoryW(to, size); });
  if (IsSame(current, system) || IsSame(current, windows))
    SetCurrentDirectoryW((ProgramFolderPath() + L'\\').c_str());
}

}  // namespace pointalk::win32
