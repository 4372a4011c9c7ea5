// For each interface of the seam a class that hands every call on to another object of that interface. A fake
// derives from it and overrides the calls that it changes. With a watcher, every call passes that first.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <type_traits>
#include <vector>

#include "platform/platform.h"
#include "tests/support/watcher.h"

namespace pointalk::testing {

// What a call gives that a watcher lets fail, where failure is a number of the system's.
inline constexpr std::uint32_t kPortIsTaken = 4;
inline constexpr std::int32_t kAccessIsDenied = 5;

// Keep the base and the watcher alive longer than this.
template <class Seam> class Forwarding : public Seam {
 public:
  explicit Forwarding(Seam& base, Watcher* watcher = nullptr) : base_(base), watcher_(watcher) {}

 protected:
  // Makes a call of the base. One that a watcher lets fail gives an empty result.
  template <class Result, class... Parameters, class... Arguments>
  Result Pass(const char* name, Result (Seam::*call)(Parameters...), Arguments&... arguments) {
    if constexpr (std::is_void_v<Result>) {
      if (!watcher_) return (base_.*call)(arguments...);
      watcher_->Pass(name, [&] { (base_.*call)(arguments...); });
    } else {
      return PassOr({}, name, call, arguments...);
    }
  }

  // The same for a call whose failure is another result.
  template <class Result, class... Parameters, class... Arguments>
  Result PassOr(std::type_identity_t<Result> failure, const char* name, Result (Seam::*call)(Parameters...),
                Arguments&... arguments) {
    if (!watcher_) return (base_.*call)(arguments...);
    return watcher_->Pass(name, failure, [&] { return (base_.*call)(arguments...); });
  }

  Seam& base_;

 private:
  Watcher* watcher_;
};

class ForwardingInput : public Forwarding<Input> {
 public:
  using Forwarding::Forwarding;

  std::optional<Point> PointerPosition() override {
    return Pass("Input::PointerPosition", &Input::PointerPosition);
  }
  bool KeyDown(int virtualKey) override { return Pass("Input::KeyDown", &Input::KeyDown, virtualKey); }
  std::optional<ScreenSize> Screen() override { return Pass("Input::Screen", &Input::Screen); }
  bool ReportMouse(bool on) override { return Pass("Input::ReportMouse", &Input::ReportMouse, on); }
};

class ForwardingWindowTree : public Forwarding<WindowTree> {
 public:
  using Forwarding::Forwarding;

  WindowHandle WindowAt(Point screen) override {
    return Pass("WindowTree::WindowAt", &WindowTree::WindowAt, screen);
  }
  std::optional<Text> ClassOf(WindowHandle window, int limit) override {
    return Pass("WindowTree::ClassOf", &WindowTree::ClassOf, window, limit);
  }
  WindowHandle ParentOf(WindowHandle window) override {
    return Pass("WindowTree::ParentOf", &WindowTree::ParentOf, window);
  }
  WindowHandle FirstChildOf(WindowHandle window) override {
    return Pass("WindowTree::FirstChildOf", &WindowTree::FirstChildOf, window);
  }
  WindowHandle FindTopLevel(TextView className, TextView title) override {
    return Pass("WindowTree::FindTopLevel", &WindowTree::FindTopLevel, className, title);
  }
  std::optional<ProcessId> ProcessOf(WindowHandle window) override {
    return Pass("WindowTree::ProcessOf", &WindowTree::ProcessOf, window);
  }
  std::optional<Point> ToClient(WindowHandle window, Point screen) override {
    return Pass("WindowTree::ToClient", &WindowTree::ToClient, window, screen);
  }
  Text CaptionOf(WindowHandle window, int capacity) override {
    return Pass("WindowTree::CaptionOf", &WindowTree::CaptionOf, window, capacity);
  }
};

class ForwardingControlMessages : public Forwarding<ControlMessages> {
 public:
  using Forwarding::Forwarding;

  std::optional<std::int32_t> Send(WindowHandle window, std::uint32_t message, std::uint64_t wParam,
                                   std::uint64_t lParam) override {
    return Pass("ControlMessages::Send", &ControlMessages::Send, window, message, wParam, lParam);
  }
  std::optional<Text> WindowText(WindowHandle window, std::int32_t capacity) override {
    return Pass("ControlMessages::WindowText", &ControlMessages::WindowText, window, capacity);
  }
  std::optional<Text> EditLine(WindowHandle window, std::int32_t line, std::int32_t capacity) override {
    return Pass("ControlMessages::EditLine", &ControlMessages::EditLine, window, line, capacity);
  }
  std::optional<Text> ListBoxText(WindowHandle window, std::int32_t item, std::int32_t length) override {
    return Pass("ControlMessages::ListBoxText", &ControlMessages::ListBoxText, window, item, length);
  }
};

class ForwardingRemoteMemory : public Forwarding<RemoteMemory> {
 public:
  using Forwarding::Forwarding;

