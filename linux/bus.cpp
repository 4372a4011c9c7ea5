#include "linux/bus.h"

#include <poll.h>

#include <algorithm>
#include <limits>
#include <tuple>

namespace pointalk::linux {
namespace {

constexpr std::uint64_t kNoLimit = std::numeric_limits<std::uint64_t>::max();
constexpr std::string_view kNullPath = "/org/a11y/atspi/null";
constexpr char16_t kObjectWithin = 0xFFFC;  // stands in a text for an object, and is no character of it
constexpr std::size_t kMostObjects = 4096;  // of a list that a program gives

}  // namespace

bool BusObject::IsNull() const { return path.empty() || path == kNullPath; }

std::unique_ptr<Bus> Bus::Open(const std::string& address) {
  sd_bus* made = nullptr;
  if (sd_bus_new(&made) < 0) return nullptr;
  Connection bus(made);
  if (sd_bus_set_address(made, address.c_str()) < 0 || sd_bus_set_bus_client(made, 1) < 0 ||
      sd_bus_start(made) < 0)
    return nullptr;
  return std::unique_ptr<Bus>(new Bus(std::move(bus)));
}

BusMessage Bus::Call(const BusObject& object, const char* interface, const char* member) {
  sd_bus_message* message = nullptr;
  if (sd_bus_message_new_method_call(bus_.get(), &message, object.program.c_str(), object.path.c_str(),
                                     interface, member) < 0)
    return nullptr;
  return BusMessage(message);
}

int Bus::TakeAnswer(sd_bus_message* answer, void* question, sd_bus_error* /*error*/) {
  auto& taken = *static_cast<Question*>(question);
  taken.isBack = true;
  if (sd_bus_message_is_method_error(answer, nullptr) == 0) taken.answer.reset(sd_bus_message_ref(answer));
  return 0;
}

void Bus::Send(BusMessage call, Question& question) {
  sd_bus_slot* slot = nullptr;
  if (call && sd_bus_call_async(bus_.get(), &slot, call.get(), &TakeAnswer, &question, kNoLimit) >= 0) {
    question.slot.reset(slot);
  } else {
    question.isBack = true;
  }
}

std::vector<BusMessage> Bus::Ask(std::vector<BusMessage> calls, Moment limit) {
  if (std::chrono::steady_clock::now() >= limit) return std::vector<BusMessage>(calls.size());
  Questions questions;
  std::vector<std::string> programs;
  for (BusMessage& call : calls) {
    const char* const program = call ? sd_bus_message_get_destination(call.get()) : nullptr;
    programs.emplace_back(program == nullptr ? "" : program);
    if (IsSilent(programs.back())) call.reset();
    Send(std::move(call), *questions.emplace_back(std::make_unique<Question>()));
  }
  const auto allBack = [&questions] {
    return std::all_of(questions.begin(), questions.end(),
                       [](const auto& question) { return question->isBack; });
  };
  Process();
  while (!allBack() && !isLost_ && WaitUntil(limit)) Process();
  std::vector<BusMessage> answers;
  for (std::size_t i = 0; i < questions.size(); ++i) {
    answers.push_back(std::move(questions[i]->answer));
    if (!questions[i]->isBack) silent_[programs[i]].push_back(std::move(questions[i]));
  }
  return answers;
}

BusMessage Bus::Ask(BusMessage call, Moment limit) {
  std::vector<BusMessage> calls;
  calls.push_back(std::move(call));
  return std::move(Ask(std::move(calls), limit).front());
}

void Bus::Tell(BusMessage call) {
  if (!call) return;
  sd_bus_message_set_expect_reply(call.get(), 0);
  std::ignore = sd_bus_send(bus_.get(), call.get(), nullptr);  // a bus that is lost is noticed elsewhere
}

bool Bus::IsSilent(const std::string& program) {
  const auto found = silent_.find(program);
  if (found == silent_.end()) return false;
  std::erase_if(found->second, [](const auto& question) { return question->isBack; });
  if (!found->second.empty()) return true;
  silent_.erase(found);
  return false;
}

void Bus::Process() {
  int outcome = 0;
  do {
    outcome = sd_bus_process(bus_.get(), nullptr);
  } while (outcome > 0);
  if (outcome < 0) isLost_ = true;
}

// False when nothing came in before the limit.
bool Bus::WaitUntil(Moment limit) {
  const auto left = limit - std::chrono::steady_clock::now();
  if (left.count() <= 0) return false;
  pollfd file{File(), Events(), 0};
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(left);
  const timespec wait{static_cast<std::time_t>(seconds.count()),
                      static_cast<long>(std::chrono::nanoseconds(left - seconds).count())};
  return ppoll(&file, 1, &wait, nullptr) > 0;
}

bool Bus::Listen(const char* match, sd_bus_message_handler_t handler, void* data) {
  sd_bus_slot* slot = nullptr;
  if (sd_bus_add_match_async(bus_.get(), &slot, match, handler, nullptr, data) < 0) return false;
  listening_.emplace_back(slot);
  return true;
}

template <typename Value> Value BusReader::Read(char type) {
  Value value{};
  isGood_ = isGood_ && message_ != nullptr && sd_bus_message_read_basic(message_.get(), type, &value) > 0;
  return isGood_ ? value : Value{};
}

bool BusReader::EnterVariant(const char* type) {
  isGood_ = isGood_ && message_ != nullptr && sd_bus_message_enter_container(message_.get(), 'v', type) > 0;
  return isGood_;
}

Text BusReader::ReadText(std::size_t most) {
  const char* const text = Read<const char*>('s');
  if (text == nullptr) return {};
  Text read = FromUtf8(text, most);
  std::replace(read.begin(), read.end(), kObjectWithin, u' ');
  return read;
}

std::string BusReader::ReadBytes() {
  const char* const text = Read<const char*>('s');
  return text == nullptr ? "" : text;
}

std::int32_t BusReader::ReadNumber() { return Read<std::int32_t>('i'); }
std::uint32_t BusReader::ReadUnsigned() { return Read<std::uint32_t>('u'); }
double BusReader::ReadReal() { return Read<double>('d'); }
bool BusReader::ReadBoolean() { return Read<int>('b') != 0; }

BusObject BusReader::ReadObject() {
  isGood_ = isGood_ && message_ != nullptr && sd_bus_message_enter_container(message_.get(), 'r', "so") > 0;
  if (!isGood_) return {};
  BusObject object;
  object.program = ReadBytes();
  const char* const path = Read<const char*>('o');
  object.path = path == nullptr ? "" : path;
  sd_bus_message_exit_container(message_.get());
  return object;
}

BusReader::Four BusReader::ReadFour() {
  isGood_ = isGood_ && message_ != nullptr && sd_bus_message_enter_container(message_.get(), 'r', "iiii") > 0;
  if (!isGood_) return {};
  Four four;
  four.first = ReadNumber();
  four.second = ReadNumber();
  four.third = ReadNumber();
  four.fourth = ReadNumber();
  return four;
}

std::vector<BusObject> BusReader::ReadObjects() {
  std::vector<BusObject> objects;
  isGood_ = isGood_ && message_ != nullptr && sd_bus_message_enter_container(message_.get(), 'a', "(so)") > 0;
  while (isGood_ && objects.size() < kMostObjects && sd_bus_message_at_end(message_.get(), 0) == 0)
    objects.push_back(ReadObject());
  return objects;
}

std::vector<std::string> BusReader::ReadStrings() {
  std::vector<std::string> strings;
  isGood_ = isGood_ && message_ != nullptr && sd_bus_message_enter_container(message_.get(), 'a', "s") > 0;
  while (isGood_ && strings.size() < kMostObjects && sd_bus_message_at_end(message_.get(), 0) == 0)
    strings.push_back(ReadBytes());
  return strings;
}

std::vector<std::uint32_t> BusReader::ReadUnsignedArray() {
  const void* data = nullptr;
  std::size_t bytes = 0;
  isGood_ =
      isGood_ && message_ != nullptr && sd_bus_message_read_array(message_.get(), 'u', &data, &bytes) > 0;
  if (!isGood_ || data == nullptr) return {};
  const auto* const numbers = static_cast<const std::uint32_t*>(data);
  return {numbers, numbers + std::min(bytes / sizeof *numbers, kMostObjects)};
}

}  // namespace pointalk::linux
