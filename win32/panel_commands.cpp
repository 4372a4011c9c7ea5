#include "win32/panel_commands.h"

#include <vector>

#include "win32/wide_text.h"

namespace pointalk::win32 {
namespace {

// Above the numbers that the system's dialog keys stand for.
constexpr UINT kFirstEntry = 100;
constexpr UINT kFirstButton = 300;

struct Key {
  Shortcut shortcut;
  const wchar_t* label;
  BYTE modifiers;
  WORD key;
};

constexpr Key kKeys[] = {
    {Shortcut::kF1, L"F1", 0, VK_F1},
    {Shortcut::kF11, L"F11", 0, VK_F11},
    {Shortcut::kF12, L"F12", 0, VK_F12},
    {Shortcut::kControlM, L"Ctrl+M", FCONTROL, 'M'},
};

const Key* FindKey(Shortcut shortcut) {
  for (const Key& key : kKeys) {
    if (key.shortcut == shortcut) return &key;
  }
  return nullptr;
}

std::wstring CaptionOf(const MenuEntry& entry) {
  std::wstring caption = Wide(entry.caption);
  if (const Key* const key = FindKey(entry.shortcut)) caption.append(L"\t").append(key->label);
  return caption;
}

}  // namespace

HMENU MakePanelMenu() {
  const HMENU bar = CreateMenu();
  HMENU dropDown = nullptr;
  UINT command = kFirstEntry;
  for (const MenuEntry& entry : PanelMenu()) {
    const std::wstring caption = CaptionOf(entry);
    if (entry.handler == nullptr) {
      dropDown = CreatePopupMenu();
      AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(dropDown), caption.c_str());
    } else {
      AppendMenuW(dropDown, entry.checkedAtStart ? MF_CHECKED : MF_UNCHECKED, command, caption.c_str());
    }
    ++command;
  }
  return bar;
}

OwnedAccelerators MakePanelAccelerators() {
  std::vector<ACCEL> accelerators;
  UINT command = kFirstEntry;
  for (const MenuEntry& entry : PanelMenu()) {
    if (const Key* const key = FindKey(entry.shortcut)) {
      accelerators.push_back(
          {static_cast<BYTE>(key->modifiers | FVIRTKEY), key->key, static_cast<WORD>(command)});
    }
    ++command;
  }
  return OwnedAccelerators(
      CreateAcceleratorTableW(accelerators.data(), static_cast<int>(accelerators.size())));
}

UINT EntryCommand(TextView name) {
  UINT command = kFirstEntry;
  for (const MenuEntry& entry : PanelMenu()) {
    if (entry.name == name) return entry.handler == nullptr ? 0 : command;
    ++command;
  }
  return 0;
}

UINT ButtonCommand(std::size_t index) { return kFirstButton + static_cast<UINT>(index); }

Handler HandlerOf(UINT command) {
  const auto entries = PanelMenu();
  const auto buttons = PanelButtons();
  if (command >= kFirstEntry && command - kFirstEntry < entries.size())
    return entries[command - kFirstEntry].handler;
  if (command >= kFirstButton && command - kFirstButton < buttons.size())
    return buttons[command - kFirstButton].handler;
  return nullptr;
}

}  // namespace pointalk::win32
