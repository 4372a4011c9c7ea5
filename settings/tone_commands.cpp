#include "settings/tone_commands.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "platform/timer_pause.h"
#include "text/numbers.h"

namespace pointalk {
namespace {

struct Preset {
  std::int32_t lower;
  std::int32_t higher;
};

// Presets 1 to 8, as instruments from 0.
constexpr std::array<Preset, 8> kPresets = {{
    {50, 50},
    {32, 72},
    {35, 44},
    {63, 48},
    {35, 25},
    {25, 45},
    {71, 75},
    {71, 77},
}};

// What start-up sets: two-tone scales, and the instruments of preset 1.
constexpr std::int32_t kFirstFormat = 1;
constexpr std::int32_t kFirstPreset = 1;
constexpr std::int32_t kFirstInstrument = 50;

constexpr TextView kPresentNumber = u"The Present Preset Number is ";

// The answer as a whole number, if it lies between 1 and the last choice.
std::optional<std::int32_t> Choice(TextView answer, std::int32_t last) {
  const auto number = RoundedToInt32(ReadNumber(answer));
  if (!number || *number < 1 || *number > last) return std::nullopt;
  return number;
}

}  // namespace

void ToneCommands::SetFirstTones() {
  UseFormat(kFirstFormat);
  UsePreset(kFirstPreset);
  midiPort_.PresetChannelProgram(kHigherToneChannel, kFirstInstrument);
  midiPort_.PresetChannelProgram(kLowerToneChannel, kFirstInstrument);
}

void ToneCommands::CloseTones() {
  midiPort_.StopPositionTones();
  midiPort_.CloseMidiOut();
}

void ToneCommands::SaveAndReopen() {
  settingsFile_.WriteSettings();
  midiSwitch_.OpenMidiOut();
}

void ToneCommands::UsePreset(std::int32_t number) {
  UserChoices choices = settingsFile_.Choices();
  choices.mInstrumentPreset = number;
  settingsFile_.Use(choices);
}

void ToneCommands::UseFormat(std::int32_t format) {
  ToneSettings tones = positionTones_.Settings();
  tones.mMelodyFormat = format;
  positionTones_.Use(tones);
}

void ToneCommands::ChangeHorizontalInstrument() {
  ChangeInstrument(
      kHigherToneChannel, u"Change Mouse Horizontal Instrument Dialog",
      u"Please enter new horizontal instrument number\r\n\r\n(This is for the higher sounding tone)");
}

void ToneCommands::ChangeVerticalInstrument() {
  ChangeInstrument(
      kLowerToneChannel, u"Change Mouse Vertical Instrument Dialog",
      u"Please enter new vertical instrument number\r\n\r\n(This is for the lower sounding tone)");
}

void ToneCommands::ChangeInstrument(int channel, TextView title, TextView prompt) {
  const TimerPause quiet(panel_, TimerPause::Then::kOn);
  CloseTones();
  const Text present = WholeNumberText(midiPort_.ChannelProgram(channel));
  const auto number = RoundedToInt32(ReadNumber(spokenDialogs_.AskSpokenNumber(prompt, title, present)));
  if (number && *number > 0) {
    midiPort_.SetChannelProgram(channel, *number);  // which takes none above 255
    UsePreset(0);
  }
  SaveAndReopen();
}

void ToneCommands::cmdMouseInstrumentPreset_Click() {
  const TimerPause quiet(panel_, TimerPause::Then::kOn);
  CloseTones();
  const Text present = WholeNumberText(settingsFile_.Choices().mInstrumentPreset);
  const Text answer = spokenDialogs_.AskSpokenNumber(u"Please select a Mouse Instument Preset (1 thru 8)",
                                                     Text(kPresentNumber) + present, present);
  if (const auto number = Choice(answer, static_cast<std::int32_t>(kPresets.size()))) {
    const Preset& preset = kPresets[static_cast<std::size_t>(*number) - 1];
    midiPort_.SetChannelProgram(kLowerToneChannel, preset.lower);
    midiPort_.SetChannelProgram(kHigherToneChannel, preset.higher);
    UsePreset(*number);
  }
  SaveAndReopen();
}

void ToneCommands::cmdChangeMouseMelodyFormat_Click() {
  const TimerPause quiet(panel_, TimerPause::Then::kOn);
  CloseTones();
  const Text present = WholeNumberText(std::int64_t{positionTones_.Settings().mMelodyFormat} + 1);
  const Text answer = spokenDialogs_.AskSpokenNumber(
      u"Please select a Mouse Melody Format (1 thru 4)\r\n\r\n1 = Two Tone Chromatic\r\n2 = Two Tone "
      u"Scales\r\n"
      u"3 = One Tone Chromatic\r\n4 = One Tone Scales",
      Text(kPresentNumber) + present, present);
  if (const auto number = Choice(answer, 4)) UseFormat(*number - 1);
  SaveAndReopen();
}

void ToneCommands::mnuMidiHorizVolume_Click() {
  ChangeToneVolume(&ToneSettings::mHorizontalVolume, u"Horizontal Volume");
}
void ToneCommands::mnuMidiVertVolume_Click() {
  ChangeToneVolume(&ToneSettings::mVerticalVolume, u"Vertical Volume");
}

void ToneCommands::ChangeToneVolume(std::int32_t ToneSettings::*volume, TextView name) {
  const auto percent = AskVolume(positionTones_.Settings().*volume, name);
  if (!percent) return;
  ToneSettings tones = positionTones_.Settings();
  tones.*volume = *percent;
  positionTones_.Use(tones);
  settingsFile_.WriteSettings();
}

void ToneCommands::mnuMidiDingVolume_Click() {
  const auto percent = AskVolume(settingsFile_.Choices().mDingVolume, u"Ding Volume");
  if (!percent) return;
  UserChoices choices = settingsFile_.Choices();
  choices.mDingVolume = *percent;
  settingsFile_.Use(choices);
  settingsFile_.WriteSettings();
}

void ToneCommands::mnuMidiKeyboardScaling_Click() {
  // The factor is the one that the settings file is written with.
  const Text present = NumberText(std::floor(double{positionTones_.Settings().mKeyboardScaling} * 100.1));
  const auto percent = AskPercent(present, u"Keyboard Scaling for Midi Note Volume", u"Keyboard Scaling");
  if (!percent) return;
  ToneSettings tones = positionTones_.Settings();
  tones.mKeyboardScaling = static_cast<float>(*percent / 100.0);
  positionTones_.Use(tones);
  settingsFile_.WriteSettings();
}

std::optional<std::int32_t> ToneCommands::AskVolume(std::int32_t present, TextView name) {
  return AskPercent(WholeNumberText(present), name, name);
}

std::optional<std::int32_t> ToneCommands::AskPercent(TextView present, TextView amount, TextView name) {
  midiPort_.StopPositionTones();
  Text prompt(amount);
  prompt.append(u" is now ").append(present).append(u" percent.  Please enter the New value for ");
  prompt.append(name).append(u".");
  return PercentAnswer(spokenDialogs_.AskSpokenNumber(prompt, u"InputBox", present));
}

}  // namespace pointalk
