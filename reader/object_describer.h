// Puts into words what lies under the pointer.
#pragma once

#include "crash/crash_learning.h"
#include "crash/crash_report.h"
#include "input/keys.h"
#include "platform/accessibility.h"
#include "platform/panel.h"
#include "platform/window_tree.h"
#include "reader/accessibility_query.h"
#include "reader/control_readers.h"
#include "reader/desktop_windows.h"
#include "reader/edit_readers.h"
#include "reader/edit_words.h"
#include "reader/last_description.h"
#include "reader/list_box_reader.h"
#include "reader/list_view_reader.h"
#include "reader/menu_reader.h"
#include "reader/object_speech.h"
#include "reader/spot.h"
#include "reader/top_window.h"
#include "speech/pronouncer.h"
#include "speech/speaker.h"
#include "tones/event_sounds.h"

namespace pointalk {

class ObjectDescriber {
 public:
  struct Seam {
    Panel& panel;
    WindowTree& windows;
    Accessibility& accessibility;
  };

  // What a description uses of the rooms below.
  struct Parts {
    Keys& keys;
    Pronouncer& pronouncer;
    Speaker& speaker;
    EventSounds& eventSounds;
    CrashLearning& crashLearning;
    CrashReport& crashReport;
  };

  // Everything of this room that a description goes through, in the order in which it does.
  struct Readers {
    const DesktopWindows& desktopWindows;
    AccessibilityQuery& accessibilityQuery;
    TopWindow& topWindow;
    ObjectSpeech& objectSpeech;
    EditWords& editWords;
    MenuReader& menuReader;
    ControlReaders& controlReaders;
    ListBoxReader& listBoxReader;
    ListViewReader& listViewReader;
    EditReaders& editReaders;
  };

  ObjectDescriber(const Seam& seam, const Parts& parts, const Readers& readers)
      : seam_(seam), parts_(parts), readers_(readers) {}

  // Describes what lies under the pointer, given in screen pixels. The poll timer is off meanwhile, and on
  // afterwards.
  void DescribeObjectUnderPointer(Point pointer);

  // Says what kind of thing was described last. The poll timer is off meanwhile.
  void Identify();

  // Says the name of the top window of what was described last, unspelled whatever key is held.
  void NameTopWindow();

 private:
  Seam seam_;
  Parts parts_;
  Readers readers_;

  LastDescription last_;

  void Describe(Point pointer);
  void RememberQuery(const Spot& spot);
  void AnnounceTopWindow(const Spot& spot, TextView topName);
  bool EnterWindow(WindowHandle window);
  bool ReadMenuStep(const Spot& spot, TextView className);
  void ReadControlStep(const Spot& spot);
};

}  // namespace pointalk
