// Controls of other programs that answer anything: counts, positions and texts out of all bounds.
#include <algorithm>
#include <array>
#include <cstring>

#include "app/mouse.h"
#include "sim/sim_platform.h"
#include "tests/fuzz/runs.h"
#include "tests/support/forwarding.h"
#include "tests/support/replaced.h"

using namespace pointalk;

namespace {

// Takes its answers from the input, over and over.
class Source {
 public:
  Source(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

  std::int32_t Number() {
    std::int32_t number = 0;
    for (int byte = 0; byte < 4; ++byte)
      number = static_cast<std::int32_t>(static_cast<std::uint32_t>(number) << 8U | Byte());
    return number;
  }
  std::uint8_t Byte() { return size_ == 0 ? 0 : data_[at_++ % size_]; }
  Text Characters(std::size_t most) {
    Text text(Byte() % (most + 1), u'\0');
    for (char16_t& character : text) character = static_cast<char16_t>(Byte() | Byte() << 8);
    return text;
  }

 private:
  const std::uint8_t* data_;
  std::size_t size_;
  std::size_t at_ = 0;
};

class HostileControls final : public ControlMessages {
 public:
  explicit HostileControls(Source& source) : source_(source) {}

  std::optional<std::int32_t> Send(WindowHandle, std::uint32_t, std::uint64_t, std::uint64_t) override {
    if (source_.Byte() % 8 == 0) return std::nullopt;
    return source_.Number();
  }
  std::optional<Text> WindowText(WindowHandle, std::int32_t capacity) override {
    return source_.Characters(static_cast<std::size_t>(std::min(capacity, 200)) - 1);
  }
  std::optional<Text> EditLine(WindowHandle, std::int32_t, std::int32_t capacity) override {
    return source_.Characters(static_cast<std::size_t>(std::min(capacity, 200)));
  }
  std::optional<Text> ListBoxText(WindowHandle, std::int32_t, std::int32_t length) override {
    Text text = source_.Characters(200);
    text.resize(static_cast<std::size_t>(length));
    return text;
  }

 private:
  Source& source_;
};

// Its blocks are none of the machine's, which ignores them when they are given back.
class HostileMemory final : public testing::ForwardingRemoteMemory {
 public:
  HostileMemory(RemoteMemory& memory, Source& source) : ForwardingRemoteMemory(memory), source_(source) {}

  int PointerBytes(ProcessId) override { return source_.Byte() % 2 == 0 ? 4 : 8; }
  RemoteAddress Allocate(ProcessId, std::size_t) override { return source_.Byte() % 8; }
  bool Write(ProcessId, RemoteAddress, std::span<const std::byte>) override {
    return source_.Byte() % 8 != 0;
  }
  bool Read(ProcessId, RemoteAddress, std::span<std::byte> to) override {
    for (std::byte& byte : to) byte = std::byte{source_.Byte()};
    return true;
  }

 private:
  Source& source_;
};

constexpr std::array<TextView, 8> kClasses = {u"SysListView32",  u"ListBox", u"RichEdit20A",
                                              u"ThunderTextBox", u"Button",  u"EditControl",
                                              u"ComboBox",       u"Static"};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Source source(data, size);
  sim::Script script = fuzz::SmallScript();
  sim::WindowFields window;
  window.id = 1;
  window.className = Text(kClasses[source.Byte() % kClasses.size()]);
  window.place = sim::Rectangle{0, 0, 1000, 700};
  script.windows.push_back(window);
  sim::Machine machine(std::move(script));
  sim::SimPlatform base(machine);
  HostileControls messages(source);
  HostileMemory memory(base.memory, source);
  Mouse form(testing::Replaced(base.Seam(), messages, memory));
  form.Form_Load();
  for (int tick = 0; tick < 12; ++tick) {
    machine.pointer = {source.Byte() * 4, source.Byte() * 3};
    form.Timer1_Timer();
  }
  return 0;
}
