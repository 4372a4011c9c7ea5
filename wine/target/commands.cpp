#include "wine/target/commands.h"

#include "wine/target/controls.h"
#include "wine/target/memory_blocks.h"
#include "wine/target/messages.h"

namespace pointalk::target {

std::string Commands::Run(const std::string& line) {
  try {
    return Carry(CommandLine(line));
  } catch (const CommandError& error) {
    return JsonObject().Text("error", FromAnsi(error.what())).Line();
  }
}

std::string Commands::Carry(const CommandLine& line) {
  static const std::map<std::wstring, WindowCommand> kWindowCommands = {
      {L"items", &Commands::Items},     {L"data", &Commands::Data},
      {L"menu", &Commands::Menu},       {L"element", &Commands::ElementOf},
      {L"forget", &Commands::Forget},   {L"title", &Commands::Title},
      {L"conceal", &Commands::Conceal}, {L"move", &Commands::Move},
      {L"hide", &Commands::Hide},       {L"raise", &Commands::Raise},
      {L"destroy", &Commands::Destroy}, {L"foreground", &Commands::Foreground},
      {L"send", &Commands::Send},       {L"where", &Commands::Where},
  };
  const std::wstring& name = line.Word(0);
  const auto command = kWindowCommands.find(name);
  if (command != kWindowCommands.end()) return RunOnWindow(line, command->second);
  if (name == L"create") return Create(line);
  if (name == L"show") return Show(*Find(line.Word(1)));
  if (name == L"rule") return AddRule(line);
  if (name == L"unrule") return RemoveRules(line);
  if (name == L"hang") return Find(line.Word(1))->Thread().Hang(), Done();
  if (name == L"wake") return Find(line.Word(1))->Thread().Wake(), Done();
  if (name == L"counts") return Counts(line);
  if (name == L"reset") return Reset();
  if (name == L"memory") return JsonObject().Raw("blocks", SmallPrivateBlocksJson()).Line();
  if (name == L"windows") return JsonObject().Raw("windows", JsonList(Windows())).Line();
  if (name == L"quit") {
    ended_ = true;
    return Done();
  }
  throw CommandError("unknown command " + JsonText(name));
}

std::string Commands::RunOnWindow(const CommandLine& line, WindowCommand command) {
  const WindowPointer window = Find(line.Word(1));
  return window->Thread().Run([this, line, command, window] { return (this->*command)(line, *window); });
}

Commands::WindowPointer Commands::Find(const std::wstring& name) {
  for (const WindowPointer& window : Living()) {
    if (window->Name() == name) return window;
  }
  throw CommandError("no window " + JsonText(name));
}

std::vector<Commands::WindowPointer> Commands::Living() {
  const std::scoped_lock lock(mutex_);
  std::vector<WindowPointer> living;
  for (const WindowPointer& window : windows_) {
    if (IsWindow(window->Handle())) living.push_back(window);
  }
  return living;
}

UiThread& Commands::ThreadNamed(const std::wstring& name) {
  const std::scoped_lock lock(mutex_);
  auto& thread = threads_[name];
  if (!thread) thread = std::make_unique<UiThread>(unaware_);
  return *thread;
}

std::vector<std::string> Commands::Windows() {
  std::vector<std::string> descriptions;
  for (const WindowPointer& window : Living()) descriptions.push_back(window->Description());
  return descriptions;
}

std::string Commands::Create(const CommandLine& line) {
  for (const WindowPointer& window : Living()) {
    if (window->Name() == line.Word(1)) throw CommandError("the name is taken: " + JsonText(line.Word(1)));
  }
  const WindowPointer parent = line.Has(L"parent") ? Find(line.Option(L"parent")) : nullptr;
  UiThread& thread = parent ? parent->Thread() : ThreadNamed(line.OptionOr(L"thread", L"main"));
  const auto window = std::make_shared<TargetWindow>(line.Word(1), BaseOf(line), thread,
                                                     [this](const std::string& command) { Run(command); });
  thread.Run([this, line, parent, window] {
    const HWND handle = MakeWindow(line, window->Base(), parent ? parent->Handle() : nullptr);
    window->Adopt(handle, line.NumberOr(L"bottom", 0) != 0);
    const std::scoped_lock lock(mutex_);
    windows_.push_back(window);
    return std::string();
  });
  return line.NumberOr(L"hidden", 0) != 0 ? window->Description() : Show(*window);
}

std::string Commands::Show(TargetWindow& window) {
  window.Thread().Run([&window] { return window.Show(); });
  return window.Thread().Run([&window] { return window.Raise(); });
}

std::string Commands::Counts(const CommandLine& line) {
  if (line.Count() > 1) return JsonObject().Raw("counts", Find(line.Word(1))->Bent().CountsJson()).Line();
  JsonObject all;
  for (const WindowPointer& window : Living()) all.Raw(ToAnsi(window->Name()), window->Bent().CountsJson());
  return JsonObject().Raw("counts", all.Line()).Line();
}

std::string Commands::Reset() {
  for (const WindowPointer& window : Living()) window->Bent().Reset();
  return Done();
}

std::string Commands::AddRule(const CommandLine& line) {
  Find(line.Word(1))->Bent().Set(MessageNumber(line.Word(2)), ParseRule(line, 3));
  return Done();
}

std::string Commands::RemoveRules(const CommandLine& line) {
  Find(line.Word(1))->Bent().Clear(line.Count() > 2 ? MessageNumber(line.Word(2)) : kAnyMessage);
  return Done();
}

}  // namespace pointalk::target
