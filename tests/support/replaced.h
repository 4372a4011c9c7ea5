// A platform with some of its parts replaced by those of a test.
#pragma once

#include <type_traits>

#include "platform/platform.h"

namespace pointalk::testing {

// The one of the parts that is a Seam; the base where none is.
template <class Seam> Seam& PartOr(Seam& base) { return base; }
template <class Seam, class Part, class... Parts> Seam& PartOr(Seam& base, Part& part, Parts&... parts) {
  if constexpr (std::is_base_of_v<Seam, Part>) {
    return part;
  } else {
    return PartOr(base, parts...);
  }
}

template <class Part, class... Seams>
inline constexpr bool kIsOneOf = (std::is_base_of_v<Seams, Part> || ...);

template <class Part>
inline constexpr bool kIsPartOfPlatform =
    kIsOneOf<Part, Input, WindowTree, ControlMessages, RemoteMemory, AnsiCodePage, Menus, Accessibility,
             MidiOut, Sapi5Voice, Sapi4Control, Dialogs, Panel, Files, RegistryApi, Clock, System>;

// Keep the base's parts and the replacing ones alive longer than what runs on the result.
template <class... Parts> Platform Replaced(const Platform& base, Parts&... parts) {
  static_assert((kIsPartOfPlatform<Parts> && ...));
  return {
      PartOr(base.input, parts...),         PartOr(base.windows, parts...),  PartOr(base.messages, parts...),
      PartOr(base.memory, parts...),        PartOr(base.ansi, parts...),     PartOr(base.menus, parts...),
      PartOr(base.accessibility, parts...), PartOr(base.midi, parts...),     PartOr(base.sapi5, parts...),
      PartOr(base.sapi4, parts...),         PartOr(base.dialogs, parts...),  PartOr(base.panel, parts...),
      PartOr(base.files, parts...),         PartOr(base.registry, parts...), PartOr(base.clock, parts...),
      PartOr(base.system, parts...)};
}

}  // namespace pointalk::testing
