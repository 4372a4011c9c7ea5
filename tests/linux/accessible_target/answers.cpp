#include "tests/linux/accessible_target/answers.h"

#include <chrono>
#include <cstdlib>
#include <deque>
#include <string>
#include <thread>
#include <utility>

namespace pointalk::target {
namespace {

constexpr char kRoot[] = "/org/a11y/atspi/accessible/root";
constexpr std::chrono::milliseconds kLate{600};
constexpr char kRegistry[] = "org.a11y.atspi.Registry";

// Of "GTK 4.8.3" and the like.
std::pair<std::string, std::string> NameAndVersion(const std::string& toolkit) {
  const auto space = toolkit.find(' ');
  if (space == std::string::npos) return {toolkit, "1.0"};
  return {toolkit.substr(0, space), toolkit.substr(space + 1)};
}

// One question, and its answer.
class Answer {
 public:
  Answer(sd_bus_message* question, Objects& objects, const std::string& toolkit)
      : question_(question), objects_(objects), toolkit_(toolkit) {
    bus_ = sd_bus_message_get_bus(question);
    const char* const member = sd_bus_message_get_member(question);
    member_ = member == nullptr ? "" : member;
    if (member_ == "Get") {
      const char* interface = nullptr;
      const char* property = nullptr;
      if (sd_bus_message_read(question, "ss", &interface, &property) > 0) member_ = property;
      isProperty_ = true;
    }
  }

  void Give() {
    const std::string path = sd_bus_message_get_path(question_);
    if (path == kRoot) return GiveOfProgram();
    const Object* const object = objects_.Find(path);
    if (object == nullptr) return Fail();
    const auto lie = object->lies.find(member_);
    const bool isFirst = objects_.IsFirst(object->id, member_);
    if (lie != object->lies.end() && lie->second != Lie::kLate) return GiveLie(lie->second);
    if (lie != object->lies.end() && isFirst) std::this_thread::sleep_for(kLate);
    GiveOf(*object);
  }

 private:
  template <typename... Values> void Reply(const char* types, Values... values) {
    const std::string whole = isProperty_ ? "v" : types;
    if (isProperty_) {
      sd_bus_reply_method_return(question_, "v", types, values...);
    } else {
      sd_bus_reply_method_return(question_, types, values...);
    }
  }

  void Fail() { sd_bus_reply_method_errorf(question_, SD_BUS_ERROR_UNKNOWN_OBJECT, "no such object"); }

  void GiveLie(Lie lie) {
    switch (lie) {
      case Lie::kError: return Fail();
      case Lie::kWrongType: return Reply("(db)", 3.5, 1);
      case Lie::kNoBody: sd_bus_reply_method_return(question_, nullptr); return;
      case Lie::kDeath: std::_Exit(EXIT_SUCCESS);
      default: return;
    }
  }

  void ReplyObject(const std::string& id) {
    const char* name = nullptr;
    sd_bus_get_unique_name(bus_, &name);
    Reply("(so)", name, Objects::PathOf(id).c_str());
  }

  void ReplyObjects(const std::vector<std::string>& ids) {
    const char* name = nullptr;
    sd_bus_get_unique_name(bus_, &name);
    sd_bus_message* reply = nullptr;
    sd_bus_message_new_method_return(question_, &reply);
    sd_bus_message_open_container(reply, 'a', "(so)");
    for (const std::string& id : ids) sd_bus_message_append(reply, "(so)", name, Objects::PathOf(id).c_str());
    sd_bus_message_close_container(reply);
    sd_bus_send(bus_, reply, nullptr);
    sd_bus_message_unref(reply);
  }

  void GiveOfProgram() {
    if (member_ == "GetChildren") return ReplyObjects(objects_.ChildrenOf("root"));
    const auto [toolkit, version] = NameAndVersion(toolkit_);
    if (member_ == "ToolkitName") return Reply("s", toolkit.c_str());
    if (member_ == "Version") return Reply("s", version.c_str());
    if (member_ == "GetRole") return Reply("u", 75U);
    Reply("s", "accessible target");
  }

  void GiveOf(const Object& object) {
    if (member_ == "GetRole") return Reply("u", object.role);
    if (member_ == "GetState") return GiveStates(object);
    if (member_ == "GetInterfaces") return GiveInterfaces(object);
    if (member_ == "GetChildren") return ReplyObjects(objects_.ChildrenOf(object.id));
    if (member_ == "Name") return Reply("s", object.name.c_str());
    if (member_ == "Description") return Reply("s", object.description.c_str());
    if (member_ == "Parent") return ReplyObject(object.parent);
    if (member_ == "CurrentValue") return Reply("d", object.value);
    if (member_ == "GetExtents") {
      const auto& box = object.rectangle;
      return Reply("(iiii)", box[0], box[1], box[2] - box[0], box[3] - box[1]);
    }
    if (member_ == "GetAccessibleAtPoint") return GiveChildAtPoint(object);
    if (member_ == "GetSelectedChild") return ReplyObject(object.selected);
    object.hasText ? GiveOfText(object) : Fail();
  }

