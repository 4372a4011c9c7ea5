// One forwarding class for each interface of the seam.
#include "tests/support/watched_platform.h"

namespace pointalk::testing {
namespace {

class WatchedInput final : public Input {
 public:
  WatchedInput(Input& theBase, Watcher& theWatcher) : base(theBase), watcher(theWatcher) {}

  std::optional<Point> PointerPosition() override {
    return watcher.Pass("Input::PointerPosition", std::optional<Point>{},
                        [&] { return base.PointerPosition(); });
  }
  bool KeyDown(int virtualKey) override {
    return watcher.Pass("Input::KeyDown", false, [&] { return base.KeyDown(virtualKey); });
  }
  std::optional<ScreenSize> Screen() override {
    return watcher.Pass("Input::Screen", std::optional<ScreenSize>{}, [&] { return base.Screen(); });
  }
  bool ReportMouse(bool on) override {
    return watcher.Pass("Input::ReportMouse", false, [&] { return base.ReportMouse(on); });
  }

 private:
  Input& base;
  Watcher& watcher;
};

class WatchedWindowTree final : public WindowTree {
 public:
  WatchedWindowTree(WindowTree& theBase, Watcher& theWatcher) : base(theBase), watcher(theWatcher) {}

  WindowHandle WindowAt(Point screen) override {
    return watcher.Pass("WindowTree::WindowAt", WindowHandle{}, [&] { return base.WindowAt(screen); });
  }
  std::optional<Text> ClassOf(WindowHandle window, int limit) override {
    return watcher.Pass("WindowTree::ClassOf", std::optional<Text>{},
                        [&] { return base.ClassOf(window, limit); });
  }
  WindowHandle ParentOf(WindowHandle window) override {
    return watcher.Pass("WindowTree::ParentOf", WindowHandle{}, [&] { return base.ParentOf(window); });
  }
  WindowHandle FirstChildOf(WindowHandle window) override {
    return watcher.Pass("WindowTree::FirstChildOf", WindowHandle{},
                        [&] { return base.FirstChildOf(window); });
  }
  WindowHandle FindTopLevel(TextView className, TextView title) override {
    return watcher.Pass("WindowTree::FindTopLevel", WindowHandle{},
                        [&] { return base.FindTopLevel(className, title); });
  }
  std::optional<ProcessId> ProcessOf(WindowHandle window) override {
    return watcher.Pass("WindowTree::ProcessOf", std::optional<ProcessId>{},
                        [&] { return base.ProcessOf(window); });
  }
  std::optional<Point> ToClient(WindowHandle window, Point screen) override {
    return watcher.Pass("WindowTree::ToClient", std::optional<Point>{},
                        [&] { return base.ToClient(window, screen); });
  }
  Text CaptionOf(WindowHandle window, int capacity) override {
    return watcher.Pass("WindowTree::CaptionOf", Text{}, [&] { return base.CaptionOf(window, capacity); });
  }

 private:
  WindowTree& base;
  Watcher& watcher;
};

class WatchedControlMessages final : public ControlMessages {
 public:
  WatchedControlMessages(ControlMessages& theBase, Watcher& theWatcher)
      : base(theBase), watcher(theWatcher) {}

  std::optional<std::int32_t> Send(WindowHandle window, std::uint32_t message, std::uint64_t wParam,
                                   std::uint64_t lParam) override {
    return watcher.Pass("ControlMessages::Send", std::optional<std::int32_t>{},
                        [&] { return base.Send(window, message, wParam, lParam); });
  }
  std::optional<Text> WindowText(WindowHandle window, std::int32_t capacity) override {
    return watcher.Pass("ControlMessages::WindowText", std::optional<Text>{},
                        [&] { return base.WindowText(window, capacity); });
  }
  std::optional<Text> EditLine(WindowHandle window, std::int32_t line, std::int32_t capacity) override {
    return watcher.Pass("ControlMessages::EditLine", std::optional<Text>{},
                        [&] { return base.EditLine(window, line, capacity); });
  }
  std::optional<Text> ListBoxText(WindowHandle window, std::int32_t item, std::int32_t length) override {
    return watcher.Pass("ControlMessages::ListBoxText", std::optional<Text>{},
                        [&] { return base.ListBoxText(window, item, length); });
  }

 private:
  ControlMessages& base;
  Watcher& watcher;
};

class WatchedRemoteMemory final : public RemoteMemory {
 public:
  WatchedRemoteMemory(RemoteMemory& theBase, Watcher& theWatcher) : base(theBase), watcher(theWatcher) {}

