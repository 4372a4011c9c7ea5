// The contract suite's desktop, on X11: the windows and objects are those of a program of ours.
#pragma once

#include <cstdio>
#include <filesystem>
#include <functional>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "linux/linux_platform.h"
#include "tests/contract/world.h"

namespace pointalk::contract {

// The program whose objects are what it is told; see tests/linux/accessible_target/.
class TargetProgram {
 public:
  TargetProgram();
  ~TargetProgram();
  TargetProgram(const TargetProgram&) = delete;
  TargetProgram& operator=(const TargetProgram&) = delete;

  void Tell(const nlohmann::json& words);
  void Stop();  // it answers nothing any more

 private:
  void AwaitLine();

  int process_ = -1;
  std::FILE* in_ = nullptr;
  std::FILE* out_ = nullptr;
};

class LinuxWorld final : public World, private linux::PanelEvents {
 public:
  explicit LinuxWorld(const Scene& scene);
  ~LinuxWorld() override;

  Platform Seam() override { return platform_.Seam(); }
  WindowHandle Window(std::string_view name) override;
  WindowHandle NoWindow() override { return 0x7FFFFFF0; }
  Point ItemPlace(std::string_view window, int index) override;
  Point CharacterPlace(std::string_view window, int index) override;
  Point MenuTitlePlace(std::string_view window, int index) override;
  void MovePointer(Point place) override;
  int IdleKey() override { return kKeyShift; }
  void SetKey(int virtualKey, bool down) override;
  void TapKey(int virtualKey) override;
  void SetLeftButton(bool down) override;
  Point ScreenSizeInPixels() override;
  std::vector<int> MouseReports(std::size_t count) override;
  void Hang(std::string_view window) override;
  void AnswerBox(int answer) override;
  void AnswerInput(std::optional<Text> typed) override;
  std::vector<std::string> Heard(std::size_t count) override;
  std::optional<std::string> FileBytes(FilePath path) override;
  void MakeReadOnly(FilePath path) override;
  Text Clipboard() override;
  void MakeRegistryText(TextView, TextView, TextView) override {}
  void RemoveRegistryKey(TextView) override {}

 private:
  void OnTick() override {}
  void OnMouse(std::int32_t message) override { mouseReports_.push_back(message); }
  void OnClick() override {}
  void OnCommand(Handler) override {}
  void OnUnload() override {}

  void Make(const WindowSpec& window);
  void Make(const ObjectSpec& object, int number);
  const WindowSpec& Spec(std::string_view name) const;
  bool IsTop(Point place, const WindowSpec& window) const;
  WindowHandle Find(const WindowSpec& window);
  // Lets what was typed and clicked arrive.
  void LetInputArrive();
  bool RunUntil(const std::function<bool()>& condition);

  Scene scene_;
  linux::LinuxPlatform platform_;
  std::unique_ptr<TargetProgram> target_;  // where the scene has windows
  std::map<std::string, WindowHandle, std::less<>> handles_;
  std::vector<int> mouseReports_;
  std::size_t heardBefore_ = 0;  // lines
};

}  // namespace pointalk::contract
