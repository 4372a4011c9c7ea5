// A desktop for the contract suite. The same tests run on the simulated desktop, on Windows and on Linux:
// what all of them do, the seam promises.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/platform.h"

namespace pointalk::contract {

struct Box {
  std::int32_t left = 0;
  std::int32_t top = 0;
  std::int32_t right = 0;
  std::int32_t bottom = 0;

  Point Middle() const { return {(left + right) / 2, (top + bottom) / 2}; }
};

struct MenuSpec {
  Text title;
  std::vector<Text> items;
};

// A window of another program, or with a menu one of our own: other programs' menus cannot be read
// everywhere.
struct WindowSpec {
  std::string name;
  Text className;  // Edit, ListBox and SysListView32 are controls
  Text title;      // an edit's lines are parted by CR LF
  Box place;
  std::string parent = {};       // a window before it
  std::vector<Text> items = {};  // of a list
  std::vector<MenuSpec> menu = {};
  bool password = false;  // an edit is a password field, of one line
};

struct Role {
  int number = 0;
  Text text;
};
inline const Role kPushButton{43, u"push button"};
inline const Role kListItem{34, u"list item"};

// An accessible object in a window.
struct ObjectSpec {
  std::string window;
  Box place;
  std::optional<Text> name = {};
  std::optional<Role> role = {};
  std::optional<Text> description = {};
  std::optional<Text> value = {};
  bool isProtected = false;  // its value is a password
};

struct Scene {
  std::vector<WindowSpec> windows;  // from the lowest to the topmost
  std::vector<ObjectSpec> objects = {};
};

class World {
 public:
  virtual ~World() = default;

  virtual Platform Seam() = 0;

  virtual WindowHandle Window(std::string_view name) = 0;
  // A handle that is no window.
  virtual WindowHandle NoWindow() = 0;

  // Where an item's text, a character's left edge or a menu's title stands on the screen.
  virtual Point ItemPlace(std::string_view window, int index) = 0;
  virtual Point CharacterPlace(std::string_view window, int index) = 0;
  virtual Point MenuTitlePlace(std::string_view window, int index) = 0;

  virtual void MovePointer(Point place) = 0;
  // A key of those that the platform tells of; it means nothing to the programs that are there.
  virtual int IdleKey() = 0;
  virtual void SetKey(int virtualKey, bool down) = 0;
  virtual void TapKey(int virtualKey) = 0;
  virtual void SetLeftButton(bool down) = 0;
  virtual Point ScreenSizeInPixels() = 0;

  // The mouse messages that the form was told of, once there are so many; those that there are if no more
  // come for very long. A test that wants to see none come asks for the next ones that do.
  virtual std::vector<int> MouseReports(std::size_t count) = 0;

  // The window's program answers nothing for a while.
  virtual void Hang(std::string_view window) = 0;

  // How the next dialogs are answered; a box by its button's number, an input box by what is typed over the
  // proposed text, or not at all, which cancels it.
  virtual void AnswerBox(int answer) = 0;
  virtual void AnswerInput(std::optional<Text> typed) = 0;

  // What voices and sounds were asked, in the words of a rehearsal's transcript, once there are so many
  // lines; as with the mouse messages, if no more come.
  virtual std::vector<std::string> Heard(std::size_t count) = 0;

  // A file as it stands on disk; no value when it is missing.
  virtual std::optional<std::string> FileBytes(FilePath path) = 0;
  // From now on the file can be read but not written.
  virtual void MakeReadOnly(FilePath path) = 0;

  virtual Text Clipboard() = 0;

  // A key below HKEY_CURRENT_USER and a text in it, made as other programs make them: in Unicode.
  virtual void MakeRegistryText(TextView key, TextView name, TextView text) = 0;
  // The key has no sub-keys.
  virtual void RemoveRegistryKey(TextView key) = 0;
};

// One at a time.
std::unique_ptr<World> MakeWorld(const Scene& scene);

}  // namespace pointalk::contract
