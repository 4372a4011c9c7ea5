#include "tests/contract/linux/linux_world.h"

#include <QtCore/QTimer>
#include <QtGui/QClipboard>
#include <QtGui/QScreen>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QApplication>
#include <QtWidgets/QInputDialog>
#include <QtWidgets/QMessageBox>
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <thread>

#include "linux/atspi_names.h"
#include "linux/folders.h"
#include "linux/qt_text.h"
#include "linux/roles.h"
#include "linux/utf8.h"

namespace pointalk::contract {
namespace {

namespace fs = std::filesystem;

constexpr std::int32_t kItemHeight = 16;
constexpr std::int32_t kIconWidth = 64;
constexpr std::int32_t kCharacterWidth = 8;
constexpr std::int32_t kLineHeight = 16;
constexpr std::int32_t kSearchStep = 5;  // pixels
constexpr std::uint32_t kRolePanel = 39;
constexpr std::uint32_t kRoleList = 31;
constexpr std::uint32_t kRoleIcon = 26;

fs::path FolderOf(Folder folder) {
  return folder == Folder::kProgram ? linux::ProgramFolderPath() : fs::path("current");
}

fs::path WholePath(FilePath path) {
  return (path.folder == Folder::kProgram ? linux::ProgramFolderPath() : fs::current_path()) /
         linux::ToUtf8(path.name);
}

std::array<std::int32_t, 4> Rectangle(const Box& box) { return {box.left, box.top, box.right, box.bottom}; }

bool Holds(const Box& box, Point place) {
  return place.x >= box.left && place.y >= box.top && place.x < box.right && place.y < box.bottom;
}

// Lines are parted by one character here.
std::string LinesOf(TextView text) {
  std::string lines = linux::ToUtf8(text);
  std::erase(lines, '\r');
  return lines;
}

std::uint32_t RoleOf(const WindowSpec& window) {
  if (window.parent.empty()) return linux::kRoleFrame;
  if (window.className == u"Edit") return window.password ? linux::kRolePassword : linux::kRoleText;
  return window.items.empty() ? kRolePanel : kRoleList;
}

// What has a text for its value is a field.
std::uint32_t RoleOf(const ObjectSpec& object) {
  if (!object.role) return linux::kRoleInvalid;
  if (object.value && !object.isProtected) return linux::kRoleEntry;
  return object.role->number == kPushButton.number ? linux::kRolePushButton : linux::kRoleListItem;
}

void Type(const std::string& command) {
  if (std::system(("xdotool " + command).c_str()) != 0) throw std::runtime_error("no xdotool");
}

std::string KeyName(int virtualKey) {
  switch (virtualKey) {
    case kKeyShift: return "shift";
    case kKeyControl: return "ctrl";
    default: return "alt";
  }
}

std::vector<std::string> LinesOfFile(const char* variable) {
  const char* const path = std::getenv(variable);
  std::ifstream file(path == nullptr ? "" : path);
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);) lines.push_back(line);
  return lines;
}

// Calls again until the dialog that is waited for is there.
template <typename Dialog> void WhenShown(const std::function<void(Dialog&)>& act) {
  auto* const look = new QTimer(qApp);
  QObject::connect(look, &QTimer::timeout, [look, act] {
    auto* const box = qobject_cast<Dialog*>(QApplication::activeModalWidget());
    if (box == nullptr || !box->isVisible()) return;
    look->deleteLater();
    look->stop();
    act(*box);
  });
  look->start(5);
}

}  // namespace

LinuxWorld::LinuxWorld(const Scene& scene)
    : scene_(scene), heardBefore_(LinesOfFile("POINTALK_HEARD").size()) {
  fs::create_directories(linux::ProgramFolderPath());
  fs::create_directories(FolderOf(Folder::kCurrent));
  fs::current_path(FolderOf(Folder::kCurrent));
  platform_.panel.Serve(this);
  if (scene.windows.empty()) return;
  target_ = std::make_unique<TargetProgram>();
  for (const WindowSpec& window : scene.windows) Make(window);
  int number = 0;
  for (const ObjectSpec& object : scene.objects) Make(object, ++number);
  for (const WindowSpec& window : scene.windows) handles_[window.name] = Find(window);
}

