#include "win32/trace_file.h"

#include <exception>
#include <tuple>
#include <utility>

#include "win32/locked.h"

namespace pointalk::win32 {
namespace {

constexpr std::size_t kMostBytesWaiting = 1024 * 1024;  // bytes that are kept for the disk
constexpr DWORD kWriteInterval = 500;                   // milliseconds
constexpr DWORD kLastWriteLimit = 2'000;                // milliseconds
constexpr int kLooksUntilStuck = 2;                     // at the same line, one each interval

OwnedHandle OpenToAppend(const std::wstring& path) {
  constexpr DWORD kShareWithAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const HANDLE file = CreateFileW(path.c_str(), FILE_APPEND_DATA | FILE_READ_ATTRIBUTES, kShareWithAll,
                                  nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  return OwnedHandle(file == INVALID_HANDLE_VALUE ? nullptr : file);
}

bool MayTake(const OwnedHandle& file, std::size_t bytes) {
  LARGE_INTEGER size;
  return GetFileSizeEx(file.get(), &size) &&
         (size.QuadPart == 0 || static_cast<std::size_t>(size.QuadPart) + bytes <= kLargestTrace);
}

void Append(const std::wstring& path, const std::string& bytes) {
  OwnedHandle file = OpenToAppend(path);
  if (file && !MayTake(file, bytes.size())) {
    file.reset();
    if (!MoveFileExW(path.c_str(), (path + L".old").c_str(), MOVEFILE_REPLACE_EXISTING)) return;
    file = OpenToAppend(path);
  }
  DWORD written = 0;
  if (file) WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

}  // namespace

struct TraceFile::Shared {
  std::wstring path;
  OwnedHandle end{CreateEventW(nullptr, TRUE, FALSE, nullptr)};

  SRWLOCK lock = SRWLOCK_INIT;
  std::string waiting;   // lines that are to be written
  unsigned lost = 0;     // lines
  std::string underWay;  // empty where no event goes on
  int looks = 0;         // at the event that goes on, since it last did something

  void Serve();
  std::string TakeLines();
};

std::string TraceFile::Shared::TakeLines() {
  const Locked locked(lock);
  if (!underWay.empty() && ++looks == kLooksUntilStuck) waiting += "still at: " + underWay + "\r\n";
  if (lost != 0) waiting += std::to_string(lost) + " lines are lost\r\n";
  lost = 0;
  return std::exchange(waiting, {});
}

void TraceFile::Shared::Serve() {
  for (bool goesOn = true; goesOn;) {
    goesOn = WaitForSingleObject(end.get(), kWriteInterval) == WAIT_TIMEOUT;
    try {
      if (const std::string lines = TakeLines(); !lines.empty()) Append(path, lines);
    } catch (const std::exception&) {  // the lines are lost, as on a full disk
    }
  }
}

TraceFile::TraceFile(std::wstring path) : shared_(std::make_shared<Shared>()) {
  shared_->path = std::move(path);
  auto kept = std::make_unique<std::shared_ptr<Shared>>(shared_);
  thread_.reset(CreateThread(nullptr, 0, &ThreadMain, kept.get(), 0, nullptr));
  if (thread_) std::ignore = kept.release();  // the thread takes it
}

DWORD WINAPI TraceFile::ThreadMain(void* shared) {
  const std::unique_ptr<std::shared_ptr<Shared>> kept(static_cast<std::shared_ptr<Shared>*>(shared));
  (*kept)->Serve();
  return 0;
}

TraceFile::~TraceFile() { Finish(); }

void TraceFile::Finish() {
  SetEvent(shared_->end.get());
  if (thread_) WaitForSingleObject(thread_.get(), kLastWriteLimit);
  thread_.reset();
}

void TraceFile::Add(std::string_view line) {
  const Locked locked(shared_->lock);
  if (shared_->waiting.size() + line.size() > kMostBytesWaiting) {
    ++shared_->lost;
    return;
  }
  shared_->waiting.append(line).append("\r\n");
}

void TraceFile::SetUnderWay(std::string_view line) {
  const Locked locked(shared_->lock);
  shared_->underWay = line;
  shared_->looks = 0;
}

}  // namespace pointalk::win32
