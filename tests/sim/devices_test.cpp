// The clock, the keys, the MIDI port, the speech engines, the dialogs, the files and the rest of the machine.
#include <gtest/gtest.h>

#include <limits>

#include "sim/script_error.h"
#include "tests/sim/simulated.h"

namespace pointalk::sim {
namespace {

TEST(SimClock, CountsWholeMicrosecondsAndWrapsAtMidnight) {
  Simulated simulated(R"({"machine": {"clock": 86399.9999996, "spinMilliseconds": 0.0015}})");
  EXPECT_EQ(simulated.platform.clock.SecondsSinceMidnight(), 0);
  simulated.platform.clock.SpinPass();
  EXPECT_EQ(simulated.platform.clock.SecondsSinceMidnight(), 2e-6);
  simulated.machine.Pass(86'399'999'999);
  EXPECT_EQ(simulated.platform.clock.SecondsSinceMidnight(), 1e-6);
  EXPECT_EQ(Simulated().platform.clock.SecondsSinceMidnight(), 36000);
}

TEST(SimClock, RoundsToTheNearestMicrosecond) {
  EXPECT_EQ(DayMicroseconds(2.5), 2);
  EXPECT_EQ(DayMicroseconds(3.5), 4);
  EXPECT_EQ(DayMicroseconds(86'400e6 + 7.2), 7);
  EXPECT_LT(DayMicroseconds(1e300), 86'400'000'000);
  EXPECT_GE(DayMicroseconds(1e300), 0);
}

TEST(SimInput, ATappedKeyIsDownForOneReading) {
  Simulated simulated;
  SimInput& input = simulated.platform.input;
  EXPECT_FALSE(input.KeyDown(kKeyShift));
  simulated.machine.keys[kKeyShift].tapped = true;
  EXPECT_FALSE(input.KeyDown(kKeyControl));
  EXPECT_TRUE(input.KeyDown(kKeyShift));
  EXPECT_FALSE(input.KeyDown(kKeyShift));
  simulated.machine.keys[kKeyAlt].down = true;
  EXPECT_TRUE(input.KeyDown(kKeyAlt));
  EXPECT_TRUE(input.KeyDown(kKeyAlt));
  EXPECT_FALSE(input.KeyDown(-1));
  EXPECT_FALSE(input.KeyDown(256));
}

TEST(SimInput, TheScreenIsMeasuredInTwips) {
  Simulated simulated(R"({"machine": {"screen": [800, 600]}})");
  const auto screen = simulated.platform.input.Screen();
  ASSERT_TRUE(screen);
  EXPECT_EQ(screen->widthTwips / screen->twipsPerPixelX, 800);
  EXPECT_EQ(screen->heightTwips / screen->twipsPerPixelY, 600);
  EXPECT_EQ(screen->twipsPerPixelX, 15);
}

TEST(SimMidiOut, SendsOnlyWhileThePortIsOpen) {
  Simulated simulated(R"({"machine": {"midiOpen": [4, 0, 7], "midiDevices": 0}})");
  SimMidiOut& midi = simulated.platform.midi;
  EXPECT_EQ(midi.DeviceCount(), 0u);
  EXPECT_EQ(midi.OpenMapper().result, 4u);
  EXPECT_FALSE(midi.Send(1, 0x90));
  const MidiOpening opening = midi.OpenMapper();
  EXPECT_EQ(opening.result, 0u);
  EXPECT_TRUE(midi.Send(opening.handle, 0x51AB9E));
  EXPECT_EQ(midi.OpenMapper().result, 7u);
  EXPECT_TRUE(midi.Send(opening.handle, 0));
  EXPECT_TRUE(midi.Close(opening.handle));
  EXPECT_FALSE(midi.Send(opening.handle, 1));
  EXPECT_EQ(midi.OpenMapper().result, 0u);
  EXPECT_TRUE(midi.PlayNamedSound(u"\u0416", 1, 11));
  EXPECT_EQ(simulated.transcript(),
            "midi open 4\nmidi open 0\nmidi 0x51ab9e\nmidi open 7\nmidi 0x0\nmidi close\nmidi open 0\n"
            "sound \"?\" 1 11\n");
}

TEST(SimSapi5Voice, FailsUntilItIsCreated) {
  Simulated simulated;
  SimSapi5Voice& voice = simulated.platform.sapi5;
  EXPECT_EQ(voice.Rate(), std::nullopt);
  EXPECT_EQ(voice.VoiceCount(), std::nullopt);
  EXPECT_FALSE(voice.SetRate(1) || voice.SetVolume(1) || voice.SetVoice(0) || voice.Speak(u"a", 1));
  EXPECT_TRUE(voice.Create());
  EXPECT_EQ(voice.VoiceCount(), 3);
  voice.Release();
  EXPECT_FALSE(voice.Speak(u"a", 1));
  EXPECT_EQ(simulated.transcript(), "");
  Simulated without(R"({"machine": {"sapi5": null}})");
  EXPECT_FALSE(without.platform.sapi5.Create());
}

TEST(SimSapi5Voice, RoundsHalvesToEvenAndTakesAnyNumber) {
  Simulated simulated(R"({"machine": {"sapi5": {"rate": -3.5}}})");
  SimSapi5Voice& voice = simulated.platform.sapi5;
  ASSERT_TRUE(voice.Create());
  EXPECT_EQ(voice.Rate(), -4);
  EXPECT_TRUE(voice.SetRate(2.5));
  EXPECT_TRUE(voice.SetRate(-3e9));
  EXPECT_EQ(voice.Rate(), -3e9);
  EXPECT_TRUE(voice.SetRate(-0.2));
  EXPECT_TRUE(voice.SetRate(99.5));
  EXPECT_FALSE(voice.SetRate(std::numeric_limits<double>::quiet_NaN()));
  EXPECT_EQ(voice.Rate(), 100);
  EXPECT_TRUE(voice.SetVolume(-0.5));
  EXPECT_FALSE(voice.SetVolume(std::numeric_limits<double>::infinity()));
  EXPECT_FALSE(voice.SetVoice(3) || voice.SetVoice(-1));
  EXPECT_TRUE(voice.SetVoice(2));
  EXPECT_EQ(voice.VoiceDescription(1), u"Microsoft Mike");
  EXPECT_EQ(voice.VoiceDescription(3), std::nullopt);
  EXPECT_TRUE(voice.Speak(u"\u0416\"", std::nullopt));
  EXPECT_TRUE(voice.Speak(u"b", 3));
  EXPECT_EQ(
      simulated.transcript(),
      "sapi5 rate 2\nsapi5 rate -3000000000\nsapi5 rate 0\nsapi5 rate 100\nsapi5 volume 0\nsapi5 voice 2\n"
      "sapi5 speak 0 \"\xD0\x96\\\"\"\nsapi5 speak 3 \"b\"\n");
}

TEST(SimSapi4Control, KeepsFractionsOfTheSpeedAndTellsEveryFind) {
  Simulated simulated(R"({"machine": {"sapi4": {"speed": 0.1, "find": {"a": 2.5}, "positions": [3, 7]}}})");
  SimSapi4Control& control = simulated.platform.sapi4;
  EXPECT_EQ(control.Speed(), std::nullopt);
  EXPECT_FALSE(control.Find(u"a"));
  ASSERT_TRUE(control.Create());
  EXPECT_EQ(control.Speed(), 0.1);
  EXPECT_TRUE(control.SetSpeed(158.75));
  EXPECT_FALSE(control.SetSpeed(std::numeric_limits<double>::infinity()));
  EXPECT_EQ(control.Speed(), 158.75);
  EXPECT_EQ(control.Find(u"a"), 2.5);
  EXPECT_EQ(control.Find(u"b"), std::nullopt);
  EXPECT_TRUE(control.Select(2.5) && control.SetVolumeLeft(1.5) && control.SetVolumeRight(2.5));
  EXPECT_TRUE(control.AudioReset() && control.Speak(u"x"));
  EXPECT_EQ(control.LastWordPosition(), 3);
  EXPECT_TRUE(control.SetLastWordPosition(0));
  EXPECT_EQ(control.LastWordPosition(), 7);
  EXPECT_EQ(control.LastWordPosition(), 0);
  EXPECT_EQ(simulated.transcript(),
            "sapi4 speed 158.75\nsapi4 find \"a\"\nsapi4 find \"b\"\nsapi4 select 2.5\nsapi4 left 2\nsapi4 "
            "right 2\n"
            "sapi4 reset\nsapi4 speak \"x\"\nsapi4 position 0\n");
}

TEST(SimDialogs, TakeTheScriptsAnswersInOrder) {
  Simulated simulated;
  simulated.machine.answers = {kAnswerCancel, Text(u"4"), kAnswerCancel};
  SimDialogs& dialogs = simulated.platform.dialogs;
  EXPECT_EQ(dialogs.AskByBox(u"a\r\n\u0416", u"t", kBoxOk), kAnswerCancel);
  EXPECT_EQ(dialogs.AskByInput(u"p", u"t", u"5"), u"4");
  EXPECT_EQ(dialogs.AskByInput(u"p", u"t", u"5"), u"");
  EXPECT_EQ(dialogs.AskByInput(u"p", u"t", u"5"), u"");
  EXPECT_EQ(dialogs.AskByBox(u"a", u"t", kBoxOk), kAnswerOk);
  EXPECT_EQ(dialogs.AskByBox(u"a", u"t", kBoxYesNo), kAnswerNo);
  EXPECT_EQ(dialogs.AskByBox(u"a", u"t", kBoxYesNoCancel), kAnswerNo);
  EXPECT_EQ(dialogs.AskByBox(u"a", u"t", 32 + kBoxYesNo), kAnswerNo);
  EXPECT_EQ(
      simulated.transcript(),
      "box 0 \"t\" \"a\\r\\n?\" -> 2\ninput \"t\" \"p\" \"5\" -> \"4\"\ninput \"t\" \"p\" \"5\" -> \"\"\n"
      "input \"t\" \"p\" \"5\" -> \"\"\nbox 0 \"t\" \"a\" -> 1\nbox 4 \"t\" \"a\" -> 7\n"
      "box 3 \"t\" \"a\" -> 7\nbox 36 \"t\" \"a\" -> 7\n");
}

TEST(SimDialogs, RefuseAnswersOfTheOtherKindAndAskingWithoutEnd) {
  Simulated simulated;
  SimDialogs& dialogs = simulated.platform.dialogs;
  simulated.machine.answers = {Text(u"x"), kAnswerOk};
  EXPECT_THROW(dialogs.AskByBox(u"a", u"t", kBoxOk), ScriptError);
  EXPECT_THROW(dialogs.AskByInput(u"a", u"t", u""), ScriptError);
  for (int i = 0; i < 99; ++i) EXPECT_EQ(dialogs.AskByBox(u"a", u"t", kBoxOk), kAnswerOk);
  EXPECT_THROW(dialogs.AskByInput(u"a", u"t", u""), ScriptError);
}

TEST(SimFiles, AreConvertedWhenTheyPassThroughTheProgram) {
  Simulated simulated(
      R"({"machine": {"files": {"program\\a.txt": "\u0416\r\n"}, "readOnly": ["current\\", "program\\b"]}})");
  SimFiles& files = simulated.platform.files;
  const FilePath a{Folder::kProgram, u"a.txt"};
  EXPECT_TRUE(files.Exists(a));
  EXPECT_FALSE(files.Exists({Folder::kCurrent, u"a.txt"}));
  EXPECT_FALSE(files.Exists({Folder::kProgram, u"A.txt"}));
  EXPECT_EQ(files.Read(a), u"?\r\n");
  EXPECT_EQ(files.Read({Folder::kProgram, u"b"}), std::nullopt);
  EXPECT_TRUE(files.Append(a, u"\u0416"));
  EXPECT_EQ(simulated.machine.setup.files.at(u"program\\a.txt"), u"\u0416\r\n?");
  EXPECT_TRUE(files.Write(a, u"\u2019"));
  EXPECT_TRUE(files.Write({Folder::kProgram, u"bb"}, u""));
  EXPECT_FALSE(files.Write({Folder::kProgram, u"b"}, u"x") || files.Append({Folder::kCurrent, u"c"}, u"x"));
  EXPECT_FALSE(files.Exists({Folder::kProgram, u"b"}) || files.Exists({Folder::kCurrent, u"c"}));
  EXPECT_EQ(simulated.transcript(),
            "append \"program\\\\a.txt\" \"?\"\nwrite \"program\\\\a.txt\" \"\xE2\x80\x99\"\nwrite "
            "\"program\\\\bb\" \"\"\n");
}

TEST(SimSystem, TellsOfTheMachine) {
  Simulated plain;
  EXPECT_EQ(plain.platform.system.Version()->platform, 2u);
  EXPECT_EQ(plain.platform.system.ProgramFolder(), u"C:\\Pointalk");
  EXPECT_EQ(plain.platform.system.ShortPath(u"C:\\Pointalk", 127), u"C:\\Pointalk");
  EXPECT_EQ(plain.platform.system.ShortPath(u"C:\\Pointalk", 2), u"C:");
  Simulated other(R"({"machine": {"windows95": true, "shortPathFails": true}})");
  EXPECT_EQ(other.platform.system.Version()->platform, 1u);
  EXPECT_EQ(other.platform.system.Version()->major, 4u);
  EXPECT_EQ(other.platform.system.Version()->minor, 0u);
  EXPECT_EQ(other.platform.system.ShortPath(u"C:\\Pointalk", 127), u"");
}

TEST(SimSystem, RecordsTheClipboardAndTheShellUnlessTheyFail) {
  Simulated simulated;
  SimSystem& system = simulated.platform.system;
  EXPECT_TRUE(system.SetClipboard(u"\u0416"));
  EXPECT_TRUE(system.ShellOpen(u"o", u"f", u"p", u"d", 5));
  EXPECT_EQ(simulated.machine.clipboard, u"?");
  EXPECT_EQ(simulated.transcript(), "clipboard \"?\"\nshell \"o\" \"f\" \"p\" \"d\" 5\n");
  Simulated failing(R"({"machine": {"clipboardFails": true, "shellFails": true}})");
  EXPECT_FALSE(failing.platform.system.SetClipboard(u"a"));
  EXPECT_FALSE(failing.platform.system.ShellOpen(u"o", u"f", u"p", u"d", 5));
  EXPECT_EQ(failing.machine.clipboard, u"");
  EXPECT_EQ(failing.transcript(), "");
}

TEST(SimPanel, TellsOfChangesOnly) {
  Simulated simulated;
  SimPanel& panel = simulated.platform.panel;
  panel.Minimise();
  panel.Minimise();
  EXPECT_FALSE(panel.TimerEnabled());
  panel.SetTimerEnabled(true);
  EXPECT_TRUE(panel.TimerEnabled());
  EXPECT_TRUE(panel.MenuChecked(u"mnuMidiOnOff"));
  EXPECT_FALSE(panel.MenuChecked(u"mnuVoiceMute") || panel.MenuChecked(u"nothing"));
  panel.SetMenuChecked(u"mnuMidiOnOff", true);
  panel.SetMenuChecked(u"mnuMidiOnOff", false);
  panel.SetMenuChecked(u"mnuVoiceMute", true);
  panel.SetMenuChecked(u"nothing", true);
  EXPECT_EQ(simulated.transcript(), "window minimised\ncheck mnuMidiOnOff off\ncheck mnuVoiceMute on\n");
}

TEST(Machine, AProgramThatIsGoneHasNoMoreEffects) {
  Simulated simulated;
  ASSERT_TRUE(simulated.platform.sapi5.Create());
  const RemoteAddress block = simulated.platform.memory.Allocate(1, 4);
  bool ended = false;
  try {
    simulated.platform.system.EndProgram();
  } catch (const ProgramGone& gone) {
    ended = !gone.killed;
  }
  EXPECT_TRUE(ended);
  EXPECT_TRUE(simulated.platform.sapi5.Speak(u"a", 1));
  simulated.platform.memory.Free(1, block);
  EXPECT_EQ(simulated.transcript(), "");
  EXPECT_EQ(simulated.platform.memory.Memory().BlockCount(), 1u);
}

}  // namespace
}  // namespace pointalk::sim
