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

WatchedPlatform::WatchedPlatform(const Platform& base, Watcher& watcher)
    : parts_(std::make_unique<Parts>(base, watcher)) {}

WatchedPlatform::~WatchedPlatform() = default;

Platform WatchedPlatform::Get() {
  return {parts_->input, parts_->windows,  parts_->messages,      parts_->memory,
          parts_->ansi,  parts_->menus,    parts_->accessibility, parts_->midi,
          parts_->sapi5, parts_->sapi4,    parts_->dialogs,       parts_->panel,
          parts_->files, parts_->registry, parts_->clock,         parts_->system};
}

}  // namespace pointalk::testing