LinuxWorld::~LinuxWorld() {
  for (const Folder folder : {Folder::kProgram, Folder::kCurrent})
    fs::remove(WholePath({folder, u"contract file.txt"}));
  fs::current_path("..");
}

void LinuxWorld::Make(const WindowSpec& window) {
  nlohmann::json words{{"id", window.name},
                       {"parent", window.parent.empty() ? "root" : window.parent},
                       {"rectangle", Rectangle(window.place)},
                       {"role", RoleOf(window)}};
  if (window.className == u"Edit") {
    words["text"] = LinesOf(window.title);
    words["states"] = std::vector<int>{linux::kStateMultiLine};
  } else {
    words["name"] = linux::ToUtf8(window.title);
  }
  target_->Tell(words);
  std::int32_t number = 0;
  for (const Text& item : window.items) {
    const bool areIcons = window.className == u"SysListView32";
    const Point origin{window.place.left + (areIcons ? number * kIconWidth : 0),
                       window.place.top + (areIcons ? 0 : number * kItemHeight)};
    const Box place{origin.x, origin.y, areIcons ? origin.x + kIconWidth : window.place.right,
                    origin.y + kItemHeight};
    target_->Tell({{"id", window.name + std::to_string(number++)},
                   {"parent", window.name},
                   {"rectangle", Rectangle(place)},
                   {"role", areIcons ? kRoleIcon : std::uint32_t{linux::kRoleListItem}},
                   {"name", linux::ToUtf8(item)}});
  }
  if (!window.parent.empty()) return;
  target_->Tell({{"window", window.name},
                 {"title", linux::ToUtf8(window.title)},
                 {"rectangle", Rectangle(window.place)}});
}

void LinuxWorld::Make(const ObjectSpec& object, int number) {
  nlohmann::json words{{"id", "object" + std::to_string(number)},
                       {"parent", object.window},
                       {"rectangle", Rectangle(object.place)},
                       {"role", RoleOf(object)},
                       {"name", linux::ToUtf8(object.name.value_or(u""))},
                       {"description", linux::ToUtf8(object.description.value_or(u""))}};
  if (object.value) words["text"] = linux::ToUtf8(*object.value);
  target_->Tell(words);
}

const WindowSpec& LinuxWorld::Spec(std::string_view name) const {
  return *std::find_if(scene_.windows.begin(), scene_.windows.end(),
                       [name](const WindowSpec& window) { return window.name == name; });
}

// No other window and no object of the scene lies over it there.
bool LinuxWorld::IsTop(Point place, const WindowSpec& window) const {
  const auto isOver = [&](const Box& box) { return Holds(box, place); };
  if (std::any_of(scene_.objects.begin(), scene_.objects.end(),
                  [&](const ObjectSpec& object) { return isOver(object.place); }))
    return false;
  const auto top = std::find_if(scene_.windows.rbegin(), scene_.windows.rend(),
                                [&](const WindowSpec& other) { return isOver(other.place); });
  return top != scene_.windows.rend() && top->name == window.name;
}

// A handle is had by pointing at its window.
WindowHandle LinuxWorld::Find(const WindowSpec& window) {
  for (std::int32_t y = window.place.top; y < window.place.bottom; y += kSearchStep) {
    for (std::int32_t x = window.place.left; x < window.place.right; x += kSearchStep) {
      if (!IsTop({x, y}, window)) continue;
      WindowHandle found = 0;
      // Until its program has answered, what is found is the window that the X server knows.
      RunUntil([&] {
        found = platform_.windows.WindowAt({x, y});
        return platform_.accessibility.ObjectAt({x, y}) &&
               (window.parent.empty() || platform_.windows.ParentOf(found) != 0);
      });
      return found;
    }
  }
  return 0;
}

bool LinuxWorld::RunUntil(const std::function<bool()>& condition) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(1);
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  return true;
}

WindowHandle LinuxWorld::Window(std::string_view name) { return handles_.find(name)->second; }

Point LinuxWorld::ItemPlace(std::string_view window, int index) {
  const Box& place = Spec(window).place;
  if (Spec(window).className == u"SysListView32")
    return {place.left + index * kIconWidth + kIconWidth / 2, place.top + kItemHeight / 2};
  return {place.left + kItemHeight / 2, place.top + index * kItemHeight + kItemHeight / 2};
}

