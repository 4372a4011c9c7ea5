#include "linux/synthesizer.h"

#include <algorithm>
#include <array>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

namespace pointalk::linux {
namespace {

using Moment = std::chrono::steady_clock::time_point;

constexpr std::chrono::seconds kOpenLimit{5};
constexpr std::chrono::seconds kRestBeforeSleep{4};    // without a note
constexpr std::chrono::milliseconds kDeviceLook{500};  // between two looks at the device
constexpr std::chrono::seconds kDeadLimit{2};          // that a device may take no sound for
constexpr std::chrono::seconds kOpenPause{1};          // between two attempts to open it

constexpr int kPeriod = 256;  // frames
constexpr int kPeriods = 2;
constexpr int kVoices = 64;

constexpr int kChannels = 16;
constexpr int kAllChannels = -1;

constexpr std::array<const char*, 3> kSoundFonts = {
    "/usr/share/sounds/sf2/default-GM.sf2",
    "/usr/share/sounds/sf2/TimGM6mb.sf2",
    "/usr/share/sounds/sf3/default-GM.sf3",
};

using Settings = Owned<fluid_settings_t, delete_fluid_settings>;
using Synth = Owned<fluid_synth_t, delete_fluid_synth>;
using Driver = Owned<fluid_audio_driver_t, delete_fluid_audio_driver>;
using Sequencer = Owned<fluid_sequencer_t, delete_fluid_sequencer>;

// What the library has to say is said by what its functions give back.
void SilenceLog() {
  for (const fluid_log_level level : {FLUID_PANIC, FLUID_ERR, FLUID_WARN, FLUID_INFO, FLUID_DBG})
    fluid_set_log_function(level, nullptr, nullptr);
}

Settings MakeSettings() {
  SilenceLog();
  Settings settings(new_fluid_settings());
  if (!settings) return settings;
  fluid_settings_setint(settings.get(), "audio.period-size", kPeriod);
  fluid_settings_setint(settings.get(), "audio.periods", kPeriods);
  fluid_settings_setint(settings.get(), "synth.polyphony", kVoices);
  fluid_settings_setint(settings.get(), "synth.reverb.active", 0);
  fluid_settings_setint(settings.get(), "synth.chorus.active", 0);
  fluid_settings_setint(settings.get(), "synth.dynamic-sample-loading", 1);  // large fonts are read as needed
  return settings;
}

// The driver that is the library's first choice, then those that are usual here.
Driver OpenDriver(fluid_settings_t* settings, fluid_synth_t* synth) {
  char* first = nullptr;
  fluid_settings_getstr_default(settings, "audio.driver", &first);
  Driver driver;
  for (const char* const name : {static_cast<const char*>(first), "pulseaudio", "pipewire", "alsa"}) {
    if (name != nullptr && fluid_settings_setstr(settings, "audio.driver", name) == FLUID_OK)
      driver.reset(new_fluid_audio_driver(settings, synth));
    if (driver) break;
  }
  return driver;
}

// Counts the milliseconds of sound that were taken. It plays nothing; no other call of the library tells
// that.
Sequencer CountTime(fluid_synth_t* synth) {
  Sequencer counter(synth == nullptr ? nullptr : new_fluid_sequencer2(0));
  if (counter) fluid_sequencer_register_fluidsynth(counter.get(), synth);
  return counter;
}

}  // namespace

struct Synthesizer::Sound {
  // A driver says nothing when its sound server ends or its device is unplugged; it takes no more sound.
  class Pulse {
   public:
    explicit Pulse(fluid_synth_t* synth) : counter_(CountTime(synth)) {}

    // The device has just been opened.
    void Begin() {
      last_ = Count();
      hasBegun_ = false;
      changed_ = std::chrono::steady_clock::now();
    }

    // It took sound, and takes none any more.
    bool HasStopped() {
      const Moment now = std::chrono::steady_clock::now();
      if (const unsigned count = Count(); count != last_) {
        last_ = count;
        hasBegun_ = true;
        changed_ = now;
      }
      return hasBegun_ && now - changed_ > kDeadLimit;
    }

   private:
    unsigned Count() const { return counter_ ? fluid_sequencer_get_tick(counter_.get()) : 0; }

    Sequencer counter_;
    unsigned last_ = 0;
    bool hasBegun_ = false;
    Moment changed_{};
  };

  Settings settings = MakeSettings();
  Synth synth{settings ? new_fluid_synth(settings.get()) : nullptr};
  bool hasFont = false;

  std::mutex mutex;
  std::condition_variable changed;
  bool isWanted = false;    // the port is open
  bool isUnwanted = false;  // the thread is to end
  bool isTried = false;     // since it was wanted
  bool isAwake = false;     // the device is open
  bool mustWake = false;    // a note came while it slept
  Moment lastNote{};

  // The thread's own.
  Pulse pulse{synth.get()};
  Driver driver;
  Moment lastAttempt{};
  bool isStale = false;  // there are notes that no device took

