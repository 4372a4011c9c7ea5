// Asks, checks, stores, saves.
#include "tones/tone_commands.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "app/timer_pause.h"
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

constexpr TextView kPresentNumber = u"The Present Preset Number is ";

// The answer as a whole number, if it lies between 1 and the last choice.
std::optional<std::int32_t> Choice(TextView answer, std::int32_t last) {
  const auto number = RoundedToInt32(ReadNumber(answer));
  if (!number || *number < 1 || *number > last) return std::nullopt;
  return number;
}

}  // namespace

void ToneCommands::CloseTones() {
  port.StopPositionTones();
  port.CloseMidiOut();
}

void ToneCommands::SaveAndReopen() {
  file.WriteSettings();
  port.OpenMidiOut();
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
  const TimerPause quiet(panel, TimerPause::Then::kOn);
  CloseTones();
  const Text present = WholeNumberText(port.channels.mChannelProgram[static_cast<std::size_t>(channel)]);
  const auto number = RoundedToInt32(ReadNumber(dialogs.AskSpokenNumber(prompt, title, present)));
  if (number && *number > 0) {
    port.SetChannelProgram(channel, *number);  // which takes none above 255
    settings.mInstrumentPreset = 0;
  }
  SaveAndReopen();
}

void ToneCommands::cmdMouseInstrumentPreset_Click() {
  const TimerPause quiet(panel, TimerPause::Then::kOn);
  CloseTones();
  const Text present = WholeNumberText(settings.mInstrumentPreset);
  const Text answer = dialogs.AskSpokenNumber(u"Please select a Mouse Instument Preset (1 thru 8)",
                                              Text(kPresentNumber) + present, present);
  if (const auto number = Choice(answer, static_cast<std::int32_t>(kPresets.size()))) {
    const Preset& preset = kPresets[static_cast<std::size_t>(*number) - 1];
    port.SetChannelProgram(kLowerToneChannel, preset.lower);
    port.SetChannelProgram(kHigherToneChannel, preset.higher);
    settings.mInstrumentPreset = *number;
  }
  SaveAndReopen();
}

void ToneCommands::cmdChangeMouseMelodyFormat_Click() {
  const TimerPause quiet(panel, TimerPause::Then::kOn);
  CloseTones();
  const Text present = WholeNumberText(std::int64_t{settings.mMelodyFormat} + 1);
  const Text answer = dialogs.AskSpokenNumber(
      u"Please select a Mouse Melody Format (1 thru 4)\r\n\r\n1 = Two Tone Chromatic\r\n2 = Two Tone "
      u"Scales\r\n"
      u"3 = One Tone Chromatic\r\n4 = One Tone Scales",
      Text(kPresentNumber) + present, present);
  if (const auto number = Choice(answer, 4)) settings.mMelodyFormat = *number - 1;
  SaveAndReopen();
}

void ToneCommands::mnuMidiHorizVolume_Click() {
  ChangeVolume(settings.mHorizontalVolume, u"Horizontal Volume");
}
void ToneCommands::mnuMidiVertVolume_Click() { ChangeVolume(settings.mVerticalVolume, u"Vertical Volume"); }
void ToneCommands::mnuMidiDingVolume_Click() { ChangeVolume(settings.mDingVolume, u"Ding Volume"); }

void ToneCommands::ChangeVolume(std::int32_t& volume, TextView name) {
  if (const auto percent = AskPercent(WholeNumberText(volume), name, name)) {
    volume = *percent;
    file.WriteSettings();
  }
}

void ToneCommands::mnuMidiKeyboardScaling_Click() {
  // The factor is the settings file's.
  const Text present = NumberText(std::floor(double{settings.mKeyboardScaling} * 100.1));
  if (const auto percent =
          AskPercent(present, u"Keyboard Scaling for Midi Note Volume", u"Keyboard Scaling")) {
    settings.mKeyboardScaling = static_cast<float>(*percent / 100.0);
    file.WriteSettings();
  }
}

std::optional<std::int32_t> ToneCommands::AskPercent(TextView present, TextView amount, TextView name) {
  port.StopPositionTones();
  Text prompt(amount);
  prompt.append(u" is now ").append(present).append(u" percent.  Please enter the New value for ");
  prompt.append(name).append(u".");
  return PercentAnswer(dialogs.AskSpokenNumber(prompt, u"InputBox", present));
}

}  // namespace pointalk
