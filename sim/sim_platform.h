// The whole seam on a simulated machine, for one run of the program: made anew for every start.
#pragma once

#include "platform/platform.h"
#include "sim/accessibility.h"
#include "sim/clock.h"
#include "sim/code_page.h"
#include "sim/control_messages.h"
#include "sim/dialogs.h"
#include "sim/files.h"
#include "sim/input.h"
#include "sim/machine.h"
#include "sim/menus.h"
#include "sim/midi_out.h"
#include "sim/panel.h"
#include "sim/registry_api.h"
#include "sim/remote_memory.h"
#include "sim/speech_engines.h"
#include "sim/system.h"
#include "sim/window_tree.h"

namespace pointalk::sim {

// The machine has to outlive it. From its making on the machine records what the program does.
class SimPlatform {
 public:
  explicit SimPlatform(Machine& machine)
      : input(machine),
        windows(machine.desktop),
        memory(machine),
        messages(machine.desktop, memory.Memory()),
        menus(machine.desktop),
        accessibility(machine),
        midi(machine),
        sapi5(machine),
        sapi4(machine),
        dialogs(machine),
        panel(machine),
        files(machine),
        registry(machine),
        clock(machine),
        system(machine) {
    machine.programRuns = true;
  }

  SimPlatform(const SimPlatform&) = delete;
  SimPlatform& operator=(const SimPlatform&) = delete;

  Platform Seam() {
    return {input, windows, messages, memory, ansi,  menus,    accessibility, midi,
            sapi5, sapi4,   dialogs,  panel,  files, registry, clock,         system};
  }

  SimInput input;
  SimWindowTree windows;
  SimRemoteMemory memory;
  SimControlMessages messages;
  SimAnsi ansi;
  SimMenus menus;
  SimAccessibility accessibility;
  SimMidiOut midi;
  SimSapi5Voice sapi5;
  SimSapi4Control sapi4;
  SimDialogs dialogs;
  SimPanel panel;
  SimFiles files;
  SimRegistry registry;
  SimClock clock;
  SimSystem system;
};

}  // namespace pointalk::sim
