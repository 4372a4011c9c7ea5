// The whole seam in one place: what the form is given to run on.
#pragma once

#include "platform/accessibility.h"
#include "platform/ansi.h"
#include "platform/clock.h"
#include "platform/control_messages.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/input.h"
#include "platform/menus.h"
#include "platform/midi_out.h"
#include "platform/panel.h"
#include "platform/registry_api.h"
#include "platform/remote_memory.h"
#include "platform/speech_engines.h"
#include "platform/system.h"
#include "platform/window_tree.h"

namespace pointalk {

// References only; whoever builds the form keeps the objects alive longer than it.
struct Platform {
  Input& input;
  WindowTree& windows;
  ControlMessages& messages;
  RemoteMemory& memory;
  AnsiCodePage& ansi;
  Menus& menus;
  Accessibility& accessibility;
  MidiOut& midi;
  Sapi5Voice& sapi5;
  Sapi4Control& sapi4;
  Dialogs& dialogs;
  Panel& panel;
  Files& files;
  RegistryApi& registry;
  Clock& clock;
  System& system;
};

}  // namespace pointalk
