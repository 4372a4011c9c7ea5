#include "win32/remote_memory.h"

#include <cstdint>

#include "win32/handles.h"
#include "win32/window_handles.h"

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
  out_.clear();
  handle_ = OwnedHandle(process == 0 ? nullptr : OpenProcess(kRights, FALSE, process));
  if (handle_) pointerBytes_ = PointerBytesOf(handle_.get());
  return handle_.get();
}

// Only a failure costs a look at the process.
bool WinRemoteMemory::Checked(bool success) {
  if (!success && WaitForSingleObject(handle_.get(), 0) == WAIT_OBJECT_0) handle_.reset();
  return success;
}

int WinRemoteMemory::PointerBytes(ProcessId process) { return Open(process) == nullptr ? 4 : pointerBytes_; }

RemoteAddress WinRemoteMemory::Allocate(ProcessId process, std::size_t bytes) {
  const HANDLE handle = Open(process);
  if (handle == nullptr || bytes == 0 || lent_.IsFull(process)) return 0;
  void* const block = VirtualAllocEx(handle, nullptr, bytes, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
  if (!Checked(block != nullptr)) return 0;
  const auto address = reinterpret_cast<std::uintptr_t>(block);
  out_[address] = unresponsiveThreads_.ProbesSent();
  return address;
}

bool WinRemoteMemory::Write(ProcessId process, RemoteAddress to, std::span<const std::byte> from) {
  const HANDLE handle = Open(process);
  if (handle == nullptr || to == 0) return false;
  SIZE_T count = 0;
  return Checked(WriteProcessMemory(handle, ToPointer(to), from.data(), from.size(), &count) &&
                 count == from.size());
}

bool WinRemoteMemory::Read(ProcessId process, RemoteAddress from, std::span<std::byte> to) {
  const HANDLE handle = Open(process);
  if (handle == nullptr || from == 0) return false;
  SIZE_T count = 0;
  return Checked(ReadProcessMemory(handle, ToPointer(from), to.data(), to.size(), &count) &&
                 count == to.size());
}

void WinRemoteMemory::Free(ProcessId process, RemoteAddress block) {
  const HANDLE handle = Open(process);
  if (handle == nullptr || block == 0) return;
  out_.erase(block);
  Checked(VirtualFreeEx(handle, ToPointer(block), 0, MEM_RELEASE));
}

// A block that was had when the window's thread was known not to answer was in no message to it: a tick over
// it would leave one there otherwise. Where nothing is under way to the thread, the message did not reach it.
void WinRemoteMemory::FreeOnceAnswered(ProcessId process, RemoteAddress block, WindowHandle window) {
  const HANDLE handle = Open(process);
  if (handle == nullptr || block == 0) return;
  const std::shared_ptr<Probe> probe = unresponsiveThreads_.ProbeOf(ToWindow(window));
  const auto found = out_.find(block);
  const unsigned before = found == out_.end() ? 0 : found->second;
  if (!probe || probe->Number() <= before) return Free(process, block);
  out_.erase(block);
  lent_.Take(handle_, ToPointer(block), probe);
}

}  // namespace pointalk::win32