  int PointerBytes(ProcessId process) override {
    return watcher.Pass("RemoteMemory::PointerBytes", int{}, [&] { return base.PointerBytes(process); });
  }
  RemoteAddress Allocate(ProcessId process, std::size_t bytes) override {
    return watcher.Pass("RemoteMemory::Allocate", RemoteAddress{},
                        [&] { return base.Allocate(process, bytes); });
  }
  bool Write(ProcessId process, RemoteAddress to, std::span<const std::byte> from) override {
    return watcher.Pass("RemoteMemory::Write", false, [&] { return base.Write(process, to, from); });
  }
  bool Read(ProcessId process, RemoteAddress from, std::span<std::byte> to) override {
    return watcher.Pass("RemoteMemory::Read", false, [&] { return base.Read(process, from, to); });
  }
  void Free(ProcessId process, RemoteAddress block) override {
    watcher.Pass("RemoteMemory::Free", [&] { base.Free(process, block); });
  }

 private:
  RemoteMemory& base;
  Watcher& watcher;
};

class WatchedAnsiCodePage final : public AnsiCodePage {
 public:
  WatchedAnsiCodePage(AnsiCodePage& theBase, Watcher& theWatcher) : base(theBase), watcher(theWatcher) {}

  Text ToText(std::span<const std::byte> bytes) override {
    return watcher.Pass("AnsiCodePage::ToText", Text{}, [&] { return base.ToText(bytes); });
  }
  std::vector<std::byte> ToBytes(TextView text) override {
    return watcher.Pass("AnsiCodePage::ToBytes", std::vector<std::byte>{},
                        [&] { return base.ToBytes(text); });
  }

 private:
  AnsiCodePage& base;
  Watcher& watcher;
};

class WatchedMenus final : public Menus {
 public:
  WatchedMenus(Menus& theBase, Watcher& theWatcher) : base(theBase), watcher(theWatcher) {}

  MenuHandle MenuOf(WindowHandle window) override {
    return watcher.Pass("Menus::MenuOf", MenuHandle{}, [&] { return base.MenuOf(window); });
  }
  MenuHandle SubMenuOf(MenuHandle menu, int position) override {
    return watcher.Pass("Menus::SubMenuOf", MenuHandle{}, [&] { return base.SubMenuOf(menu, position); });
  }
  bool IsMenu(MenuHandle menu) override {
    return watcher.Pass("Menus::IsMenu", false, [&] { return base.IsMenu(menu); });
  }
  std::int32_t ItemAt(WindowHandle window, MenuHandle menu, Point screen) override {
    return watcher.Pass("Menus::ItemAt", std::int32_t{-1}, [&] { return base.ItemAt(window, menu, screen); });
  }
  std::int32_t ItemText(MenuHandle menu, std::int32_t position, Text& buffer, int capacity) override {
    return watcher.Pass("Menus::ItemText", std::int32_t{0},
                        [&] { return base.ItemText(menu, position, buffer, capacity); });
  }

 private:
  Menus& base;
  Watcher& watcher;
};

class WatchedAccessibility final : public Accessibility {
 public:
  WatchedAccessibility(Accessibility& theBase, Watcher& theWatcher) : base(theBase), watcher(theWatcher) {}

  std::optional<AccessibleFacts> ObjectAt(Point screen) override {
    return watcher.Pass("Accessibility::ObjectAt", std::optional<AccessibleFacts>{},
                        [&] { return base.ObjectAt(screen); });
  }
  bool QueryStillOut(WindowHandle window) override {
    return watcher.Pass("Accessibility::QueryStillOut", false, [&] { return base.QueryStillOut(window); });
  }
  Text RoleText(std::int32_t role, int capacity) override {
    return watcher.Pass("Accessibility::RoleText", Text{}, [&] { return base.RoleText(role, capacity); });
  }

 private:
  Accessibility& base;
  Watcher& watcher;
};

class WatchedMidiOut final : public MidiOut {
 public:
  WatchedMidiOut(MidiOut& theBase, Watcher& theWatcher) : base(theBase), watcher(theWatcher) {}

  std::uint32_t DeviceCount() override {
    return watcher.Pass("MidiOut::DeviceCount", std::uint32_t{}, [&] { return base.DeviceCount(); });
  }
  MidiOpening OpenMapper() override {
    return watcher.Pass("MidiOut::OpenMapper", MidiOpening{4, 0}, [&] { return base.OpenMapper(); });
  }
  bool Send(MidiHandle port, std::uint32_t message) override {
    return watcher.Pass("MidiOut::Send", false, [&] { return base.Send(port, message); });
  }
  bool Close(MidiHandle port) override {
    return watcher.Pass("MidiOut::Close", false, [&] { return base.Close(port); });
  }
  bool PlayNamedSound(TextView name, std::uint32_t module, std::uint32_t flags) override {
    return watcher.Pass("MidiOut::PlayNamedSound", false,
                        [&] { return base.PlayNamedSound(name, module, flags); });
  }

