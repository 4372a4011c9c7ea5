#include "tests/support/watched_platform.h"

#include "tests/support/forwarding.h"

namespace pointalk::testing {

struct WatchedPlatform::Parts {
  Parts(const Platform& base, Watcher& watcher)
      : input(base.input, &watcher),
        windows(base.windows, &watcher),
        messages(base.messages, &watcher),
        memory(base.memory, &watcher),
        ansi(base.ansi, &watcher),
        menus(base.menus, &watcher),
        accessibility(base.accessibility, &watcher),
        midi(base.midi, &watcher),
        sapi5(base.sapi5, &watcher),
        sapi4(base.sapi4, &watcher),
        dialogs(base.dialogs, &watcher),
        panel(base.panel, &watcher),
        files(base.files, &watcher),
        registry(base.registry, &watcher),
        clock(base.clock, &watcher),
        system(base.system, &watcher) {}

  ForwardingInput input;
  ForwardingWindowTree windows;
  ForwardingControlMessages messages;
  ForwardingRemoteMemory memory;
  ForwardingAnsiCodePage ansi;
  ForwardingMenus menus;
  ForwardingAccessibility accessibility;
  ForwardingMidiOut midi;
  ForwardingSapi5Voice sapi5;
  ForwardingSapi4Control sapi4;
  ForwardingDialogs dialogs;
  ForwardingPanel panel;
  ForwardingFiles files;
  ForwardingRegistryApi registry;
  ForwardingClock clock;
  ForwardingSystem system;
};

WatchedPlatform::WatchedPlatform(const Platform& theBase, Watcher& theWatcher)
    : parts(std::make_unique<Parts>(theBase, theWatcher)) {}

WatchedPlatform::~WatchedPlatform() = default;

Platform WatchedPlatform::Get() {
  return {parts->input,         parts->windows,  parts->messages, parts->memory, parts->ansi,    parts->menus,
          parts->accessibility, parts->midi,     parts->sapi5,    parts->sapi4,  parts->dialogs, parts->panel,
          parts->files,         parts->registry, parts->clock,    parts->system};
}

}  // namespace pointalk::testing
