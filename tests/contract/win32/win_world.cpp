#include "tests/contract/win32/win_world.h"

#include <objbase.h>
#include <oleacc.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <tuple>
#include <utility>

#include "tests/contract/win32/patience.h"
#include "win32/com.h"
#include "win32/program_folder.h"

namespace pointalk::contract {
namespace {

namespace fs = std::filesystem;

fs::path ScratchFolder() {
  return fs::temp_directory_path() / ("pointalk-contract-" + std::to_string(GetCurrentProcessId()));
}

fs::path FolderOf(Folder folder) {
  return folder == Folder::kProgram ? fs::path(win32::ProgramFolderPath()) : ScratchFolder();
}

fs::path WholePath(FilePath path) { return FolderOf(path.folder) / win32::Wide(path.name); }

// What tests leave behind.
void RemoveFiles() {
  for (const Folder folder : {Folder::kProgram, Folder::kCurrent}) {
    for (const fs::directory_entry& entry : fs::directory_iterator(FolderOf(folder))) {
      if (entry.path().filename().wstring().starts_with(L"contract file")) fs::remove(entry.path());
    }
  }
}

// In the form in which the target takes texts.
std::string Quoted(TextView text) {
  std::ostringstream quoted;
  quoted << '"' << std::hex;
  for (const char16_t unit : text)
    quoted << "\\u" << (unit < 0x1000 ? unit < 0x100 ? unit < 0x10 ? "000" : "00" : "0" : "")
           << static_cast<unsigned>(unit);
  quoted << '"';
  return quoted.str();
}

std::string Rect(const Box& box) {
  return std::to_string(box.left) + ',' + std::to_string(box.top) + ',' + std::to_string(box.right) + ',' +
         std::to_string(box.bottom);
}

// COM stays with the thread: the voices' library has threads of its own and must not be unloaded under them.
void HaveCom() {
  static auto* const com = new win32::ComThread(COINIT_APARTMENTTHREADED);
  std::ignore = com;
}

void PressButton(bool down) {
  INPUT input{};
  input.type = INPUT_MOUSE;
  input.mi.dwFlags = down ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_LEFTUP;
  SendInput(1, &input, sizeof input);
}

}  // namespace

WinWorld::WinWorld(const Scene& scene) {
  HaveCom();
  fs::create_directories(ScratchFolder());
  fs::current_path(ScratchFolder());
  RemoveFiles();
  platform.panel.Serve(this);
  for (const WindowSpec& window : scene.windows) {
    if (window.menu.empty())
      MakeForeign(window);
    else
      MakeOwn(window);
  }
  int number = 0;
  for (const ObjectSpec& object : scene.objects) MakeObject(object, ++number);
}

WinWorld::~WinWorld() {
  for (const HWND window : own_) DestroyWindow(window);
  held_.clear();
  RemoveFiles();
}

void WinWorld::MakeForeign(const WindowSpec& window) {
  if (!target_) {
    target_ = std::make_unique<ChildProgram>(win32::ProgramFolderPath() + L"\\wine\\target\\target.exe");
    target_->ReadLine();
  }
  std::string command = "create " + window.name + " class=" + Quoted(window.className) +
                        " title=" + Quoted(window.title) + " rect=" + Rect(window.place);
  if (!window.parent.empty()) command += " parent=" + window.parent;
  if (window.className == u"Edit") command += window.password ? " kind=password" : " kind=multiline";
  const std::string reply = Tell(command);
  windows_[window.name] = win32::ToWindow(std::stoull(std::string(RawField(reply, "hwnd"))));
  if (window.items.empty()) return;
  std::string items = "items " + window.name;
  for (const Text& item : window.items) items += ' ' + Quoted(item);
  Tell(items);
}

void WinWorld::MakeOwn(const WindowSpec& window) {
  const HMENU bar = CreateMenu();
  for (const MenuSpec& menu : window.menu) {
    const HMENU dropDown = CreatePopupMenu();
    UINT_PTR id = 1000;
    for (const Text& item : menu.items) AppendMenuW(dropDown, MF_STRING, id++, win32::Wide(item).c_str());
    AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(dropDown), win32::Wide(menu.title).c_str());
  }
  const std::wstring name = win32::Wide(window.className);
  WNDCLASSW kind{};
  kind.lpfnWndProc = &DefWindowProcW;
  kind.hInstance = GetModuleHandleW(nullptr);
  kind.lpszClassName = name.c_str();
  RegisterClassW(&kind);
  const Box& place = window.place;
  const HWND made = CreateWindowExW(WS_EX_TOPMOST, name.c_str(), win32::Wide(window.title).c_str(),
                                    WS_POPUP | WS_CAPTION, place.left, place.top, place.right - place.left,
                                    place.bottom - place.top, nullptr, bar, kind.hInstance, nullptr);
  ShowWindow(made, SW_SHOWNOACTIVATE);
  UpdateWindow(made);
  platform.panel.LetMessagesRun();
  own_.push_back(made);
  windows_[window.name] = made;
}