 private:
  MidiOut& base;
  Watcher& watcher;
};

class WatchedSapi5Voice final : public Sapi5Voice {
 public:
  WatchedSapi5Voice(Sapi5Voice& theBase, Watcher& theWatcher) : base(theBase), watcher(theWatcher) {}

  bool Create() override {
    return watcher.Pass("Sapi5Voice::Create", false, [&] { return base.Create(); });
  }
  void Release() override {
    watcher.Pass("Sapi5Voice::Release", [&] { base.Release(); });
  }
  std::optional<double> Rate() override {
    return watcher.Pass("Sapi5Voice::Rate", std::optional<double>{}, [&] { return base.Rate(); });
  }
  bool SetRate(double rate) override {
    return watcher.Pass("Sapi5Voice::SetRate", false, [&] { return base.SetRate(rate); });
  }
  bool SetVolume(double volume) override {
    return watcher.Pass("Sapi5Voice::SetVolume", false, [&] { return base.SetVolume(volume); });
  }
  std::optional<std::int32_t> VoiceCount() override {
    return watcher.Pass("Sapi5Voice::VoiceCount", std::optional<std::int32_t>{},
                        [&] { return base.VoiceCount(); });
  }
  std::optional<Text> VoiceDescription(std::int32_t index) override {
    return watcher.Pass("Sapi5Voice::VoiceDescription", std::optional<Text>{},
                        [&] { return base.VoiceDescription(index); });
  }
  bool SetVoice(std::int32_t index) override {
    return watcher.Pass("Sapi5Voice::SetVoice", false, [&] { return base.SetVoice(index); });
  }
  bool Speak(TextView text, std::optional<int> flags) override {
    return watcher.Pass("Sapi5Voice::Speak", false, [&] { return base.Speak(text, flags); });
  }

 private:
  Sapi5Voice& base;
  Watcher& watcher;
};

class WatchedSapi4Control final : public Sapi4Control {
 public:
  WatchedSapi4Control(Sapi4Control& theBase, Watcher& theWatcher) : base(theBase), watcher(theWatcher) {}

  bool Create() override {
    return watcher.Pass("Sapi4Control::Create", false, [&] { return base.Create(); });
  }
  void Release() override {
    watcher.Pass("Sapi4Control::Release", [&] { base.Release(); });
  }
  std::optional<double> Speed() override {
    return watcher.Pass("Sapi4Control::Speed", std::optional<double>{}, [&] { return base.Speed(); });
  }
  bool SetSpeed(double speed) override {
    return watcher.Pass("Sapi4Control::SetSpeed", false, [&] { return base.SetSpeed(speed); });
  }
  bool SetVolumeLeft(double volume) override {
    return watcher.Pass("Sapi4Control::SetVolumeLeft", false, [&] { return base.SetVolumeLeft(volume); });
  }
  bool SetVolumeRight(double volume) override {
    return watcher.Pass("Sapi4Control::SetVolumeRight", false, [&] { return base.SetVolumeRight(volume); });
  }
  std::optional<double> Find(TextView criteria) override {
    return watcher.Pass("Sapi4Control::Find", std::optional<double>{}, [&] { return base.Find(criteria); });
  }
  bool Select(double voice) override {
    return watcher.Pass("Sapi4Control::Select", false, [&] { return base.Select(voice); });
  }
  bool AudioReset() override {
    return watcher.Pass("Sapi4Control::AudioReset", false, [&] { return base.AudioReset(); });
  }
  bool Speak(TextView text) override {
    return watcher.Pass("Sapi4Control::Speak", false, [&] { return base.Speak(text); });
  }
  std::optional<double> LastWordPosition() override {
    return watcher.Pass("Sapi4Control::LastWordPosition", std::optional<double>{},
                        [&] { return base.LastWordPosition(); });
  }
  bool SetLastWordPosition(double position) override {
    return watcher.Pass("Sapi4Control::SetLastWordPosition", false,
                        [&] { return base.SetLastWordPosition(position); });
  }

 private:
  Sapi4Control& base;
  Watcher& watcher;
};

class WatchedDialogs final : public Dialogs {
 public:
  WatchedDialogs(Dialogs& theBase, Watcher& theWatcher) : base(theBase), watcher(theWatcher) {}