Point LinuxWorld::CharacterPlace(std::string_view window, int index) {
  const std::string text = LinesOf(Spec(window).title);
  const std::string before = text.substr(0, static_cast<std::size_t>(index));
  const auto lines = static_cast<std::int32_t>(std::count(before.begin(), before.end(), '\n'));
  const auto column = static_cast<std::int32_t>(before.size() - (before.rfind('\n') + 1));
  return {Spec(window).place.left + column * kCharacterWidth, Spec(window).place.top + lines * kLineHeight};
}

// Menus are objects like others.
Point LinuxWorld::MenuTitlePlace(std::string_view window, int /*index*/) {
  return Spec(window).place.Middle();
}

void LinuxWorld::MovePointer(Point place) {
  Type("mousemove " + std::to_string(place.x) + ' ' + std::to_string(place.y));
}

// What comes from the X server comes in its order: the key that is tapped last is seen last.
void LinuxWorld::LetInputArrive() {
  Type("key alt");
  RunUntil([this] { return platform_.watcher.TakePress(kKeyAlt); });
}

void LinuxWorld::SetKey(int virtualKey, bool down) {
  Type((down ? "keydown " : "keyup ") + KeyName(virtualKey));
  LetInputArrive();
}

void LinuxWorld::TapKey(int virtualKey) {
  Type("key " + KeyName(virtualKey));
  LetInputArrive();
}

void LinuxWorld::SetLeftButton(bool down) {
  Type(down ? "mousedown 1" : "mouseup 1");
  LetInputArrive();
}

Point LinuxWorld::ScreenSizeInPixels() {
  const QSize size = QGuiApplication::primaryScreen()->size();
  return {size.width(), size.height()};
}

// Once the last button has been seen, its report is among the events.
std::vector<int> LinuxWorld::MouseReports(std::size_t /*count*/) {
  QCoreApplication::processEvents();
  return mouseReports_;
}

// All windows are of one program. That it hangs is known once it has been asked what lies under the pointer.
void LinuxWorld::Hang(std::string_view window) {
  target_->Stop();
  platform_.windows.WindowAt(Spec(window).place.Middle());
}

void LinuxWorld::AnswerBox(int answer) {
  WhenShown<QMessageBox>([answer](QMessageBox& box) {
    const std::map<int, QMessageBox::StandardButton> buttons{{kAnswerOk, QMessageBox::Ok},
                                                             {kAnswerCancel, QMessageBox::Cancel},
                                                             {kAnswerYes, QMessageBox::Yes},
                                                             {kAnswerNo, QMessageBox::No}};
    box.button(buttons.at(answer))->click();
  });
}

void LinuxWorld::AnswerInput(std::optional<Text> typed) {
  WhenShown<QInputDialog>([typed = std::move(typed)](QInputDialog& box) {
    if (!typed) return box.reject();
    box.setTextValue(linux::ToQt(*typed));
    box.accept();
  });
}

// The texts that the voice was given.
std::vector<std::string> LinuxWorld::Heard(std::size_t) {
  std::vector<std::string> heard;
  const auto lines = LinesOfFile("POINTALK_HEARD");
  for (std::size_t number = heardBefore_; number < lines.size(); ++number) {
    const auto words = nlohmann::json::parse(lines[number]);
    if (words.contains("say")) heard.push_back(words["say"].get<std::string>());
  }
  return heard;
}

std::optional<std::string> LinuxWorld::FileBytes(FilePath path) {
  std::ifstream file(WholePath(path), std::ios::binary);
  if (!file) return std::nullopt;
  std::ostringstream bytes;
  bytes << file.rdbuf();
  return bytes.str();
}

void LinuxWorld::MakeReadOnly(FilePath path) { fs::permissions(WholePath(path), fs::perms::owner_read); }

Text LinuxWorld::Clipboard() { return linux::FromQt(QGuiApplication::clipboard()->text()); }

std::unique_ptr<World> MakeWorld(const Scene& scene) { return std::make_unique<LinuxWorld>(scene); }

}  // namespace pointalk::contract
