// Owners of what the system's C libraries hand out.
#pragma once

#include <unistd.h>

#include <memory>
#include <utility>

namespace pointalk::linux {

template <auto kFree> struct FreedBy {
  template <typename Thing> void operator()(Thing* thing) const { kFree(thing); }
};

template <typename Thing, auto kFree> using Owned = std::unique_ptr<Thing, FreedBy<kFree>>;

// A file descriptor; -1 is none.
class OwnedFile {
 public:
  OwnedFile() = default;
  explicit OwnedFile(int file) : file_(file) {}
  ~OwnedFile() { Close(); }
  OwnedFile(OwnedFile&& other) noexcept : file_(std::exchange(other.file_, -1)) {}
  OwnedFile& operator=(OwnedFile&& other) noexcept {
    if (this != &other) {
      Close();
      file_ = std::exchange(other.file_, -1);
    }
    return *this;
  }

  int Number() const { return file_; }
  explicit operator bool() const { return file_ >= 0; }

  void Close() {
    if (file_ >= 0) ::close(std::exchange(file_, -1));
  }

 private:
  int file_ = -1;
};

}  // namespace pointalk::linux