  int AskByBox(TextView text, TextView title, int style) override {
    return watcher.Pass("Dialogs::AskByBox", int{}, [&] { return base.AskByBox(text, title, style); });
  }
  Text AskByInput(TextView prompt, TextView title, TextView proposed) override {
    return watcher.Pass("Dialogs::AskByInput", Text{},
                        [&] { return base.AskByInput(prompt, title, proposed); });
  }

 private:
  Dialogs& base;
  Watcher& watcher;
};

class WatchedPanel final : public Panel {
 public:
  WatchedPanel(Panel& theBase, Watcher& theWatcher) : base(theBase), watcher(theWatcher) {}

  void Minimise() override {
    watcher.Pass("Panel::Minimise", [&] { base.Minimise(); });
  }
  bool TimerEnabled() override {
    return watcher.Pass("Panel::TimerEnabled", false, [&] { return base.TimerEnabled(); });
  }
  void SetTimerEnabled(bool enabled) override {
    watcher.Pass("Panel::SetTimerEnabled", [&] { base.SetTimerEnabled(enabled); });
  }
  void SetTimerInterval(int milliseconds) override {
    watcher.Pass("Panel::SetTimerInterval", [&] { base.SetTimerInterval(milliseconds); });
  }
  bool MenuChecked(TextView name) override {
    return watcher.Pass("Panel::MenuChecked", false, [&] { return base.MenuChecked(name); });
  }
  void SetMenuChecked(TextView name, bool checked) override {
    watcher.Pass("Panel::SetMenuChecked", [&] { base.SetMenuChecked(name, checked); });
  }
  void LetMessagesRun() override {
    watcher.Pass("Panel::LetMessagesRun", [&] { base.LetMessagesRun(); });
  }

 private:
  Panel& base;
  Watcher& watcher;
};

class WatchedFiles final : public Files {
 public:
  WatchedFiles(Files& theBase, Watcher& theWatcher) : base(theBase), watcher(theWatcher) {}

  bool Exists(FilePath path) override {
    return watcher.Pass("Files::Exists", false, [&] { return base.Exists(path); });
  }
  std::optional<Text> Read(FilePath path) override {
    return watcher.Pass("Files::Read", std::optional<Text>{}, [&] { return base.Read(path); });
  }
  bool Write(FilePath path, TextView text) override {
    return watcher.Pass("Files::Write", false, [&] { return base.Write(path, text); });
  }
  bool Append(FilePath path, TextView text) override {
    return watcher.Pass("Files::Append", false, [&] { return base.Append(path, text); });
  }

 private:
  Files& base;
  Watcher& watcher;
};

class WatchedRegistryApi final : public RegistryApi {
 public:
  WatchedRegistryApi(RegistryApi& theBase, Watcher& theWatcher) : base(theBase), watcher(theWatcher) {}

  RegistryOpening CreateKey(RegistryKey root, TextView subKey) override {
    return watcher.Pass("RegistryApi::CreateKey", RegistryOpening{5, 0},
                        [&] { return base.CreateKey(root, subKey); });
  }
  RegistryOpening OpenKey(RegistryKey root, TextView subKey) override {
    return watcher.Pass("RegistryApi::OpenKey", RegistryOpening{5, 0},
                        [&] { return base.OpenKey(root, subKey); });
  }
  std::int32_t CloseKey(RegistryKey key) override {
    return watcher.Pass("RegistryApi::CloseKey", std::int32_t{5}, [&] { return base.CloseKey(key); });
  }
  std::int32_t SetValue(RegistryKey key, TextView name, std::uint32_t type,
                        const std::vector<std::byte>& data) override {
    return watcher.Pass("RegistryApi::SetValue", std::int32_t{5},
                        [&] { return base.SetValue(key, name, type, data); });
  }
  RegistryValueSize QueryValueSize(RegistryKey key, TextView name) override {
    return watcher.Pass("RegistryApi::QueryValueSize", RegistryValueSize{5, 0, 0},
                        [&] { return base.QueryValueSize(key, name); });
  }
  RegistryValueData QueryValue(RegistryKey key, TextView name, std::uint32_t bytes) override {
    return watcher.Pass("RegistryApi::QueryValue", RegistryValueData{5, 0, {}},
                        [&] { return base.QueryValue(key, name, bytes); });
  }
  std::int32_t DeleteValue(RegistryKey key, TextView name) override {
    return watcher.Pass("RegistryApi::DeleteValue", std::int32_t{5},
                        [&] { return base.DeleteValue(key, name); });
  }
  RegistryKeyInfo QueryKey(RegistryKey key) override {
    return watcher.Pass("RegistryApi::QueryKey", RegistryKeyInfo{5, 0, 0, 0, 0},
                        [&] { return base.QueryKey(key); });
  }
  RegistryName SubKeyName(RegistryKey key, std::uint32_t index, std::uint32_t capacity) override {
    return watcher.Pass("RegistryApi::SubKeyName", RegistryName{5, {}},
                        [&] { return base.SubKeyName(key, index, capacity); });
  }
  RegistryName ValueName(RegistryKey key, std::uint32_t index, std::uint32_t capacity) override {
    return watcher.Pass("RegistryApi::ValueName", RegistryName{5, {}},
                        [&] { return base.ValueName(key, index, capacity); });
  }
  std::int32_t DeleteKey(RegistryKey key, TextView subKey) override {
    return watcher.Pass("RegistryApi::DeleteKey", std::int32_t{5},
                        [&] { return base.DeleteKey(key, subKey); });
  }