  int PointerBytes(ProcessId process) override {
    return Pass("RemoteMemory::PointerBytes", &RemoteMemory::PointerBytes, process);
  }
  RemoteAddress Allocate(ProcessId process, std::size_t bytes) override {
    return Pass("RemoteMemory::Allocate", &RemoteMemory::Allocate, process, bytes);
  }
  bool Write(ProcessId process, RemoteAddress to, std::span<const std::byte> from) override {
    return Pass("RemoteMemory::Write", &RemoteMemory::Write, process, to, from);
  }
  bool Read(ProcessId process, RemoteAddress from, std::span<std::byte> to) override {
    return Pass("RemoteMemory::Read", &RemoteMemory::Read, process, from, to);
  }
  void Free(ProcessId process, RemoteAddress block) override {
    Pass("RemoteMemory::Free", &RemoteMemory::Free, process, block);
  }
  void FreeOnceAnswered(ProcessId process, RemoteAddress block, WindowHandle window) override {
    Pass("RemoteMemory::FreeOnceAnswered", &RemoteMemory::FreeOnceAnswered, process, block, window);
  }
};

class ForwardingAnsiCodePage : public Forwarding<AnsiCodePage> {
 public:
  using Forwarding::Forwarding;

  Text ToText(std::span<const std::byte> bytes) override {
    return Pass("AnsiCodePage::ToText", &AnsiCodePage::ToText, bytes);
  }
  std::vector<std::byte> ToBytes(TextView text) override {
    return Pass("AnsiCodePage::ToBytes", &AnsiCodePage::ToBytes, text);
  }
};

class ForwardingMenus : public Forwarding<Menus> {
 public:
  using Forwarding::Forwarding;

  MenuHandle MenuOf(WindowHandle window) override { return Pass("Menus::MenuOf", &Menus::MenuOf, window); }
  MenuHandle SubMenuOf(MenuHandle menu, int position) override {
    return Pass("Menus::SubMenuOf", &Menus::SubMenuOf, menu, position);
  }
  bool IsMenu(MenuHandle menu) override { return Pass("Menus::IsMenu", &Menus::IsMenu, menu); }
  std::int32_t ItemAt(WindowHandle window, MenuHandle menu, Point screen) override {
    return PassOr(-1, "Menus::ItemAt", &Menus::ItemAt, window, menu, screen);
  }
  std::int32_t ItemText(MenuHandle menu, std::int32_t position, Text& buffer, int capacity) override {
    return Pass("Menus::ItemText", &Menus::ItemText, menu, position, buffer, capacity);
  }
};

class ForwardingAccessibility : public Forwarding<Accessibility> {
 public:
  using Forwarding::Forwarding;

  std::optional<AccessibleFacts> ObjectAt(Point screen) override {
    return Pass("Accessibility::ObjectAt", &Accessibility::ObjectAt, screen);
  }
  bool QueryPending(WindowHandle window) override {
    return Pass("Accessibility::QueryPending", &Accessibility::QueryPending, window);
  }
  Text RoleText(std::int32_t role, int capacity) override {
    return Pass("Accessibility::RoleText", &Accessibility::RoleText, role, capacity);
  }
};

class ForwardingMidiOut : public Forwarding<MidiOut> {
 public:
  using Forwarding::Forwarding;

  std::uint32_t DeviceCount() override { return Pass("MidiOut::DeviceCount", &MidiOut::DeviceCount); }
  MidiOpening OpenMapper() override {
    return PassOr({kPortIsTaken, 0}, "MidiOut::OpenMapper", &MidiOut::OpenMapper);
  }
  bool Send(MidiHandle port, std::uint32_t message) override {
    return Pass("MidiOut::Send", &MidiOut::Send, port, message);
  }
  bool Close(MidiHandle port) override { return Pass("MidiOut::Close", &MidiOut::Close, port); }
  bool PlayNamedSound(TextView name, std::uint32_t module, std::uint32_t flags) override {
    return Pass("MidiOut::PlayNamedSound", &MidiOut::PlayNamedSound, name, module, flags);
  }
};

class ForwardingSapi5Voice : public Forwarding<Sapi5Voice> {
 public:
  using Forwarding::Forwarding;

