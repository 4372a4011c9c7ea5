#include "win32/system.h"

#include <shellapi.h>

#include <algorithm>
#include <cstring>
#include <exception>
#include <string>
#include <tuple>

#include "win32/ansi.h"
#include "win32/handles.h"
#include "win32/last_words.h"
#include "win32/one_pointalk.h"
#include "win32/program_folder.h"
#include "win32/wide_text.h"

namespace pointalk::win32 {
namespace {

constexpr int kClipboardAttempts = 10;
constexpr DWORD kClipboardPause = 20;     // milliseconds
constexpr UINT kOwnerLimit = 100;         // milliseconds
constexpr DWORD kLastWordsLimit = 2'000;  // milliseconds
constexpr TextView kMailLink = u"mailto:";

// Another program may have the clipboard open for a moment.
bool OpenClipboardSoon(HWND owner) {
  for (int attempt = 1; !OpenClipboard(owner); ++attempt) {
    if (attempt == kClipboardAttempts) return false;
    Sleep(kClipboardPause);
  }
  return true;
}

// What asks the system to keep the content out of its history and off the user's other computers, by a number
// that is 0. Older systems do not know them.
constexpr const wchar_t* kStayHere[] = {L"CanIncludeInClipboardHistory", L"CanUploadToCloudClipboard"};

// Puts a copy of the bytes on the open clipboard.
bool Put(UINT format, const void* from, std::size_t bytes) {
  Owned<HGLOBAL, GlobalFree> memory(GlobalAlloc(GMEM_MOVEABLE, bytes));
  void* const place = memory ? GlobalLock(memory.get()) : nullptr;
  if (place == nullptr) return false;
  std::memcpy(place, from, bytes);
  GlobalUnlock(memory.get());
  if (SetClipboardData(format, memory.get()) == nullptr) return false;
  std::ignore = memory.release();  // the system's now
  return true;
}

// The text ends in a NUL there.
bool PutText(const std::wstring& text) {
  return Put(CF_UNICODETEXT, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
}

void KeepHere() {
  for (const wchar_t* const name : kStayHere) {
    const DWORD no = 0;
    std::ignore = Put(RegisterClipboardFormatW(name), &no, sizeof no);  // a request, not more
  }
}

bool Open(HWND owner, const std::string& operation, const std::string& file, const char* parameters,
          const char* directory, int show) {
  const HINSTANCE outcome =
      ShellExecuteA(owner, operation.c_str(), file.c_str(), parameters, directory, show);
  return reinterpret_cast<std::intptr_t>(outcome) > 32;
}

// Whether a file of that name, with any ending, lies beside the program or in the current folder. The shell
// would look there first, and whoever put it there would have it started.
bool LiesHere(const std::wstring& name) {
  for (const std::wstring& folder : {ProgramFolderPath() + L'\\', std::wstring()}) {
    WIN32_FIND_DATAW found;
    const HANDLE search = FindFirstFileW((folder + name + L".*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) continue;
    FindClose(search);
    return true;
  }
  return false;
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
  const std::wstring whole = Wide(ThroughAnsi(path));
  const DWORD longest = GetShortPathNameW(whole.c_str(), nullptr, 0);
  std::wstring shortPath(longest, L'\0');
  const DWORD length = GetShortPathNameW(whole.c_str(), shortPath.data(), longest);
  if (length >= longest) return {};
  shortPath.resize(std::min<std::size_t>(length, static_cast<std::size_t>(std::max(capacity, 0))));
  return ThroughAnsi(FromWide(shortPath));
}

bool WinSystem::SetClipboard(TextView text) {
  const std::wstring wide = Wide(ThroughAnsi(text));
  if (!OwnerAnswers() || !OpenClipboardSoon(form_)) return false;
  const bool set = EmptyClipboard() && PutText(wide);
  if (set) KeepHere();
  CloseClipboard();
  return set;
}

// The file that is asked for need not exist where the parameters are a link: it is what old systems wanted in
// front of one. Then the link is opened itself, as it is where the file would be somebody else's.
bool WinSystem::ShellOpen(TextView operation, TextView file, TextView parameters, TextView directory,
                          int show) {
  const std::string link = Narrow(parameters);
  const std::string folder = Narrow(directory);
  const bool isMail = parameters.starts_with(kMailLink);
  const bool mayAsk = !isMail || !LiesHere(Wide(file));
  if (mayAsk && Open(form_, Narrow(operation), Narrow(file), link.c_str(), folder.c_str(), show)) return true;
  return isMail && Open(form_, Narrow(operation), link, nullptr, folder.c_str(), show);
}

// Every way out of the program but the end of the session comes here, with all files written. A start by now
// is that of the next Pointalk.
void WinSystem::EndProgram() {
  HideFromSecondStarts(form_);
  try {
    HearOut(
        form_, [this](DWORD limit) { return sapi5_.IsSpeaking(limit) || sapi4_.IsSpeaking(limit); },
        kLastWordsLimit);
  } catch (const std::exception&) {  // the words are lost, but not the end
  }
  EndAtOnce();
}

}  // namespace pointalk::win32
