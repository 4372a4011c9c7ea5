// A record of ours inside another process, for messages that take an address there.
#pragma once

#include <windows.h>

#include <cstddef>

#include "wine/target/text.h"

namespace pointalk::probe {

class RemoteBlock {
 public:
  // Throws CommandError when the window's process gives no memory.
  RemoteBlock(HWND window, std::size_t size);
  ~RemoteBlock();
  RemoteBlock(const RemoteBlock&) = delete;
  RemoteBlock& operator=(const RemoteBlock&) = delete;

  LPARAM Address() const { return reinterpret_cast<LPARAM>(block_); }
  // Leaves the block behind in the other process.
  void Abandon() { block_ = nullptr; }

  template <class Record> void Put(const Record& record) { Write(&record, sizeof record); }
  template <class Record> void Get(Record& record) { Read(&record, sizeof record); }
  void Write(const void* from, std::size_t size);
  void Read(void* to, std::size_t size);

 private:
  HANDLE process_ = nullptr;
  void* block_ = nullptr;
};

}  // namespace pointalk::probe