  bool Create() override { return Pass("Sapi5Voice::Create", &Sapi5Voice::Create); }
  void Release() override { Pass("Sapi5Voice::Release", &Sapi5Voice::Release); }
  std::optional<double> Rate() override { return Pass("Sapi5Voice::Rate", &Sapi5Voice::Rate); }
  bool SetRate(double rate) override { return Pass("Sapi5Voice::SetRate", &Sapi5Voice::SetRate, rate); }
  bool SetVolume(double volume) override {
    return Pass("Sapi5Voice::SetVolume", &Sapi5Voice::SetVolume, volume);
  }
  std::optional<std::int32_t> VoiceCount() override {
    return Pass("Sapi5Voice::VoiceCount", &Sapi5Voice::VoiceCount);
  }
  std::optional<Text> VoiceDescription(std::int32_t index) override {
    return Pass("Sapi5Voice::VoiceDescription", &Sapi5Voice::VoiceDescription, index);
  }
  bool SetVoice(std::int32_t index) override {
    return Pass("Sapi5Voice::SetVoice", &Sapi5Voice::SetVoice, index);
  }
  bool Speak(TextView text, std::optional<int> flags) override {
    return Pass("Sapi5Voice::Speak", &Sapi5Voice::Speak, text, flags);
  }
};

class ForwardingSapi4Control : public Forwarding<Sapi4Control> {
 public:
  using Forwarding::Forwarding;

  bool Create() override { return Pass("Sapi4Control::Create", &Sapi4Control::Create); }
  void Release() override { Pass("Sapi4Control::Release", &Sapi4Control::Release); }
  std::optional<double> Speed() override { return Pass("Sapi4Control::Speed", &Sapi4Control::Speed); }
  bool SetSpeed(double speed) override {
    return Pass("Sapi4Control::SetSpeed", &Sapi4Control::SetSpeed, speed);
  }
  bool SetVolumeLeft(double volume) override {
    return Pass("Sapi4Control::SetVolumeLeft", &Sapi4Control::SetVolumeLeft, volume);
  }
  bool SetVolumeRight(double volume) override {
    return Pass("Sapi4Control::SetVolumeRight", &Sapi4Control::SetVolumeRight, volume);
  }
  std::optional<double> Find(TextView criteria) override {
    return Pass("Sapi4Control::Find", &Sapi4Control::Find, criteria);
  }
  bool Select(double voice) override { return Pass("Sapi4Control::Select", &Sapi4Control::Select, voice); }
  bool AudioReset() override { return Pass("Sapi4Control::AudioReset", &Sapi4Control::AudioReset); }
  bool Speak(TextView text) override { return Pass("Sapi4Control::Speak", &Sapi4Control::Speak, text); }
  std::optional<double> LastWordPosition() override {
    return Pass("Sapi4Control::LastWordPosition", &Sapi4Control::LastWordPosition);
  }
  bool SetLastWordPosition(double position) override {
    return Pass("Sapi4Control::SetLastWordPosition", &Sapi4Control::SetLastWordPosition, position);
  }
};

class ForwardingDialogs : public Forwarding<Dialogs> {
 public:
  using Forwarding::Forwarding;

  int AskByBox(TextView text, TextView title, int style) override {
    return Pass("Dialogs::AskByBox", &Dialogs::AskByBox, text, title, style);
  }
  Text AskByInput(TextView prompt, TextView title, TextView proposed) override {
    return Pass("Dialogs::AskByInput", &Dialogs::AskByInput, prompt, title, proposed);
  }
};

class ForwardingPanel : public Forwarding<Panel> {
 public:
  using Forwarding::Forwarding;

  void Minimise() override { Pass("Panel::Minimise", &Panel::Minimise); }
  bool TimerEnabled() override { return Pass("Panel::TimerEnabled", &Panel::TimerEnabled); }
  void SetTimerEnabled(bool enabled) override {
    Pass("Panel::SetTimerEnabled", &Panel::SetTimerEnabled, enabled);
  }
  void SetTimerInterval(int milliseconds) override {
    Pass("Panel::SetTimerInterval", &Panel::SetTimerInterval, milliseconds);
  }
  bool MenuChecked(TextView name) override { return Pass("Panel::MenuChecked", &Panel::MenuChecked, name); }
  void SetMenuChecked(TextView name, bool checked) override {
    Pass("Panel::SetMenuChecked", &Panel::SetMenuChecked, name, checked);
  }
  void LetMessagesRun() override { Pass("Panel::LetMessagesRun", &Panel::LetMessagesRun); }
};

class ForwardingFiles : public Forwarding<Files> {
 public:
  using Forwarding::Forwarding;

