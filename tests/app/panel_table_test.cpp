// The control panel's menu and buttons, spelled out a second time.
#include "app/panel_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

#include "app/mouse.h"

namespace pointalk {
namespace {

constexpr MenuEntry kMenu[] = {
    {u"mnuFile", u"&File", Shortcut::kNone, false, nullptr},
    {u"mnuFileMinimize", u"&Minimize Control Panel ", Shortcut::kNone, false, &Mouse::mnuFileMinimize_Click},
    {u"mnuFileExit", u"E&xit", Shortcut::kNone, false, &Mouse::mnuFileExit_Click},
    {u"mnuMidi", u"&Midi", Shortcut::kNone, false, nullptr},
    {u"mnuMidiOnOff", u"Midi On/Off", Shortcut::kNone, true, &Mouse::mnuMidiOnOff_Click},
    {u"mnuMidiMouseInstrumentPreset", u"Mouse Instrument Preset", Shortcut::kNone, false,
     &Mouse::mnuMidiMouseInstrumentPreset_Click},
    {u"mnuMidiHorizInstrument", u"Horizontal Instrument", Shortcut::kNone, false,
     &Mouse::mnuMidiHorizInstrument_Click},
    {u"mnuMidiHorizVolume", u"Horizontal Volume", Shortcut::kNone, false, &Mouse::mnuMidiHorizVolume_Click},
    {u"mnuMidiVertInstrument", u"Vertical Instrument", Shortcut::kNone, false,
     &Mouse::mnuMidiVertInstrument_Click},
    {u"mnuMidiVertVolume", u"Vertical Volume", Shortcut::kNone, false, &Mouse::mnuMidiVertVolume_Click},
    {u"mnuMidiMouseMelodyFormat", u"Mouse Melody Format", Shortcut::kNone, false,
     &Mouse::mnuMidiMouseMelodyFormat_Click},
    {u"mnuMidiDingVolume", u"Ding Volume", Shortcut::kNone, false, &Mouse::mnuMidiDingVolume_Click},
    {u"mnuMidiKeyboardScaling", u"Keyboard Scaling For Midi Volumes", Shortcut::kNone, false,
     &Mouse::mnuMidiKeyboardScaling_Click},
    {u"mnuVoice", u"&Voice", Shortcut::kNone, false, nullptr},
    {u"mnuVoiceVolume", u"Voice Volume", Shortcut::kNone, false, &Mouse::mnuVoiceVolume_Click},
    {u"mnuVoiceSlowDown", u"Slow Down", Shortcut::kF11, false, &Mouse::mnuVoiceSlowDown_Click},
    {u"mnuVoiceSpeedUp", u"Speed Up", Shortcut::kF12, false, &Mouse::mnuVoiceSpeedUp_Click},
    {u"mnuVoiceMary", u"Use Mary", Shortcut::kNone, false, &Mouse::mnuVoiceMary_Click},
    {u"mnuVoiceMike", u"Use Mike", Shortcut::kNone, false, &Mouse::mnuVoiceMike_Click},
    {u"mnuVoiceSam", u"Use Sam", Shortcut::kNone, false, &Mouse::mnuVoiceSam_Click},
    {u"mnuVoiceMute", u"Mute Voice", Shortcut::kControlM, false, &Mouse::mnuVoiceMute_Click},
    {u"mnuVoiceClearSapiVersion", u"Clear Sapi Version", Shortcut::kNone, false,
     &Mouse::mnuVoiceClearSapiVersion_Click},
    {u"mnuHelp", u"&Help", Shortcut::kNone, false, nullptr},
    {u"mnuHelpInstructions", u"Instructions", Shortcut::kF1, false, &Mouse::mnuHelpInstructions_Click},
    {u"mnuHelpAbout", u"About Pointalk", Shortcut::kNone, false, &Mouse::mnuHelpAbout_Click},
    {u"mnuProgram", u"&Program", Shortcut::kNone, false, nullptr},
    {u"mnuProgramMakeAutoStart", u"Make AutoStart", Shortcut::kNone, false,
     &Mouse::mnuProgramMakeAutoStart_Click},
    {u"mnuProgramMakeNotAutoStart", u"Make Not AutoStart", Shortcut::kNone, false,
     &Mouse::mnuProgramMakeNotAutoStart_Click},
    {u"mnuTrouble", u"&TroubleShooting", Shortcut::kNone, false, nullptr},
    {u"mnuTroubleCrashReport", u"Send Crash Report", Shortcut::kNone, false,
     &Mouse::mnuTroubleCrashReport_Click},
};

TEST(PanelMenu, HasItsEntriesInOrder) {
  const auto menu = PanelMenu();
  ASSERT_EQ(menu.size(), std::size(kMenu));
  for (std::size_t i = 0; i < menu.size(); ++i) {
    SCOPED_TRACE(::testing::PrintToString(Text(kMenu[i].name)));
    EXPECT_EQ(menu[i].name, kMenu[i].name);
    EXPECT_EQ(menu[i].caption, kMenu[i].caption);
    EXPECT_EQ(menu[i].shortcut, kMenu[i].shortcut);
    EXPECT_EQ(menu[i].checkedAtStart, kMenu[i].checkedAtStart);
    EXPECT_EQ(menu[i].handler, kMenu[i].handler);
    EXPECT_EQ(FindHandler(menu[i].name), kMenu[i].handler);
  }
}

TEST(PanelButtons, StandInOrder) {
  constexpr PanelButton kButtons[] = {
      {u"cmdVoiceSam", u"Voice Sam", &Mouse::cmdVoiceSam_Click},
      {u"cmdVoiceMike", u"Voice Mike", &Mouse::cmdVoiceMike_Click},
      {u"cmdVoiceMary", u"Voice Mary", &Mouse::cmdVoiceMary_Click},
      {u"cmdSpeedUpVoice", u"Speed Up", &Mouse::cmdSpeedUpVoice_Click},
      {u"cmdSlowDownVoice", u"Slow Down", &Mouse::cmdSlowDownVoice_Click},
      {u"cmdMouseInstrumentPreset", u"Instrument Preset", &Mouse::cmdMouseInstrumentPreset_Click},
      {u"cmdChangeMouseMelodyFormat", u"Melody Format", &Mouse::cmdChangeMouseMelodyFormat_Click},
  };
  const auto buttons = PanelButtons();
  ASSERT_EQ(buttons.size(), std::size(kButtons));
  for (std::size_t i = 0; i < buttons.size(); ++i) {
    EXPECT_EQ(buttons[i].name, kButtons[i].name);
    EXPECT_EQ(buttons[i].caption, kButtons[i].caption);
    EXPECT_EQ(buttons[i].handler, kButtons[i].handler);
    EXPECT_EQ(FindHandler(buttons[i].name), kButtons[i].handler);
  }
}

TEST(FindHandler, FindsNothingForOtherNames) {
  for (const TextView name : {u"", u"Timer1", u"WinHook1", u"mnuvoicemute", u"mnuVoiceMute ", u"Form"}) {
    EXPECT_EQ(FindHandler(name), nullptr);
  }
}

TEST(PanelCaption, IsTheWindowsTitle) { EXPECT_EQ(kPanelCaption, u"Pointalk Control Center"); }

}  // namespace
}  // namespace pointalk
