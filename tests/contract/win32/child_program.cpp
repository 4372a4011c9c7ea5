#include "tests/contract/win32/child_program.h"
#include "tests/contract/win32/patience.h"

#include <stdexcept>
#include <string>
#include <utility>

namespace pointalk::contract {
namespace {

// Wine has been seen to refuse a start, once, on a busy machine.
constexpr int kAttempts = 4;
constexpr DWORD kPause = 500;  // milliseconds

struct Pipe {
  Pipe() {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    HANDLE from = nullptr;
    HANDLE to = nullptr;
    if (!CreatePipe(&from, &to, &inherited, 0)) throw std::runtime_error("no pipe");
    reading.reset(from);
    writing.reset(to);
  }
  win32::OwnedHandle reading;
  win32::OwnedHandle writing;
};

void KeepFromChildren(const win32::OwnedHandle& handle) {
  SetHandleInformation(handle.get(), HANDLE_FLAG_INHERIT, 0);
}

}  // namespace

ChildProgram::ChildProgram(const std::wstring& path, const std::wstring& options) {
  Pipe in;
  Pipe out;
  KeepFromChildren(in.writing);
  KeepFromChildren(out.reading);
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdInput = in.reading.get();
  startup.hStdOutput = out.writing.get();
  startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
  PROCESS_INFORMATION process{};
  std::wstring command = L'"' + path + L'"' + options;
  for (int attempt = 1; !CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW,
                                        nullptr, nullptr, &startup, &process);
       ++attempt) {
    const DWORD error = GetLastError();
    if (attempt == kAttempts)
      throw std::runtime_error("the other program does not start: " + std::to_string(error));
    Sleep(kPause);
  }
  CloseHandle(process.hThread);
  process_.reset(process.hProcess);
  in_ = std::move(in.writing);
  out_ = std::move(out.reading);
}

ChildProgram::~ChildProgram() {
  TerminateProcess(process_.get(), 0);
  WaitForSingleObject(process_.get(), kPatience);
}

void ChildProgram::Write(const std::string& line) {
  const std::string whole = line + '\n';
  DWORD written = 0;
  WriteFile(in_.get(), whole.data(), static_cast<DWORD>(whole.size()), &written, nullptr);
}

std::string ChildProgram::ReadLine() {
  const ULONGLONG end = GetTickCount64() + kPatience;
  for (;;) {
    if (const auto length = read_.find('\n'); length != std::string::npos) {
      std::string line = read_.substr(0, length);
      read_.erase(0, length + 1);
      return line;
    }
    DWORD waiting = 0;
    if (!PeekNamedPipe(out_.get(), nullptr, 0, nullptr, &waiting, nullptr))
      throw std::runtime_error("the other program has ended");
    if (waiting == 0) {
      if (GetTickCount64() >= end) throw std::runtime_error("the other program says nothing");
      Sleep(2);
      continue;
    }
    std::string part(waiting, '\0');
    DWORD count = 0;
    ReadFile(out_.get(), part.data(), waiting, &count, nullptr);
    read_.append(part, 0, count);
  }
}

}  // namespace pointalk::contract