  bool Exists(FilePath path) override { return Pass("Files::Exists", &Files::Exists, path); }
  std::optional<Text> Read(FilePath path) override { return Pass("Files::Read", &Files::Read, path); }
  bool Write(FilePath path, TextView text) override {
    return Pass("Files::Write", &Files::Write, path, text);
  }
  bool WriteLog(FilePath path, TextView text) override {
    return Pass("Files::WriteLog", &Files::WriteLog, path, text);
  }
  bool Append(FilePath path, TextView text) override {
    return Pass("Files::Append", &Files::Append, path, text);
  }
};

class ForwardingRegistryApi : public Forwarding<RegistryApi> {
 public:
  using Forwarding::Forwarding;

  RegistryOpening CreateKey(RegistryKey root, TextView subKey) override {
    return PassOr({kAccessIsDenied, 0}, "RegistryApi::CreateKey", &RegistryApi::CreateKey, root, subKey);
  }
  RegistryOpening OpenKey(RegistryKey root, TextView subKey) override {
    return PassOr({kAccessIsDenied, 0}, "RegistryApi::OpenKey", &RegistryApi::OpenKey, root, subKey);
  }
  std::int32_t CloseKey(RegistryKey key) override {
    return PassOr(kAccessIsDenied, "RegistryApi::CloseKey", &RegistryApi::CloseKey, key);
  }
  std::int32_t SetValue(RegistryKey key, TextView name, std::uint32_t type,
                        const std::vector<std::byte>& data) override {
    return PassOr(kAccessIsDenied, "RegistryApi::SetValue", &RegistryApi::SetValue, key, name, type, data);
  }
  RegistryValueSize QueryValueSize(RegistryKey key, TextView name) override {
    return PassOr({kAccessIsDenied, 0, 0}, "RegistryApi::QueryValueSize", &RegistryApi::QueryValueSize, key,
                  name);
  }
  RegistryValueData QueryValue(RegistryKey key, TextView name, std::uint32_t bytes) override {
    return PassOr({kAccessIsDenied, 0, {}}, "RegistryApi::QueryValue", &RegistryApi::QueryValue, key, name,
                  bytes);
  }
  std::int32_t DeleteValue(RegistryKey key, TextView name) override {
    return PassOr(kAccessIsDenied, "RegistryApi::DeleteValue", &RegistryApi::DeleteValue, key, name);
  }
  RegistryKeyInfo QueryKey(RegistryKey key) override {
    return PassOr({kAccessIsDenied, 0, 0, 0, 0}, "RegistryApi::QueryKey", &RegistryApi::QueryKey, key);
  }
  RegistryName SubKeyName(RegistryKey key, std::uint32_t index, std::uint32_t capacity) override {
    return PassOr({kAccessIsDenied, {}}, "RegistryApi::SubKeyName", &RegistryApi::SubKeyName, key, index,
                  capacity);
  }
  RegistryEnumeratedValue ValueAt(RegistryKey key, std::uint32_t index, std::uint32_t capacity) override {
    return PassOr({kAccessIsDenied, {}, 0, {}}, "RegistryApi::ValueAt", &RegistryApi::ValueAt, key, index,
                  capacity);
  }
  std::int32_t DeleteKey(RegistryKey key, TextView subKey) override {
    return PassOr(kAccessIsDenied, "RegistryApi::DeleteKey", &RegistryApi::DeleteKey, key, subKey);
  }
};

class ForwardingClock : public Forwarding<Clock> {
 public:
  using Forwarding::Forwarding;

  double SecondsSinceMidnight() override {
    return Pass("Clock::SecondsSinceMidnight", &Clock::SecondsSinceMidnight);
  }
  double BeginPasses() override { return Pass("Clock::BeginPasses", &Clock::BeginPasses); }
  double SpinPass() override { return Pass("Clock::SpinPass", &Clock::SpinPass); }
};

class ForwardingSystem : public Forwarding<System> {
 public:
  using Forwarding::Forwarding;

  std::optional<SystemVersion> Version() override { return Pass("System::Version", &System::Version); }
  Text ProgramFolder() override { return Pass("System::ProgramFolder", &System::ProgramFolder); }
  Text ShortPath(TextView path, int capacity) override {
    return Pass("System::ShortPath", &System::ShortPath, path, capacity);
  }
  bool SetClipboard(TextView text) override {
    return Pass("System::SetClipboard", &System::SetClipboard, text);
  }
  bool ShellOpen(TextView operation, TextView file, TextView parameters, TextView directory,
                 int show) override {
    return Pass("System::ShellOpen", &System::ShellOpen, operation, file, parameters, directory, show);
  }
  void EndProgram() override { base_.EndProgram(); }
};

}  // namespace pointalk::testing
