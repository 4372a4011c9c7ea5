// A trace: what Pointalk did and when, for somebody who looks into why it is silent. It holds numbers, and no
// text of another program unless that was asked for.
#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "text/text.h"
#include "win32/trace_file.h"

namespace pointalk::win32 {

// What a command line asks for.
struct TraceOptions {
  std::wstring file;
  bool texts = false;  // what is read and said is written down as well
};

// No value where no trace is asked for. The command line begins with the program's own name.
std::optional<TraceOptions> TraceOptionsOf(const wchar_t* commandLine);

class Trace {
 public:
  explicit Trace(const TraceOptions& options);

  // An event of the form, for as long as it lives: one line with what it did, and none where that was
  // nothing. One that comes while another is at work has a line of its own. No event without a trace.
  class Event {
   public:
    Event(Trace* trace, std::string_view name);
    ~Event();
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;

   private:
    friend class Trace;

    bool IsEmpty() const { return line_.size() == emptyLength_; }

    Trace* trace_;
    Event* outer_;
    std::string line_;
    std::size_t emptyLength_ = 0;
    std::int64_t begin_ = 0;  // what its times count from, by the performance counter
  };

  // A step of the event that is at work, with the time in front.
  void Step(std::string_view what);

  // The pointer moved so many milliseconds ago: times of the event count from then on.
  void Moved(std::uint32_t millisecondsAgo);

  // The state of a device, an engine or the system, on a line of its own.
  void State(std::string_view what);

  // How a text is written: its length, and the text itself where that was asked for.
  std::string Shown(TextView text) const;
  bool WithTexts() const { return texts_; }

  // Before the program ends: the events that are still at work are written down as well.
  void Finish();

 private:
  std::string Stamp() const;

  TraceFile file_;
  bool texts_;
  std::int64_t begin_;
  Event* event_ = nullptr;  // at work now; the innermost
};

}  // namespace pointalk::win32
