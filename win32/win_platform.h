// The whole seam on Windows.
#pragma once

#include "platform/platform.h"
#include "win32/accessibility.h"
#include "win32/ansi.h"
#include "win32/answer_time.h"
#include "win32/clock.h"
#include "win32/control_messages.h"
#include "win32/dialogs.h"
#include "win32/files.h"
#include "win32/input.h"
#include "win32/menus.h"
#include "win32/midi_out.h"
#include "win32/panel.h"
#include "win32/registry_api.h"
#include "win32/remote_memory.h"
#include "win32/speech_engines.h"
#include "win32/system.h"
#include "win32/unresponsive_threads.h"
#include "win32/voice_thread.h"
#include "win32/window_tree.h"

namespace pointalk::win32 {

// Belongs to the thread that made it, which handles its messages. That thread has COM too, but later than the
// voice's: an engine of no apartment's kind lives in the first one, and were that the thread that waits for
// it, neither would go on.
struct WinPlatform {
  Platform Seam() {
    return {input, windows, messages, memory, ansi,  menus,    accessibility, midi,
            sapi5, sapi4,   dialogs,  panel,  files, registry, clock,         system};
  }

  UnresponsiveThreads unresponsiveThreads;
  AnswerTime answerTime;
  VoiceThread voice;
  WinPanel panel{voice};
  WinInput input{panel.Window()};
  WinWindowTree windows{answerTime};
  WinControlMessages messages{unresponsiveThreads, answerTime};
  WinRemoteMemory memory{unresponsiveThreads, panel.Window()};
  WinAnsi ansi;
  WinMenus menus;
  WinAccessibility accessibility{unresponsiveThreads};
  WinMidiOut midi;
  WinSapi5Voice sapi5{voice};
  WinSapi4Control sapi4{voice};
  WinDialogs dialogs{panel.Window()};
  WinFiles files;
  WinRegistry registry;
  WinClock clock;
  WinSystem system{panel.Window(), sapi5, sapi4};
};

}  // namespace pointalk::win32
