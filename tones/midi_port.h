// The one MIDI port: opened and closed here, and every note goes out through it.
#pragma once

#include <cstdint>

#include "app/spoken_dialogs.h"
#include "platform/midi_out.h"
#include "platform/panel.h"
#include "platform/system.h"
#include "tones/channel_state.h"

namespace pointalk {

class MidiPort {
 public:
  MidiPort(MidiOut& theMidi, Panel& thePanel, System& theSystem, SpokenDialogs& theDialogs)
      : midi(theMidi), panel(thePanel), system(theSystem), dialogs(theDialogs) {}

  // Opens the port. The first time that it cannot be had, the user is asked whether to go on without; any
  // answer but Yes ends the program.
  void OpenMidiOut();

  // Stops every channel and closes the port.
  void CloseMidiOut();

  // Closes the port and stops every sound that the system plays for the program.
  void SilenceAll();

  // The instrument of a channel, 0 to 255; anything else, and the instrument that it has, changes nothing.
  void SetChannelProgram(int channel, std::int32_t instrument);

  // Starts the channel's target note, unless it is the note last started there.
  void PlayNote(int channel);

  // Starts the channel's target note whatever was started last, and ends what sounds on the channel.
  void StrikeNote(int channel);

  // Ends the note that sounds on the channel, if any.
  void StopNote(int channel);

  // Both position tones, as every command does before it speaks.
  void StopPositionTones();

  // Ends the event sounds.
  void StopEventChannels();

  bool MouseTonesOn() const { return mMouseTonesOn; }
  bool MidiOn() const { return mMidiOn; }
  void SwitchMidiOn() { mMidiOn = true; }

  ChannelState channels;

  void mnuMidiOnOff_Click();

 private:
  MidiOut& midi;
  Panel& panel;
  System& system;
  SpokenDialogs& dialogs;

  MidiHandle hMidiOut = 0;
  bool mMouseTonesOn = false;     // the port is open
  bool mMidiOn = false;           // the user's switch
  bool mMidiPromptShown = false;  // the question was asked and answered Yes; failures are silent from then on

  bool WantsToRunWithoutMidi();
  void Send(std::uint32_t message);
};

}  // namespace pointalk
