#include "linux/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <string>
#include <system_error>

#include "linux/ansi.h"
#include "linux/folders.h"
#include "linux/owned.h"
#include "linux/utf8.h"

namespace pointalk::linux {
namespace {

namespace fs = std::filesystem;

constexpr off_t kLargestFile = 16 * 1024 * 1024;  // bytes
constexpr mode_t kForTheUserAlone = 0600;

fs::path WholePath(FilePath path) {
  const fs::path name = ToUtf8(path.name);
  return path.folder == Folder::kCurrent ? name : ProgramFolderPath() / name;
}

OwnedFile Open(const fs::path& path, int how) {
  return OwnedFile(::open(path.c_str(), how | O_CLOEXEC | O_NOCTTY, kForTheUserAlone));
}

// A file that is marked as read-only stays, even where the user may do everything.
bool MayWrite(const fs::path& path) {
  struct stat facts {};
  if (::stat(path.c_str(), &facts) != 0) return errno == ENOENT;
  return (facts.st_mode & S_IWUSR) != 0 && ::access(path.c_str(), W_OK) == 0;
}

// What a file has to outlive. The disk is waited for only where it is more than the process.
enum class Outlives { kProcess, kPowerCut };

bool WriteAll(const OwnedFile& file, std::string_view bytes, Outlives outlives) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(file.Number(), bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return outlives == Outlives::kProcess || ::fsync(file.Number()) == 0;
}

// No value for what is missing, is no file, or is larger than any of ours.
std::optional<std::string> ReadAll(const fs::path& path) {
  const OwnedFile file = Open(path, O_RDONLY | O_NONBLOCK);  // a pipe in its place must not hold us
  struct stat facts {};
  if (!file || ::fstat(file.Number(), &facts) != 0 || !S_ISREG(facts.st_mode) || facts.st_size > kLargestFile)
    return std::nullopt;
  std::string bytes;
  char part[16 * 1024];
  for (;;) {
    const ssize_t count = ::read(file.Number(), part, sizeof part);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0 || bytes.size() > kLargestFile) return bytes;
    bytes.append(part, static_cast<std::size_t>(count));
  }
}

// That a file took another's name is on the disk once its folder is.
void KeepFolder(const fs::path& file) {
  const fs::path folder = file.has_parent_path() ? file.parent_path() : fs::path(".");
  if (const OwnedFile opened = Open(folder, O_RDONLY | O_DIRECTORY)) ::fsync(opened.Number());
}

// The new content is whole before it takes the old one's name. A file that the user made read-only stays,
// which the folder alone would not see to.
bool WriteWhole(fs::path path, std::string_view bytes, Outlives outlives) {
  std::error_code error;
  if (const fs::path target = fs::read_symlink(path, error); !error) path = path.parent_path() / target;
  if (!MayWrite(path)) return false;
  fs::path fresh = path;
  fresh += ".new";
  const OwnedFile file = Open(fresh, O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW);
  if (file && WriteAll(file, bytes, outlives) && std::rename(fresh.c_str(), path.c_str()) == 0) {
    if (outlives == Outlives::kPowerCut) KeepFolder(path);
    return true;
  }
  fs::remove(fresh, error);
  return false;
}

}  // namespace

bool LinuxFiles::Exists(FilePath path) {
  std::error_code error;
  return fs::is_regular_file(WholePath(path), error);
}

std::optional<Text> LinuxFiles::Read(FilePath path) {
  const auto bytes = ReadAll(WholePath(path));
  if (!bytes) return std::nullopt;
  return Widen(*bytes);
}

bool LinuxFiles::Write(FilePath path, TextView text) {
  return WriteWhole(WholePath(path), Narrow(text), Outlives::kPowerCut);
}

bool LinuxFiles::WriteLog(FilePath path, TextView text) {
  const std::string bytes = Narrow(text);
  const fs::path whole = WholePath(path);
  return ReadAll(whole) == bytes || WriteWhole(whole, bytes, Outlives::kProcess);
}

bool LinuxFiles::Append(FilePath path, TextView text) {
  const fs::path whole = WholePath(path);
  if (!MayWrite(whole)) return false;
  const OwnedFile file = Open(whole, O_WRONLY | O_CREAT | O_APPEND | O_NONBLOCK);
  return file && WriteAll(file, Narrow(text), Outlives::kPowerCut);
}

}  // namespace pointalk::linux
