// A thread that asks accessible objects, so that nobody else has to wait for them.
#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <utility>

#include "win32/object_question.h"

namespace pointalk::win32 {

class ObjectWorker {
 public:
  // Null when the system gives no thread.
  static std::unique_ptr<ObjectWorker> Start();

  // The thread ends once its last question returns; the destructor does not wait for that.
  ~ObjectWorker();
  ObjectWorker(const ObjectWorker&) = delete;
  ObjectWorker& operator=(const ObjectWorker&) = delete;

  // Only while no other question is under way.
  void Ask(Point screen);

  // Waits for the answer; false on timeout.
  bool AnswersWithin(DWORD milliseconds);

  // An event that is set when the answer is there. Setting it costs more than the wait above; it is for
  // whoever has to wait for other things as well.
  HANDLE AnswerEvent();

  bool IsBack() { return AnswersWithin(0); }
  // While the question is under way, what there is of its answer.
  ObjectAnswer TakeAnswer();

 private:
  struct Shared;

  explicit ObjectWorker(std::shared_ptr<Shared> shared) : shared_(std::move(shared)) {}
  static DWORD WINAPI ThreadMain(void* shared);

  // Belongs to the thread as well, which may outlive everything else.
  std::shared_ptr<Shared> shared_;
};

}  // namespace pointalk::win32
