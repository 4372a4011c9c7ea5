#include "wine/probe/remote_record.h"

namespace pointalk::probe {

using target::CommandError;

RemoteBlock::RemoteBlock(HWND window, std::size_t size) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  process_ = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, process);
  if (!process_) throw CommandError("the window's process cannot be opened");
  block_ = VirtualAllocEx(process_, nullptr, size, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
  if (!block_) {
    CloseHandle(process_);
    throw CommandError("no memory in the window's process");
  }
}

RemoteBlock::~RemoteBlock() {
  if (block_) VirtualFreeEx(process_, block_, 0, MEM_RELEASE);
  CloseHandle(process_);
}

void RemoteBlock::Write(const void* from, std::size_t size) {
  if (!WriteProcessMemory(process_, block_, from, size, nullptr))
    throw CommandError("the block cannot be written");
}

void RemoteBlock::Read(void* to, std::size_t size) {
  if (!ReadProcessMemory(process_, block_, to, size, nullptr)) throw CommandError("the block cannot be read");
}

}  // namespace pointalk::probe
