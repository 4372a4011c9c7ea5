// The contract suite's desktop, simulated.
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <sstream>

#include "sim/machine.h"
#include "sim/sim_platform.h"
#include "tests/contract/world.h"

namespace pointalk::contract {
namespace {

constexpr std::int32_t kItemHeight = 16;
constexpr std::int32_t kCharWidth = 8;
constexpr std::int32_t kLineHeight = 16;
constexpr std::int32_t kIconCell = 64;
constexpr std::int32_t kMenuTitleWidth = 60;
constexpr std::int32_t kMenuHeight = 20;

sim::Rectangle Rectangle(const Box& box) { return {box.left, box.top, box.right, box.bottom}; }

Box MenuTitleBox(const WindowSpec& window, int index) {
  const std::int32_t left = window.place.left + index * kMenuTitleWidth;
  return {left, window.place.top, left + kMenuTitleWidth, window.place.top + kMenuHeight};
}

sim::MenuSetup MenuOf(const WindowSpec& window) {
  sim::MenuSetup bar;
  int index = 0;
  for (const MenuSpec& menu : window.menu) {
    sim::MenuSetup dropDown;
    for (const Text& item : menu.items) dropDown.items.push_back({sim::ThroughAnsi(item), {}, {}});
    bar.items.push_back({sim::ThroughAnsi(menu.title), Rectangle(MenuTitleBox(window, index++)), dropDown});
  }
  return bar;
}

sim::ListView ListViewOf(const std::vector<Text>& texts) {
  sim::ListView view;
  std::int32_t left = 0;
  for (const Text& text : texts) {
    view.items.push_back(
        {sim::ThroughAnsi(text), {left, 0, left + kIconCell, 32}, {left, 32, left + kIconCell, 48}});
    left += kIconCell;
  }
  return view;
}

sim::WindowFields FieldsOf(const WindowSpec& window, WindowHandle id, WindowHandle parent) {
  sim::WindowFields fields;
  fields.id = id;
  fields.className = window.className;
  fields.title = sim::ThroughAnsi(window.title);
  fields.place = Rectangle(window.place);
  fields.parent = parent;
  if (window.className == u"Edit") {
    fields.edit = sim::Edit(*fields.title, {kCharWidth, kLineHeight}, u"\r\n",
                            window.password ? sim::Edit::Reading::kPassword : sim::Edit::Reading::kOpen);
  }
  if (window.className == u"SysListView32") fields.listView = ListViewOf(window.items);
  if (window.className == u"ListBox") {
    sim::ListBox box;
    for (const Text& item : window.items) box.items.push_back(sim::ThroughAnsi(item));
    box.itemHeight = kItemHeight;
    fields.listBox = box;
  }
  if (!window.menu.empty()) fields.menu = MenuOf(window);
  return fields;
}

sim::AccessibleObject ObjectOf(const ObjectSpec& object) {
  sim::AccessibleObject made;
  made.place = Rectangle(object.place);
  made.name = object.name;
  if (object.role) made.role = object.role->text;
  made.description = object.description;
  made.value = object.value;
  made.isProtected = object.isProtected;
  return made;
}

sim::Script ScriptOf(const Scene& scene) {
  sim::Script script;
  std::map<std::string, WindowHandle, std::less<>> ids{{"", 0}};
  for (const WindowSpec& window : scene.windows) {
    const WindowHandle id = ids.size();
    script.windows.push_back(FieldsOf(window, id, ids.at(window.parent)));
    ids[window.name] = id;
  }
  for (const ObjectSpec& object : scene.objects) script.objects.push_back(ObjectOf(object));
  script.machine.sapi4.emplace();
  script.machine.sapi4->voices = {{u"Mfg=Microsoft;Gender=1", 1}, {u"Mfg=Microsoft;Gender=0", 2}};
  return script;
}

class SimWorld final : public World {
 public:
  explicit SimWorld(const Scene& scene) : scene_(scene), machine_(ScriptOf(scene)), platform_(machine_) {}

  Platform Seam() override { return platform_.Seam(); }
  WindowHandle Window(std::string_view name) override { return Find(name).id; }
  WindowHandle NoWindow() override { return scene_.windows.size() + 1; }

