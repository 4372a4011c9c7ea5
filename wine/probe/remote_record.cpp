#include "wine/probe/remote_record.h"

namespace pointalk::probe {

using target::CommandError;

RemoteBlock::RemoteBlock(HWND window, std::size_t size) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  mProcess = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, process);
  if (!mProcess) throw CommandError("the window's process cannot be opened");
  mBlock = VirtualAllocEx(mProcess, nullptr, size, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
  if (!mBlock) {
    CloseHandle(mProcess);
    throw CommandError("no memory in the window's process");
  }
}

RemoteBlock::~RemoteBlock() {
  if (mBlock) VirtualFreeEx(mProcess, mBlock, 0, MEM_RELEASE);
  CloseHandle(mProcess);
}

void RemoteBlock::Write(const void* from, std::size_t size) {
  if (!WriteProcessMemory(mProcess, mBlock, from, size, nullptr))
    throw CommandError("the block cannot be written");
}

void RemoteBlock::Read(void* to, std::size_t size) {
  if (!ReadProcessMemory(mProcess, mBlock, to, size, nullptr)) throw CommandError("the block cannot be read");
}

}  // namespace pointalk::probe
