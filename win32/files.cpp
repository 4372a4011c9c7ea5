#include "win32/files.h"

#include <windows.h>

#include <string>

#include "win32/ansi.h"
#include "win32/handles.h"
#include "win32/program_folder.h"
#include "win32/wide_text.h"

namespace pointalk::win32 {
namespace {

constexpr LONGLONG kLargestFile = 16 * 1024 * 1024;  // bytes
constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// Searchers and virus scanners hold a file for a moment after it was written.
constexpr int kReplaceAttempts = 16;
constexpr DWORD kAttemptPause = 20;  // milliseconds

std::wstring WholePath(FilePath path) {
  if (path.folder == Folder::kCurrent) return Wide(path.name);
  return ProgramFolderPath() + L'\\' + Wide(path.name);
}

OwnedHandle Open(const std::wstring& path, DWORD access, DWORD how) {
  const HANDLE file =
      CreateFileW(path.c_str(), access, kShareAll, nullptr, how, FILE_ATTRIBUTE_NORMAL, nullptr);
  return OwnedHandle(file == INVALID_HANDLE_VALUE ? nullptr : file);
}

// What a file has to outlive. The disk is waited for only where it is more than the process.
enum class Outlives { kProcess, kPowerCut };

bool WriteAll(const std::wstring& path, DWORD access, DWORD how, const std::string& bytes,
              Outlives outlives) {
  const OwnedHandle file = Open(path, access, how);
  if (!file) return false;
  DWORD written = 0;
  return WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
         written == bytes.size() && (outlives == Outlives::kProcess || FlushFileBuffers(file.get()));
}

std::optional<std::string> ReadAll(const std::wstring& path) {
  const OwnedHandle file = Open(path, GENERIC_READ, OPEN_EXISTING);
  LARGE_INTEGER size;
  if (!file || !GetFileSizeEx(file.get(), &size) || size.QuadPart > kLargestFile) return std::nullopt;
  std::string bytes(static_cast<std::size_t>(size.QuadPart), '\0');
  DWORD read = 0;
  if (!ReadFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr))
    return std::nullopt;
  bytes.resize(read);
  return bytes;
}

bool IsReadOnly(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
}

bool Replace(const std::wstring& from, const std::wstring& to, Outlives outlives) {
  const DWORD waits = outlives == Outlives::kPowerCut ? MOVEFILE_WRITE_THROUGH : 0;
  for (int attempt = 1;; ++attempt) {
    if (MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | waits)) return true;
    const DWORD error = GetLastError();
    const bool mayBeHeld = error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED;
    if (!mayBeHeld || attempt == kReplaceAttempts || IsReadOnly(to)) return false;
    Sleep(kAttemptPause);
  }
}

// The new content is whole before it takes the old one's name.
bool WriteWhole(const std::wstring& path, const std::string& bytes, Outlives outlives) {
  const std::wstring fresh = path + L".new";
  if (WriteAll(fresh, GENERIC_WRITE, CREATE_ALWAYS, bytes, outlives) && Replace(fresh, path, outlives))
    return true;
  DeleteFileW(fresh.c_str());
  return false;
}

}  // namespace

bool WinFiles::Exists(FilePath path) {
  const DWORD attributes = GetFileAttributesW(WholePath(path).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

std::optional<Text> WinFiles::Read(FilePath path) {
  const auto bytes = ReadAll(WholePath(path));
  if (!bytes) return std::nullopt;
  return Widen(*bytes);
}

bool WinFiles::Write(FilePath path, TextView text) {
  return WriteWhole(WholePath(path), Narrow(text), Outlives::kPowerCut);
}

bool WinFiles::WriteLog(FilePath path, TextView text) {
  const std::wstring whole = WholePath(path);
  const std::string bytes = Narrow(text);
  return ReadAll(whole) == bytes || WriteWhole(whole, bytes, Outlives::kProcess);
}

bool WinFiles::Append(FilePath path, TextView text) {
  return WriteAll(WholePath(path), FILE_APPEND_DATA, OPEN_ALWAYS, Narrow(text), Outlives::kPowerCut);
}

}  // namespace pointalk::win32
