// The commands that work on one window, carried out on its thread.
#include "wine/target/commands.h"
#include "wine/target/controls.h"
#include "wine/target/items.h"
#include "wine/target/messages.h"

namespace pointalk::target {
namespace {

void Must(BOOL done, const char* what) {
  if (!done) throw CommandError(std::string(what) + " failed: error " + std::to_string(GetLastError()));
}

}  // namespace

std::string Commands::Items(const CommandLine& line, TargetWindow& window) {
  ReplaceItems(window, line.Rest(2));
  return Done();
}

std::string Commands::Data(const CommandLine& line, TargetWindow& window) {
  std::vector<std::int64_t> data;
  for (const std::wstring& number : line.Rest(2)) data.push_back(ParseNumber(number));
  ReplaceItemData(window, data);
  return Done();
}

std::string Commands::Menu(const CommandLine& line, TargetWindow& window) {
  AppendMenuTo(window.Handle(), line.Word(2), line.Rest(3));
  return Done();
}

std::string Commands::ElementOf(const CommandLine& line, TargetWindow& window) {
  Element probe;
  ConfigureElement(probe, line);  // a wrong option changes nothing
  ConfigureElement(window.ElementAt(static_cast<LONG>(ParseNumber(line.Word(2)))), line);
  return Done();
}

std::string Commands::Forget(const CommandLine&, TargetWindow& window) {
  window.ForgetElements();
  return Done();
}

std::string Commands::Title(const CommandLine& line, TargetWindow& window) {
  Must(SetWindowTextW(window.Handle(), line.Word(2).c_str()), "SetWindowText");
  InvalidateRect(window.Handle(), nullptr, TRUE);
  return Done();
}

std::string Commands::Conceal(const CommandLine&, TargetWindow& window) {
  ConcealText(window.Handle(), window.Base());
  return Done();
}

std::string Commands::Move(const CommandLine& line, TargetWindow& window) {
  const auto side = [&](std::size_t index) { return static_cast<LONG>(ParseNumber(line.Word(index))); };
  RECT rect{side(2), side(3), side(4), side(5)};
  const HWND parent = GetAncestor(window.Handle(), GA_PARENT);
  MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&rect), 2);
  Must(SetWindowPos(window.Handle(), nullptr, rect.left, rect.top, rect.right - rect.left,
                    rect.bottom - rect.top, SWP_NOZORDER | SWP_NOACTIVATE),
       "SetWindowPos");
  return window.Description();
}

std::string Commands::Hide(const CommandLine&, TargetWindow& window) {
  ShowWindow(window.Handle(), SW_HIDE);
  return Done();
}

std::string Commands::Raise(const CommandLine&, TargetWindow& window) { return window.Raise(); }

std::string Commands::Foreground(const CommandLine&, TargetWindow& window) {
  Must(SetForegroundWindow(window.Handle()), "SetForegroundWindow");
  return Done();
}

std::string Commands::Destroy(const CommandLine&, TargetWindow& window) {
  Must(DestroyWindow(window.Handle()), "DestroyWindow");
  return Done();
}

std::string Commands::Send(const CommandLine& line, TargetWindow& window) {
  const LRESULT result = SendMessageW(window.Handle(), MessageNumber(line.Word(2)),
                                      static_cast<WPARAM>(ParseNumber(line.Word(3))),
                                      static_cast<LPARAM>(ParseNumber(line.Word(4))));
  return JsonObject().Number("result", result).Line();
}

std::string Commands::Where(const CommandLine& line, TargetWindow& window) {
  return JsonObject()
      .Rect("rect", PlaceOf(window, line.Word(2), static_cast<int>(ParseNumber(line.Word(3)))))
      .Line();
}

}  // namespace pointalk::target
