#include "win32/system.h"

#include <shellapi.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <tuple>

#include "win32/ansi.h"
#include "win32/handles.h"
#include "win32/program_folder.h"
#include "win32/wide_text.h"

namespace pointalk::win32 {
namespace {

constexpr int kClipboardAttempts = 10;
constexpr DWORD kClipboardPause = 20;  // milliseconds
constexpr UINT kOwnerLimit = 100;      // milliseconds
constexpr TextView kMailLink = u"mailto:";

// Another program may have the clipboard open for a moment.
bool OpenClipboardSoon(HWND owner) {
  for (int attempt = 1; !OpenClipboard(owner); ++attempt) {
    if (attempt == kClipboardAttempts) return false;
    Sleep(kClipboardPause);
  }
  return true;
}

// A copy of the text, ended by a NUL, in memory that can be given to the system.
Owned<HGLOBAL, GlobalFree> GlobalCopy(const std::wstring& text) {
  const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
  Owned<HGLOBAL, GlobalFree> memory(GlobalAlloc(GMEM_MOVEABLE, bytes));
  void* const place = memory ? GlobalLock(memory.get()) : nullptr;
  if (place == nullptr) return nullptr;
  std::memcpy(place, text.c_str(), bytes);
  GlobalUnlock(memory.get());
  return memory;
}

bool Open(HWND owner, const std::string& operation, const std::string& file, const char* parameters,
          const char* directory, int show) {
  const HINSTANCE outcome =
      ShellExecuteA(owner, operation.c_str(), file.c_str(), parameters, directory, show);
  return reinterpret_cast<std::intptr_t>(outcome) > 32;
}

// Whether the window whose content is on the clipboard would let go of it in time: the system tells it, and
// waits for it.
bool OwnerAnswers() {
  const HWND owner = GetClipboardOwner();
  DWORD_PTR unused = 0;
  return owner == nullptr || !IsWindow(owner) ||
         SendMessageTimeoutW(owner, WM_NULL, 0, 0, SMTO_NORMAL | SMTO_ABORTIFHUNG, kOwnerLimit, &unused) != 0;
}

}  // namespace

std::optional<SystemVersion> WinSystem::Version() {
  OSVERSIONINFOA version{};
  static_assert(sizeof version == 148);
  version.dwOSVersionInfoSize = sizeof version;
  if (!GetVersionExA(&version)) return std::nullopt;
  return SystemVersion{version.dwPlatformId, version.dwMajorVersion, version.dwMinorVersion};
}

Text WinSystem::ProgramFolder() { return ThroughAnsi(FromWide(ProgramFolderPath())); }

Text WinSystem::ShortPath(TextView path, int capacity) {
  const std::string whole = Narrow(path);
  const DWORD room = GetShortPathNameA(whole.c_str(), nullptr, 0);
  std::string shortPath(room, '\0');
  const DWORD length = GetShortPathNameA(whole.c_str(), shortPath.data(), room);
  if (length >= room) return {};
  shortPath.resize(std::min<std::size_t>(length, static_cast<std::size_t>(std::max(capacity, 0))));
  return Widen(shortPath);
}

bool WinSystem::SetClipboard(TextView text) {
  auto memory = GlobalCopy(Wide(ThroughAnsi(text)));
  if (!memory || !OwnerAnswers() || !OpenClipboardSoon(form_)) return false;
  const bool set = EmptyClipboard() && SetClipboardData(CF_UNICODETEXT, memory.get()) != nullptr;
  if (set) std::ignore = memory.release();  // the system's now
  CloseClipboard();
  return set;
}

// The file that is asked for need not exist where the parameters are a link: it is what old systems wanted in
// front of one. Then the link is opened itself.
bool WinSystem::ShellOpen(TextView operation, TextView file, TextView parameters, TextView directory,
                          int show) {
  const std::string link = Narrow(parameters);
  const std::string folder = Narrow(directory);
  if (Open(form_, Narrow(operation), Narrow(file), link.c_str(), folder.c_str(), show)) return true;
  return parameters.starts_with(kMailLink) &&
         Open(form_, Narrow(operation), link, nullptr, folder.c_str(), show);
}

}  // namespace pointalk::win32