  void GiveStates(const Object& object) {
    std::uint32_t words[2] = {1U << 25 | 1U << 30, 0};  // showing, visible
    for (const int bit : object.states) words[bit / 32] |= 1U << bit % 32;
    sd_bus_message* reply = nullptr;
    sd_bus_message_new_method_return(question_, &reply);
    sd_bus_message_append_array(reply, 'u', words, sizeof words);
    sd_bus_send(bus_, reply, nullptr);
    sd_bus_message_unref(reply);
  }

  void GiveInterfaces(const Object& object) {
    const char* const text = object.hasText ? "org.a11y.atspi.Text" : "org.a11y.atspi.Accessible";
    const char* const value = object.hasValue ? "org.a11y.atspi.Value" : "org.a11y.atspi.Accessible";
    Reply("as", 4, "org.a11y.atspi.Accessible", "org.a11y.atspi.Component", text, value);
  }

  void GiveChildAtPoint(const Object& object) {
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::uint32_t kind = 0;
    sd_bus_message_read(question_, "iiu", &x, &y, &kind);
    ReplyObject(objects_.ChildAt(Object(object), x, y));  // a copy, for an endless one makes others
  }

  void GiveOfText(const Object& object) {
    const auto length = static_cast<std::int64_t>(object.text.size());
    std::int32_t first = 0;
    std::int32_t second = 0;
    if (member_ == "CharacterCount")
      return Reply("i", static_cast<std::int32_t>(object.characters < 0 ? length : object.characters));
    if (member_ == "GetText") {
      sd_bus_message_read(question_, "ii", &first, &second);
      return Reply("s", object.text.substr(0, static_cast<std::size_t>(second)).c_str());
    }
    if (member_ == "GetOffsetAtPoint") {
      sd_bus_message_read(question_, "ii", &first, &second);
      return Reply("i", OffsetAt(object, first, second));
    }
    if (member_ == "GetStringAtOffset" || member_ == "GetTextAtOffset") {
      sd_bus_message_read(question_, "i", &first);
      const Line line = LineAt(object.text, first);
      return Reply("sii", line.text.c_str(), line.start, line.end);
    }
    Fail();
  }

  sd_bus_message* question_;
  Objects& objects_;
  const std::string& toolkit_;
  sd_bus* bus_ = nullptr;
  std::string member_;
  bool isProperty_ = false;
};

struct Program {
  Objects& objects;
  std::string toolkit;
};

int GiveAnswer(sd_bus_message* message, void* data, sd_bus_error* /*error*/) {
  if (sd_bus_message_is_method_call(message, nullptr, nullptr) == 0) return 0;
  auto& program = *static_cast<Program*>(data);
  Answer(message, program.objects, program.toolkit).Give();
  return 1;
}

std::string AddressOfBus() {
  sd_bus* session = nullptr;
  sd_bus_message* reply = nullptr;
  const char* address = nullptr;
  if (sd_bus_open_user(&session) < 0) return {};
  std::string found;
  if (sd_bus_call_method(session, "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", nullptr,
                         &reply, "") >= 0 &&
      sd_bus_message_read(reply, "s", &address) > 0)
    found = address;
  sd_bus_message_unref(reply);
  sd_bus_flush_close_unref(session);
  return found;
}

}  // namespace

void TellFocus(sd_bus* bus, const std::string& id) {
  sd_bus_emit_signal(bus, Objects::PathOf(id).c_str(), "org.a11y.atspi.Event.Object", "StateChanged", "siiv",
                     "focused", 1, 0, "i", 0);
}

sd_bus* TellOf(Objects& objects, const std::string& toolkit) {
  static std::deque<Program> programs;
  Program& program = programs.emplace_back(Program{objects, toolkit});
  sd_bus* bus = nullptr;
  const char* name = nullptr;
  const std::string address = AddressOfBus();
  if (sd_bus_new(&bus) < 0 || sd_bus_set_address(bus, address.c_str()) < 0 ||
      sd_bus_set_bus_client(bus, 1) < 0 || sd_bus_start(bus) < 0 ||
      sd_bus_add_filter(bus, nullptr, &GiveAnswer, &program) < 0 || sd_bus_get_unique_name(bus, &name) < 0 ||
      sd_bus_call_method(bus, kRegistry, kRoot, "org.a11y.atspi.Socket", "Embed", nullptr, nullptr, "(so)",
                         name, kRoot) < 0)
    return nullptr;
  return bus;
}

}  // namespace pointalk::target
