// Reads the items of list views, the desktop's icons above all.
#pragma once

#include <cstdint>
#include <optional>

#include "platform/ansi.h"
#include "platform/control_messages.h"
#include "platform/remote_memory.h"
#include "platform/window_tree.h"
#include "reader/desktop_windows.h"
#include "reader/list_view_records.h"
#include "reader/object_speech.h"
#include "reader/spot.h"
#include "reader/window_title.h"
#include "speech/speaker.h"
#include "tones/event_sounds.h"

namespace pointalk {

class ListViewReader {
 public:
  struct Seam {
    ControlMessages& messages;
    WindowTree& windows;
    RemoteMemory& memory;
    AnsiCodePage& ansi;
  };

  ListViewReader(const Seam& seam, Speaker& speaker, EventSounds& eventSounds,
                 const DesktopWindows& desktopWindows, ObjectSpeech& objectSpeech, WindowTitle& windowTitle)
      : seam_(seam),
        speaker_(speaker),
        eventSounds_(eventSounds),
        desktopWindows_(desktopWindows),
        objectSpeech_(objectSpeech),
        windowTitle_(windowTitle) {}

  void ReadListView(const Spot& spot);

  // The label of an item, at most 255 characters of it; empty for item -1. Always the main label. The
  // parameter subItem:
  // Kept: nothing reads it.
  Text ListViewItemText(WindowHandle window, std::int32_t item, std::int32_t subItem);

 private:
  Seam seam_;
  Speaker& speaker_;
  EventSounds& eventSounds_;
  const DesktopWindows& desktopWindows_;
  ObjectSpeech& objectSpeech_;
  WindowTitle& windowTitle_;

  bool mHitRecordFreeable = false;  // the first record of a run stays in its process
  std::int32_t mLastIconItem = 0;   // for which "NewIcon" sounded last
  bool mWasOnIcon = false;          // in the last description of a list view

  ListViewHit HitTest(const Spot& spot);
  void SpeakOnDesktop(const Spot& spot, TextView label);
  void SpeakInList(const Spot& spot, TextView label);
  std::optional<Text> HolderPrefix(WindowHandle window);
  void PlayIconSounds(const ListViewHit& hit);
};

}  // namespace pointalk
