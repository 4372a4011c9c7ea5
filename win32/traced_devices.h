// The voices and the MIDI port with a trace.
#pragma once

#include "platform/midi_out.h"
#include "platform/speech_engines.h"
#include "win32/midi_out.h"
#include "win32/trace.h"
#include "win32/voice_thread.h"

namespace pointalk::win32 {

class TracedMidiOut final : public MidiOut {
 public:
  TracedMidiOut(MidiOut& base, const WinMidiOut& port, Trace& trace)
      : base_(base), port_(port), trace_(trace) {}

  std::uint32_t DeviceCount() override;
  MidiOpening OpenMapper() override;
  bool Send(MidiHandle port, std::uint32_t message) override;
  bool Close(MidiHandle port) override;
  bool PlayNamedSound(TextView name, std::uint32_t module, std::uint32_t flags) override;

 private:
  MidiOut& base_;
  const WinMidiOut& port_;
  Trace& trace_;
};

class TracedSapi5Voice final : public Sapi5Voice {
 public:
  TracedSapi5Voice(Sapi5Voice& base, const VoiceThread& voice, Trace& trace)
      : base_(base), voice_(voice), trace_(trace) {}

  bool Create() override;
  void Release() override { base_.Release(); }
  std::optional<double> Rate() override { return base_.Rate(); }
  bool SetRate(double rate) override;
  bool SetVolume(double volume) override;
  std::optional<std::int32_t> VoiceCount() override;
  std::optional<Text> VoiceDescription(std::int32_t index) override { return base_.VoiceDescription(index); }
  bool SetVoice(std::int32_t index) override;
  bool Speak(TextView text, std::optional<int> flags) override;

 private:
  Sapi5Voice& base_;
  const VoiceThread& voice_;
  Trace& trace_;
};

class TracedSapi4Control final : public Sapi4Control {
 public:
  TracedSapi4Control(Sapi4Control& base, const VoiceThread& voice, Trace& trace)
      : base_(base), voice_(voice), trace_(trace) {}

  bool Create() override;
  void Release() override { base_.Release(); }
  std::optional<double> Speed() override { return base_.Speed(); }
  bool SetSpeed(double speed) override;
  bool SetVolumeLeft(double volume) override;
  bool SetVolumeRight(double volume) override;
  std::optional<double> Find(TextView criteria) override { return base_.Find(criteria); }
  bool Select(double voice) override;
  bool AudioReset() override;
  bool Speak(TextView text) override;
  std::optional<double> LastWordPosition() override { return base_.LastWordPosition(); }
  bool SetLastWordPosition(double position) override { return base_.SetLastWordPosition(position); }

 private:
  Sapi4Control& base_;
  const VoiceThread& voice_;
  Trace& trace_;
};

}  // namespace pointalk::win32
