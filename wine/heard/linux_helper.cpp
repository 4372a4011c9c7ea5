#include "wine/heard/linux_helper.h"

#include <windows.h>

#include "wine/heard/heard.h"

namespace pointalk::wine {

namespace {

constexpr std::int64_t kLongestStart = 15'000'000;

// Process ids repeat from one run to the next; the clock does not.
std::wstring NewFolder(const wchar_t* name) {
  wchar_t temporary[MAX_PATH + 1];
  if (GetTempPathW(MAX_PATH + 1, temporary) == 0) return {};
  const std::wstring folder = temporary + std::wstring(name) + L"-" + std::to_wstring(GetCurrentProcessId()) +
                              L"-" + std::to_wstring(Now());
  return CreateDirectoryW(folder.c_str(), nullptr) ? folder : std::wstring();
}

}  // namespace

LinuxHelper::LinuxHelper(const wchar_t* name, std::string_view script) : folder_(NewFolder(name)) {
  if (folder_.empty() || !WriteWholeFile(PathOf(L"script"), script)) return;
  if (Start()) OpenCommands();
}

LinuxHelper::~LinuxHelper() {
  if (commands_) CloseHandle(commands_);
}

bool LinuxHelper::Start() {
  wchar_t command[] = L"Z:\\bin\\sh script";
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process{};  // Wine fills in no handle that could be used for a Linux program
  return CreateProcessW(L"Z:\\bin\\sh", command, nullptr, nullptr, FALSE, DETACHED_PROCESS, nullptr,
                        folder_.c_str(), &startup, &process) != FALSE;
}

// Opened for both ways: for writing only, the open would wait for a reader, and with it all of Wine.
void LinuxHelper::OpenCommands() {
  for (const std::int64_t begin = Now(); Now() - begin < kLongestStart; Sleep(2)) {
    const HANDLE file = CreateFileW(PathOf(L"commands").c_str(), GENERIC_READ | GENERIC_WRITE,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) continue;
    commands_ = file;
    return;
  }
}

void LinuxHelper::Tell(const std::string& line) {
  if (!commands_) return;
  const std::string bytes = line + "\n";
  DWORD written = 0;
  WriteFile(commands_, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

bool WriteWholeFile(const std::wstring& path, std::string_view bytes) {
  const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  DWORD written = 0;
  const bool whole = WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
                     written == bytes.size();
  CloseHandle(file);
  return whole;
}

}  // namespace pointalk::wine