  void LoadFont();
  void Run();
  bool MayStayOpen();
  void Open(std::unique_lock<std::mutex>& lock);
  void LetGo(std::unique_lock<std::mutex>& lock);
  void Wait(std::unique_lock<std::mutex>& lock);
};

void Synthesizer::Sound::LoadFont() {
  for (const char* const path : kSoundFonts) {
    if (!synth || hasFont) return;
    hasFont = fluid_is_soundfont(path) && fluid_synth_sfload(synth.get(), path, 1) != FLUID_FAILED;
  }
}

bool Synthesizer::Sound::MayStayOpen() {
  const bool rests = std::chrono::steady_clock::now() - lastNote > kRestBeforeSleep &&
                     fluid_synth_get_active_voice_count(synth.get()) == 0;
  return isWanted && (!rests || mustWake);
}

void Synthesizer::Sound::LetGo(std::unique_lock<std::mutex>& lock) {
  isAwake = false;
  lock.unlock();
  driver.reset();
  lock.lock();
}

// Notes that no device took would all sound at once.
void Synthesizer::Sound::Open(std::unique_lock<std::mutex>& lock) {
  mustWake = false;
  lock.unlock();
  if (isStale) fluid_synth_all_sounds_off(synth.get(), kAllChannels);
  Driver made = OpenDriver(settings.get(), synth.get());
  lock.lock();
  driver = std::move(made);
  pulse.Begin();
  isAwake = driver != nullptr;
  isStale = !isAwake;
  isTried = true;
  lastNote = lastAttempt = std::chrono::steady_clock::now();
  changed.notify_all();
}

void Synthesizer::Sound::Wait(std::unique_lock<std::mutex>& lock) {
  if (driver) {
    mustWake = false;
    changed.wait_for(lock, kDeviceLook);
  } else if (isWanted && mustWake) {
    changed.wait_until(lock, lastAttempt + kOpenPause);
  } else {
    changed.wait(lock);
  }
}

// Opens the device when it is wanted, lets it go when no note came for a while or nobody takes the sound, and
// opens it again for the next.
void Synthesizer::Sound::Run() {
  std::unique_lock lock(mutex);
  while (!isUnwanted) {
    const bool isDue = std::chrono::steady_clock::now() - lastAttempt >= kOpenPause;
    if (driver && pulse.HasStopped()) {
      isStale = true;
      LetGo(lock);
    } else if (driver && !MayStayOpen()) {
      LetGo(lock);
    } else if (driver && !isTried) {  // wanted again before it was let go
      isTried = true;
      changed.notify_all();
    } else if (!driver && isWanted && (!isTried || (mustWake && isDue))) {
      Open(lock);
    } else {
      Wait(lock);
    }
  }
  LetGo(lock);
}

Synthesizer::Synthesizer() : sound_(std::make_shared<Sound>()) {
  sound_->LoadFont();
  std::thread([sound = sound_] { sound->Run(); }).detach();
}

// The sound device's own threads may keep the thread for a while; it takes its state along.
Synthesizer::~Synthesizer() {
  const std::lock_guard lock(sound_->mutex);
  sound_->isUnwanted = true;
  sound_->changed.notify_all();
}

Synthesizer::State Synthesizer::Open() {
  if (!sound_->hasFont) return State::kNoSoundFont;
  std::unique_lock lock(sound_->mutex);
  if (sound_->isWanted && sound_->isTried) return sound_->isAwake ? State::kWorks : State::kNoDevice;
  sound_->isWanted = true;
  sound_->isTried = false;
  sound_->changed.notify_all();
  sound_->changed.wait_for(lock, kOpenLimit, [this] { return sound_->isTried; });
  if (!sound_->isAwake) sound_->isWanted = false;
  return sound_->isAwake ? State::kWorks : State::kNoDevice;
}

void Synthesizer::Close() {
  for (int channel = 0; channel < kChannels; ++channel)
    fluid_synth_all_notes_off(sound_->synth.get(), channel);
  const std::lock_guard lock(sound_->mutex);
  sound_->isWanted = false;
  sound_->changed.notify_all();
}

bool Synthesizer::Send(std::uint32_t message) {
  const int channel = static_cast<int>(message & 0x0F);
  const int first = static_cast<int>(message >> 8 & 0x7F);
  const int second = static_cast<int>(message >> 16 & 0x7F);
  fluid_synth_t* const synth = sound_->synth.get();
  switch (message & 0xF0) {
    case 0x80: return fluid_synth_noteoff(synth, channel, first) == FLUID_OK;
    case 0x90: {
      const bool played = fluid_synth_noteon(synth, channel, first, second) == FLUID_OK;
      const std::lock_guard lock(sound_->mutex);
      sound_->lastNote = std::chrono::steady_clock::now();
      if (!sound_->isAwake) {
        sound_->mustWake = true;
        sound_->changed.notify_all();
      }
      return played;
    }
    case 0xC0: return fluid_synth_program_change(synth, channel, first) == FLUID_OK;
    default: return true;  // nothing that sounds
  }
}

}  // namespace pointalk::linux
