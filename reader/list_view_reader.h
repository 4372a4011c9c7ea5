// Reads the items of list views, the desktop's icons above all.
#pragma once

#include <cstdint>

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

  ListViewReader(const Seam& theSeam, const DesktopWindows& theDesktop, SpotHistory& theHistory,
                 Speaker& theSpeaker, ObjectSpeech& theSpeech, WindowTitle& theTitles, EventSounds& theSounds)
      : seam(theSeam),
        desktop(theDesktop),
        history(theHistory),
        speaker(theSpeaker),
        speech(theSpeech),
        titles(theTitles),
        sounds(theSounds) {}

  // True when it spoke or left a prefix, outside the desktop.
  bool ReadListView(const Spot& spot);

  // The label of an item; empty for item -1. Always the main label: the sub-item is not used. At most 255
  // characters.
  Text ListViewItemText(WindowHandle window, std::int32_t item, std::int32_t subItem);

 private:
  Seam seam;
  const DesktopWindows& desktop;
  SpotHistory& history;
  Speaker& speaker;
  ObjectSpeech& speech;
  WindowTitle& titles;
  EventSounds& sounds;

  bool mHitRecordFreeable = false;  // the first record of a run stays in its process
  Text mListViewItemText;
  std::int32_t mLastIconItem = 0;  // for which "NewIcon" sounded last
  bool mWasOnIcon = false;

  ListViewHit HitTest(const Spot& spot);
  void SpeakOnDesktop();
  bool SpeakInList(WindowHandle window);
  bool SetHolderAsPrefix(WindowHandle window);
  void PlayIconSounds(const ListViewHit& hit);
};

}  // namespace pointalk
