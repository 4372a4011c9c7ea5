// The whole seam on a Linux desktop.
#pragma once

#include "linux/accessibility.h"
#include "linux/ansi.h"
#include "linux/clock.h"
#include "linux/control_messages.h"
#include "linux/dialogs.h"
#include "linux/files.h"
#include "linux/input.h"
#include "linux/menus.h"
#include "linux/midi_out.h"
#include "linux/notices.h"
#include "linux/panel.h"
#include "linux/registry_api.h"
#include "linux/remote_memory.h"
#include "linux/speech_engines.h"
#include "linux/system.h"
#include "linux/things.h"
#include "linux/window_tree.h"
#include "platform/platform.h"

namespace pointalk::linux {

// Belongs to the thread that made it, which has the application object and handles its events.
struct LinuxPlatform {
  Platform Seam() {
    return {input, windows, messages, memory, ansi,  menus,    accessibility, midi,
            sapi5, sapi4,   dialogs,  panel,  files, registry, clock,         system};
  }

  SpeechClient speech;
  XDisplay display;
  Things things{display};
  Notices notices;
  LinuxPanel panel;
  InputWatcher watcher{[this](std::int32_t message) { panel.PostMouse(message); }};
  LinuxInput input{display, watcher};
  LinuxWindowTree windows{things};
  LinuxControlMessages messages{things};
  LinuxRemoteMemory memory;
  LinuxAnsi ansi;
  LinuxMenus menus;
  LinuxAccessibility accessibility{things};
  LinuxMidiOut midi{notices};
  LinuxSapi5Voice sapi5{speech, panel, notices};
  LinuxSapi4Control sapi4;
  LinuxDialogs dialogs;
  LinuxFiles files;
  LinuxRegistry registry;
  LinuxClock clock;
  LinuxSystem system{things, notices};
};

}  // namespace pointalk::linux
