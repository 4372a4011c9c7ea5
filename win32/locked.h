// Holds a lock for as long as it lives.
#pragma once

#include <windows.h>

namespace pointalk::win32 {

class Locked {
 public:
  explicit Locked(SRWLOCK& lock) : lock_(lock) { AcquireSRWLockExclusive(&lock_); }
  ~Locked() { ReleaseSRWLockExclusive(&lock_); }
  Locked(const Locked&) = delete;
  Locked& operator=(const Locked&) = delete;

 private:
  SRWLOCK& lock_;
};

}  // namespace pointalk::win32
