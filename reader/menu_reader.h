// Says what menu or menu item lies under the pointer.
#pragma once

#include "platform/menus.h"
#include "platform/remote_memory.h"
#include "platform/window_tree.h"
#include "reader/object_speech.h"
#include "reader/spot.h"

namespace pointalk {

class MenuReader {
 public:
  struct Seam {
    Menus& menus;
    WindowTree& windows;
    RemoteMemory& memory;
  };

  MenuReader(const Seam& seam, ObjectSpeech& objectSpeech) : seam_(seam), objectSpeech_(objectSpeech) {}

  // True when the spot is a menu; then it was said. The parameter isCommandBar:
  // Kept: nothing reads it.
  bool ReadMenu(const Spot& spot, bool isCommandBar);

 private:
  Seam seam_;
  ObjectSpeech& objectSpeech_;

  Text ItemTextByRemoteBuffer(WindowHandle window, MenuHandle menu, std::int32_t item);
  Text ItemText(MenuHandle menu, std::int32_t item);
};

}  // namespace pointalk
