// The contract suite's desktop on Windows: the windows of other programs are those of the test target.
#pragma once

#include <windows.h>

#include <functional>
#include <map>

#include "tests/contract/win32/child_program.h"
#include "tests/contract/win32/dialog_answers.h"
#include "tests/contract/win32/heard_lines.h"
#include "tests/contract/world.h"
#include "win32/wide_text.h"
#include "win32/win_platform.h"
#include "win32/window_handles.h"

namespace pointalk::contract {

class WinWorld final : public World, private win32::PanelEvents {
 public:
  explicit WinWorld(const Scene& scene);
  ~WinWorld() override;

  Platform Seam() override { return platform.Seam(); }
  WindowHandle Window(std::string_view name) override;
  WindowHandle NoWindow() override;
  Point ItemPlace(std::string_view window, int index) override;
  Point CharacterPlace(std::string_view window, int index) override;
  Point MenuTitlePlace(std::string_view window, int index) override;
  void MovePointer(Point place) override;
  int IdleKey() override { return VK_F24; }
  void SetKey(int virtualKey, bool down) override;
  void TapKey(int virtualKey) override;
  void SetLeftButton(bool down) override;
  Point ScreenSizeInPixels() override;
  std::vector<int> MouseReports(std::size_t count) override;
  void Hang(std::string_view window) override;
  void AnswerBox(int answer) override;
  void AnswerInput(std::optional<Text> typed) override;
  std::vector<std::string> Heard(std::size_t count) override { return heard_.Lines(count); }
  std::optional<std::string> FileBytes(FilePath path) override;
  void MakeReadOnly(FilePath path) override;
  Text Clipboard() override;
  void MakeRegistryText(TextView key, TextView name, TextView text) override;
  void RemoveRegistryKey(TextView key) override;

  // A command to the test target, and its answer. Throws std::runtime_error for one that it refuses.
  std::string Tell(const std::string& command);

  // Handles messages until the condition holds; false after the limit.
  template <typename Condition> bool RunUntil(Condition condition, ULONGLONG milliseconds) {
    for (const ULONGLONG end = GetTickCount64() + milliseconds;; Sleep(5)) {
      platform.panel.LetMessagesRun();
      if (condition()) return true;
      if (GetTickCount64() >= end) return false;
    }
  }

  win32::WinPlatform platform;
  DialogAnswers answers;

  // What the panel told the form.
  int ticks = 0;
  int clicks = 0;
  int unloads = 0;
  int sessionEnds = 0;
  std::vector<Handler> commands;
  std::vector<int> mouseReports;
  int devices = 0;

  // What else a tick does, where a test wants it.
  std::function<void()> duringTick;

  // What the form answers when it is told of devices.
  bool followsDevices = true;

 private:
  void OnTick() override {
    ++ticks;
    if (duringTick) duringTick();
  }
  void OnMouse(std::int32_t message) override { mouseReports.push_back(message); }
  void OnClick() override { ++clicks; }
  void OnCommand(Handler handler) override { commands.push_back(handler); }
  bool OnDevices() override {
    ++devices;
    return followsDevices;
  }
  void OnUnload() override { ++unloads; }
  void OnSessionEnd() override { ++sessionEnds; }

  void MakeForeign(const WindowSpec& window);
  void MakeOwn(const WindowSpec& window);
  void MakeObject(const ObjectSpec& object, int number);
  Point PlaceFrom(const std::string& reply) const;

  HeardLines heard_;
  std::unique_ptr<ChildProgram> target_;  // where the scene has windows of another program
  std::map<std::string, HWND, std::less<>> windows_;
  std::vector<HWND> own_;
  std::vector<win32::OwnedHandle> held_;  // files that nobody else may write
};

}  // namespace pointalk::contract
