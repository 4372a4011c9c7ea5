#include "win32/remote_memory.h"

#include <cstdint>

namespace pointalk::win32 {
namespace {

constexpr DWORD kRights = PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE |
                          PROCESS_QUERY_LIMITED_INFORMATION | SYNCHRONIZE;

void* ToPointer(RemoteAddress address) {
  return reinterpret_cast<void*>(static_cast<std::uintptr_t>(address));
}

// On a system of 64 bits a process of 32 is a guest; a program of 32 bits sees what the system is by itself.
int PointerBytesOf(HANDLE process) {
  BOOL guest = FALSE;
  if (!IsWow64Process(process, &guest)) return 4;
  BOOL guestOurselves = FALSE;
  const bool system64 =
      sizeof(void*) == 8 || (IsWow64Process(GetCurrentProcess(), &guestOurselves) && guestOurselves);
  return system64 && !guest ? 8 : 4;
}

}  // namespace

HANDLE WinRemoteMemory::Open(ProcessId process) {
  if (process == process_ && handle_) return handle_.get();
  process_ = process;
  handle_.reset(process == 0 ? nullptr : OpenProcess(kRights, FALSE, process));
  if (handle_) pointerBytes_ = PointerBytesOf(handle_.get());
  return handle_.get();
}

// Looked into only when something failed: a process that lives is not asked about it every time.
bool WinRemoteMemory::Noted(bool success) {
  if (!success && WaitForSingleObject(handle_.get(), 0) == WAIT_OBJECT_0) handle_.reset();
  return success;
}

int WinRemoteMemory::PointerBytes(ProcessId process) { return Open(process) == nullptr ? 4 : pointerBytes_; }

RemoteAddress WinRemoteMemory::Allocate(ProcessId process, std::size_t bytes) {
  const HANDLE handle = Open(process);
  if (handle == nullptr || bytes == 0) return 0;
  void* const block = VirtualAllocEx(handle, nullptr, bytes, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
  Noted(block != nullptr);
  return reinterpret_cast<std::uintptr_t>(block);
}

bool WinRemoteMemory::Write(ProcessId process, RemoteAddress to, std::span<const std::byte> from) {
  const HANDLE handle = Open(process);
  if (handle == nullptr || to == 0) return false;
  SIZE_T count = 0;
  return Noted(WriteProcessMemory(handle, ToPointer(to), from.data(), from.size(), &count) &&
               count == from.size());
}

bool WinRemoteMemory::Read(ProcessId process, RemoteAddress from, std::span<std::byte> to) {
  const HANDLE handle = Open(process);
  if (handle == nullptr || from == 0) return false;
  SIZE_T count = 0;
  return Noted(ReadProcessMemory(handle, ToPointer(from), to.data(), to.size(), &count) &&
               count == to.size());
}

void WinRemoteMemory::Free(ProcessId process, RemoteAddress block) {
  const HANDLE handle = Open(process);
  if (handle != nullptr && block != 0) Noted(VirtualFreeEx(handle, ToPointer(block), 0, MEM_RELEASE));
}

}  // namespace pointalk::win32
