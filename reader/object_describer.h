// Puts into words what lies under the pointer.
#pragma once

#include "app/input_state.h"
#include "crash/crash_learning.h"
#include "crash/crash_report.h"
#include "platform/accessibility.h"
#include "platform/input.h"
#include "platform/panel.h"
#include "platform/window_tree.h"
#include "reader/accessibility_query.h"
#include "reader/control_readers.h"
#include "reader/desktop_windows.h"
#include "reader/edit_readers.h"
#include "reader/edit_words.h"
#include "reader/list_box_reader.h"
#include "reader/list_view_reader.h"
#include "reader/menu_reader.h"
#include "reader/object_description.h"
#include "reader/object_speech.h"
#include "reader/spot.h"
#include "reader/top_window.h"
#include "speech/speaker.h"
#include "tones/event_sounds.h"

namespace pointalk {

class ObjectDescriber {
 public:
  struct Seam {
    Input& keys;
    Panel& panel;
    WindowTree& windows;
    Accessibility& accessibility;
  };

  // Everything that a description goes through, in the order in which it does.
  struct Readers {
    AccessibilityQuery& query;
    TopWindow& topWindow;
    EditWords& editWords;
    MenuReader& menus;
    ControlReaders& controls;
    ListBoxReader& listBoxes;
    ListViewReader& listViews;
    EditReaders& edits;
  };

  ObjectDescriber(const Seam& theSeam, const DesktopWindows& theDesktop, InputState& theInput,
                  ObjectDescription& theDescription, SpotHistory& theHistory, Speaker& theSpeaker,
                  ObjectSpeech& theSpeech, EventSounds& theSounds, CrashLearning& theLearning,
                  CrashReport& theReport, const Readers& theReaders)
      : seam(theSeam),
        desktop(theDesktop),
        input(theInput),
        description(theDescription),
        history(theHistory),
        speaker(theSpeaker),
        speech(theSpeech),
        sounds(theSounds),
        learning(theLearning),
        report(theReport),
        readers(theReaders) {}

  // Describes the spot under the pointer. The poll timer is off meanwhile, and on afterwards.
  void DescribeObjectUnderPointer();

 private:
  Seam seam;
  const DesktopWindows& desktop;
  InputState& input;
  ObjectDescription& description;
  SpotHistory& history;
  Speaker& speaker;
  ObjectSpeech& speech;
  EventSounds& sounds;
  CrashLearning& learning;
  CrashReport& report;
  Readers readers;

  WindowHandle mLastDescribedWindow = 0;
  Text mLastTopWindowName;

  void Describe();
  void NoteWindow(WindowHandle window, TextView className);
  void Query(const Spot& spot, TextView className);
  void AnnounceTopWindow(TextView topName);
  bool EnterWindow(WindowHandle window);
  bool ReadMenuStep(const Spot& spot, TextView className);
  void ReadControlStep(const Spot& spot, TextView lowerClassName);
};

}  // namespace pointalk
