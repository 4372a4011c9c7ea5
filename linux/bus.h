// A connection to a message bus on which many questions can be out at once, and none is waited for longer
// than its asker wants.
#pragma once

#include <systemd/sd-bus.h>

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "linux/owned.h"
#include "linux/utf8.h"
#include "text/text.h"

namespace pointalk::linux {

using BusMessage = Owned<sd_bus_message, sd_bus_message_unref>;
using BusSlot = Owned<sd_bus_slot, sd_bus_slot_unref>;
using Moment = std::chrono::steady_clock::time_point;

// An object of a program: the name of its connection, and its path there.
struct BusObject {
  std::string program;
  std::string path;

  bool IsNull() const;
  friend bool operator==(const BusObject&, const BusObject&) = default;
  friend bool operator<(const BusObject& one, const BusObject& other) {
    return std::tie(one.program, one.path) < std::tie(other.program, other.path);
  }
};

// Belongs to one thread. A program that did not answer in time is asked nothing more until its answer, an
// error or the end of its connection arrives; the others do not notice.
class Bus {
 public:
  // Null where there is nobody at the address.
  static std::unique_ptr<Bus> Open(const std::string& address);

  // A call to be filled with its arguments; null for what is no name or no path.
  BusMessage Call(const BusObject& object, const char* interface, const char* member);

  // Sends all of these at once and waits for their answers. What did not come in time, what is null and what
  // was answered with an error is null.
  std::vector<BusMessage> Ask(std::vector<BusMessage> calls, Moment limit);
  BusMessage Ask(BusMessage call, Moment limit);

  // Sends without wanting an answer.
  void Tell(BusMessage call);

  // A question to the program is still out that nobody waits for any more.
  bool IsSilent(const std::string& program);

  // Handles what has come in.
  void Process();

  // Has signals that match handled; the handler's data has to outlive this.
  bool Listen(const char* match, sd_bus_message_handler_t handler, void* data);

  bool IsLost() const { return isLost_; }
  // For waiting until something comes in.
  int File() const { return sd_bus_get_fd(bus_.get()); }
  short Events() const { return static_cast<short>(sd_bus_get_events(bus_.get())); }

 private:
  using Connection = Owned<sd_bus, sd_bus_close_unref>;

  // A question that is out.
  struct Question {
    BusMessage answer;
    bool isBack = false;
    BusSlot slot;
  };
  using Questions = std::vector<std::unique_ptr<Question>>;

  explicit Bus(Connection bus) : bus_(std::move(bus)) {}
  static int TakeAnswer(sd_bus_message* answer, void* question, sd_bus_error* error);
  void Send(BusMessage call, Question& question);
  bool WaitUntil(Moment limit);

  Connection bus_;
  std::vector<BusSlot> listening_;
  std::map<std::string, Questions, std::less<>> silent_;  // by the program that was asked
  bool isLost_ = false;
};

// The parts of an answer, one after the other. Each gives an empty or null value for what is not there or is
// of another type.
class BusReader {
 public:
  explicit BusReader(const BusMessage& message) : message_(sd_bus_message_ref(message.get())) {}

  // Goes into a variant of that type.
  bool EnterVariant(const char* type);
  Text ReadText(std::size_t most = kLongestForeignText);  // UTF-16 units
  std::string ReadBytes();
  std::int32_t ReadNumber();
  std::uint32_t ReadUnsigned();
  double ReadReal();
  bool ReadBoolean();
  BusObject ReadObject();
  std::vector<BusObject> ReadObjects();
  std::vector<std::string> ReadStrings();
  std::vector<std::uint32_t> ReadUnsignedArray();
  // Four numbers.
  struct Four {
    std::int32_t first = 0;
    std::int32_t second = 0;
    std::int32_t third = 0;
    std::int32_t fourth = 0;
  };
  Four ReadFour();

  // Everything up to here was there.
  bool IsGood() const { return isGood_; }

 private:
  template <typename Value> Value Read(char type);

  BusMessage message_;
  bool isGood_ = true;
};

}  // namespace pointalk::linux
