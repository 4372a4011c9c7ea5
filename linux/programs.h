// The programs that tell of their objects, and which of their frames belongs to which window.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "linux/bus.h"
#include "linux/found_object.h"

namespace pointalk::linux {

// How a program has to be asked.
enum class Toolkit {
  kUsual,
  kQt,
  kGtk4,     // knows places in its windows only
  kOldGtk4,  // the same; never answers which character is at a point, and knows its objects only once walked
             // through
};

struct Frame {
  BusObject object;
  std::int32_t scale = 1;     // pixels of the screen that the program calls one
  bool fits = false;          // it is as large as the window
  std::int64_t distance = 0;  // that tells which of several is the window's
  Moment found;
};

struct Program {
  BusObject root;
  ProcessId process = 0;
  Toolkit toolkit = Toolkit::kUsual;
  std::map<XWindowId, Frame> frames;  // by the windows that were asked about
};

class Programs {
 public:
  explicit Programs(Bus& bus) : bus_(bus) {}

  // The programs of a process, which may have several connections; none where it tells of no objects. Whoever
  // has one may go on with it though its connection ends meanwhile.
  std::vector<std::shared_ptr<Program>> Of(ProcessId process, Moment limit);

  // The frame that a window shows; no value where there is none. The number of a window's process may be that
  // of another program, as from another machine: a frame of another size and title is not the window's.
  std::optional<Frame> FrameOf(Program& program, const ObjectQuestion& question, Moment limit);

  // The window that the program tells of at just that place, by the scale that it counts in; null where
  // there is none.
  BusObject WindowAt(const Program& program, const XDisplay::Place& place, std::int32_t scale, Moment limit);

  // A question to a program of that process is still out.
  bool IsSilent(ProcessId process) const;

  // A connection has ended, or a new one is there.
  void Forget(const std::string& name);
  void Expect() { mayHaveMore_ = true; }

 private:
  // A program that has not been asked yet how it has to be asked.
  struct Newcomer {
    BusObject root;
    ProcessId process = 0;
  };

  std::vector<std::shared_ptr<Program>> Known(ProcessId process) const;
  void Refresh(Moment limit);
  void Meet(const std::vector<Newcomer>& newcomers, Moment limit);
  std::vector<BusObject> WindowsOf(const Program& program, Moment limit);
  std::optional<Frame> Nearest(const std::vector<BusObject>& frames, const Program& program,
                               const ObjectQuestion& question, Moment limit);

  Bus& bus_;
  std::vector<std::shared_ptr<Program>> programs_;
  std::set<std::string> met_;  // names whose processes are known
  bool mayHaveMore_ = true;
  Moment lastRefresh_{};
};

}  // namespace pointalk::linux