  Point ItemPlace(std::string_view name, int index) override {
    const sim::Window& window = Find(name);
    const Point item = window.listView ? Point{index * kIconCell + kIconCell / 2, 40}
                                       : Point{kItemHeight / 2, index * kItemHeight + kItemHeight / 2};
    return {window.place.left + item.x, window.place.top + item.y};
  }

  Point CharacterPlace(std::string_view name, int index) override {
    const sim::Window& window = Find(name);
    const std::int32_t line = window.edit->LineFromCharacter(index);
    std::int32_t start = index;
    while (start > 0 && window.edit->LineFromCharacter(start - 1) == line) --start;
    return {window.place.left + (index - start) * kCharWidth, window.place.top + line * kLineHeight};
  }

  Point MenuTitlePlace(std::string_view name, int index) override {
    return MenuTitleBox(scene_.windows[Find(name).id - 1], index).Middle();
  }

  void MovePointer(Point place) override { machine_.pointer = place; }
  int IdleKey() override { return 0x87; }  // F24
  void SetKey(int virtualKey, bool down) override { Key(virtualKey).down = down; }
  void TapKey(int virtualKey) override { Key(virtualKey).tapped = true; }

  void SetLeftButton(bool down) override {
    Key(kKeyLeftButton).down = down;
    if (platform_.input.ReportsMouse()) reports_.push_back(down ? 513 : 514);
  }

  Point ScreenSizeInPixels() override { return {machine_.setup.screenWidth, machine_.setup.screenHeight}; }
  std::vector<int> MouseReports(std::size_t) override { return reports_; }

  // All windows are of one program.
  void Hang(std::string_view) override {
    for (WindowHandle id = 1; id <= scene_.windows.size(); ++id) {
      sim::WindowFields fields;
      fields.id = id;
      fields.hung = true;
      machine_.desktop.Change(fields);
    }
  }

  void AnswerBox(int answer) override { machine_.answers.emplace_back(answer); }

  void AnswerInput(std::optional<Text> typed) override {
    if (typed)
      machine_.answers.emplace_back(*typed);
    else
      machine_.answers.emplace_back(kAnswerCancel);
  }

  std::vector<std::string> Heard(std::size_t) override {
    std::vector<std::string> lines;
    std::istringstream transcript(machine_.transcript.Lines());
    for (std::string line; std::getline(transcript, line);) lines.push_back(line);
    return lines;
  }

  std::optional<std::string> FileBytes(FilePath path) override {
    const auto file = machine_.setup.files.find(WholePath(path));
    if (file == machine_.setup.files.end()) return std::nullopt;
    std::string bytes;
    for (const std::byte byte : sim::SimAnsi().ToBytes(file->second)) bytes += static_cast<char>(byte);
    return bytes;
  }

  void MakeReadOnly(FilePath path) override { machine_.setup.readOnly.push_back(WholePath(path)); }
  Text Clipboard() override { return machine_.clipboard; }

  void MakeRegistryText(TextView key, TextView name, TextView text) override {
    sim::RegistryEntry& entry = machine_.setup.registry.Make(PathOf(key)).Make(name);
    entry.text = text;
    entry.data = sim::SimAnsi().ToBytes(text);
    entry.data.push_back(std::byte{0});
  }

  void RemoveRegistryKey(TextView key) override { machine_.setup.registry.Remove(PathOf(key)); }

 private:
  static Text PathOf(TextView key) { return Text(u"HKEY_CURRENT_USER\\").append(key); }

  static Text WholePath(FilePath path) {
    return Text(path.folder == Folder::kProgram ? u"program\\" : u"current\\").append(path.name);
  }

  const sim::Window& Find(std::string_view name) {
    WindowHandle id = 0;
    for (std::size_t i = 0; i < scene_.windows.size(); ++i) {
      if (scene_.windows[i].name == name) id = i + 1;
    }
    return *machine_.desktop.Find(id);
  }

  sim::Key& Key(int virtualKey) { return machine_.keys[static_cast<std::size_t>(virtualKey)]; }

  Scene scene_;
  sim::Machine machine_;
  sim::SimPlatform platform_;
  std::vector<int> reports_;
};

}  // namespace

std::unique_ptr<World> MakeWorld(const Scene& scene) { return std::make_unique<SimWorld>(scene); }

}  // namespace pointalk::contract