void WinWorld::MakeObject(const ObjectSpec& object, int number) {
  const std::string begin = "element " + object.window + ' ';
  if (number == 1) {
    for (const auto& [name, window] : windows_) {
      if (name != object.window) continue;
      RECT whole;
      GetWindowRect(window, &whole);
      Tell(begin + "0 name=whole rect=" + Rect({whole.left, whole.top, whole.right, whole.bottom}));
    }
  }
  std::string command = begin + std::to_string(number) + " rect=" + Rect(object.place);
  if (object.name) command += " name=" + Quoted(*object.name);
  if (object.description) command += " description=" + Quoted(*object.description);
  if (object.value) command += " value=" + Quoted(*object.value);
  if (object.role) command += " role=" + std::to_string(object.role->number);
  if (object.isProtected) command += " state=" + std::to_string(STATE_SYSTEM_PROTECTED);
  Tell(command);
}

std::string WinWorld::Tell(const std::string& command) {
  target_->Write(command);
  std::string reply = target_->ReadLine();
  if (!RawField(reply, "error").empty()) throw std::runtime_error(command + ": " + reply);
  return reply;
}

WindowHandle WinWorld::Window(std::string_view name) {
  return win32::FromWindow(windows_.find(name)->second);
}

WindowHandle WinWorld::NoWindow() { return 0x7FFFFFF0; }

Point WinWorld::PlaceFrom(const std::string& reply) const {
  std::istringstream numbers(reply.substr(reply.find('[') + 1));
  Box box;
  char comma = 0;
  numbers >> box.left >> comma >> box.top >> comma >> box.right >> comma >> box.bottom;
  return box.Middle();
}

Point WinWorld::ItemPlace(std::string_view window, int index) {
  return PlaceFrom(Tell("where " + std::string(window) + " label " + std::to_string(index)));
}

Point WinWorld::CharacterPlace(std::string_view window, int index) {
  return PlaceFrom(Tell("where " + std::string(window) + " char " + std::to_string(index)));
}

Point WinWorld::MenuTitlePlace(std::string_view window, int index) {
  const HWND handle = windows_.find(window)->second;
  RECT place{};
  GetMenuItemRect(handle, GetMenu(handle), static_cast<UINT>(index), &place);
  return Box{place.left, place.top, place.right, place.bottom}.Middle();
}

// A movement before this one may still be on its way back from the screen.
void WinWorld::MovePointer(Point place) {
  RunUntil(
      [place] {
        SetCursorPos(place.x, place.y);
        Sleep(20);
        POINT reached{};
        return GetCursorPos(&reached) && reached.x == place.x && reached.y == place.y;
      },
      kPatience);
}

void WinWorld::SetKey(int virtualKey, bool down) { PressKey(virtualKey, down); }

void WinWorld::TapKey(int virtualKey) {
  PressKey(virtualKey, true);
  PressKey(virtualKey, false);
}

void WinWorld::SetLeftButton(bool down) { PressButton(down); }

Point WinWorld::ScreenSizeInPixels() {
  return {GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
}

std::vector<int> WinWorld::MouseReports(std::size_t count) {
  RunUntil([&] { return mouseReports.size() >= count; }, kPatience);
  return mouseReports;
}

void WinWorld::Hang(std::string_view window) { Tell("hang " + std::string(window)); }

void WinWorld::AnswerBox(int answer) {
  static const std::map<int, int> keys = {
      {kAnswerOk, VK_RETURN}, {kAnswerCancel, VK_ESCAPE}, {kAnswerYes, 'Y'}, {kAnswerNo, 'N'}};
  answers.Type({keys.at(answer)});
}

void WinWorld::AnswerInput(std::optional<Text> typed) {
  if (!typed) return answers.Type({VK_ESCAPE});
  std::vector<int> keys = KeysOf(*typed);
  keys.push_back(VK_RETURN);
  answers.Type(std::move(keys));
}

std::optional<std::string> WinWorld::FileBytes(FilePath path) {
  std::ifstream file(WholePath(path), std::ios::binary);
  if (!file) return std::nullopt;
  std::ostringstream bytes;
  bytes << file.rdbuf();
  return bytes.str();
}

// Who may do anything on the machine may write files that are marked as read-only, but nobody one that
// another holds.
void WinWorld::MakeReadOnly(FilePath path) {
  held_.emplace_back(CreateFileW(WholePath(path).c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                 OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
}

Text WinWorld::Clipboard() {
  Text text;
  if (!OpenClipboard(nullptr)) return text;
  if (const HANDLE data = GetClipboardData(CF_UNICODETEXT)) {
    text = win32::FromWide(static_cast<const wchar_t*>(GlobalLock(data)));
    GlobalUnlock(data);
  }
  CloseClipboard();
  return text;
}

void WinWorld::MakeRegistryText(TextView key, TextView name, TextView text) {
  const std::wstring data = win32::Wide(text);
  const LSTATUS code = RegSetKeyValueW(HKEY_CURRENT_USER, win32::Wide(key).c_str(), win32::Wide(name).c_str(),
                                       REG_SZ, data.c_str(), static_cast<DWORD>((data.size() + 1) * 2));
  if (code != ERROR_SUCCESS) throw std::runtime_error("no text in the registry: " + std::to_string(code));
}

void WinWorld::RemoveRegistryKey(TextView key) {
  const LSTATUS code = RegDeleteKeyW(HKEY_CURRENT_USER, win32::Wide(key).c_str());
  if (code != ERROR_SUCCESS) throw std::runtime_error("the key stays: " + std::to_string(code));
}

std::unique_ptr<World> MakeWorld(const Scene& scene) { return std::make_unique<WinWorld>(scene); }

}  // namespace pointalk::contract