 private:
  RegistryApi& base;
  Watcher& watcher;
};

class WatchedClock final : public Clock {
 public:
  WatchedClock(Clock& theBase, Watcher& theWatcher) : base(theBase), watcher(theWatcher) {}

  double SecondsSinceMidnight() override {
    return watcher.Pass("Clock::SecondsSinceMidnight", double{}, [&] { return base.SecondsSinceMidnight(); });
  }
  void SpinPass() override {
    watcher.Pass("Clock::SpinPass", [&] { base.SpinPass(); });
  }

 private:
  Clock& base;
  Watcher& watcher;
};

class WatchedSystem final : public System {
 public:
  WatchedSystem(System& theBase, Watcher& theWatcher) : base(theBase), watcher(theWatcher) {}

  std::optional<SystemVersion> Version() override {
    return watcher.Pass("System::Version", std::optional<SystemVersion>{}, [&] { return base.Version(); });
  }
  Text ProgramFolder() override {
    return watcher.Pass("System::ProgramFolder", Text{}, [&] { return base.ProgramFolder(); });
  }
  Text ShortPath(TextView path, int capacity) override {
    return watcher.Pass("System::ShortPath", Text{}, [&] { return base.ShortPath(path, capacity); });
  }
  bool SetClipboard(TextView text) override {
    return watcher.Pass("System::SetClipboard", false, [&] { return base.SetClipboard(text); });
  }
  bool ShellOpen(TextView operation, TextView file, TextView parameters, TextView directory,
                 int show) override {
    return watcher.Pass("System::ShellOpen", false,
                        [&] { return base.ShellOpen(operation, file, parameters, directory, show); });
  }
  void EndProgram() override { base.EndProgram(); }

 private:
  System& base;
  Watcher& watcher;
};

}  // namespace

struct WatchedPlatform::Parts {
  Parts(const Platform& base, Watcher& watcher)
      : input(base.input, watcher),
        windows(base.windows, watcher),
        messages(base.messages, watcher),
        memory(base.memory, watcher),
        ansi(base.ansi, watcher),
        menus(base.menus, watcher),
        accessibility(base.accessibility, watcher),
        midi(base.midi, watcher),
        sapi5(base.sapi5, watcher),
        sapi4(base.sapi4, watcher),
        dialogs(base.dialogs, watcher),
        panel(base.panel, watcher),
        files(base.files, watcher),
        registry(base.registry, watcher),
        clock(base.clock, watcher),
        system(base.system, watcher) {}

  WatchedInput input;
  WatchedWindowTree windows;
  WatchedControlMessages messages;
  WatchedRemoteMemory memory;
  WatchedAnsiCodePage ansi;
  WatchedMenus menus;
  WatchedAccessibility accessibility;
  WatchedMidiOut midi;
  WatchedSapi5Voice sapi5;
  WatchedSapi4Control sapi4;
  WatchedDialogs dialogs;
  WatchedPanel panel;
  WatchedFiles files;
  WatchedRegistryApi registry;
  WatchedClock clock;
  WatchedSystem system;
};

WatchedPlatform::WatchedPlatform(const Platform& theBase, Watcher& theWatcher)
    : parts(std::make_unique<Parts>(theBase, theWatcher)) {}

WatchedPlatform::~WatchedPlatform() = default;

Platform WatchedPlatform::Get() {
  return {parts->input,         parts->windows,  parts->messages, parts->memory, parts->ansi,    parts->menus,
          parts->accessibility, parts->midi,     parts->sapi5,    parts->sapi4,  parts->dialogs, parts->panel,
          parts->files,         parts->registry, parts->clock,    parts->system};
}

}  // namespace pointalk::testing
