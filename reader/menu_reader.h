// Says what menu or menu item lies under the pointer.
#pragma once

#include "platform/menus.h"
#include "platform/remote_memory.h"
#include "platform/window_tree.h"
#include "reader/object_description.h"
#include "reader/object_speech.h"
#include "reader/spot.h"

namespace pointalk {

class MenuReader {
 public:
  MenuReader(Menus& theMenus, WindowTree& theWindows, RemoteMemory& theMemory,
             const ObjectDescription& theDescription, ObjectSpeech& theSpeech)
      : menus(theMenus),
        windows(theWindows),
        memory(theMemory),
        description(theDescription),
        speech(theSpeech) {}

  // True when the spot is a menu; then it was said. The flag for command bars is not consulted.
  bool ReadMenu(const Spot& spot, bool isCommandBar);

 private:
  Menus& menus;
  WindowTree& windows;
  RemoteMemory& memory;
  const ObjectDescription& description;
  ObjectSpeech& speech;

  Text ItemTextByRemoteBuffer(WindowHandle window, MenuHandle menu, std::int32_t item);
  Text ItemText(MenuHandle menu, std::int32_t item);
};

}  // namespace pointalk
