// Preloaded into a program, it writes down what the program asks FluidSynth to play, and is its sound device.
//
// POINTALK_NOTES names the file; each line is a time of the monotonic clock in seconds, the function, and its
// numbers. With POINTALK_NO_SOUND set there is no sound device, with POINTALK_SOUND the one that the system
// has; with POINTALK_SOUND_SERVER one that takes sound as long as there is a file of that name. With
// POINTALK_NO_FONT set there is no sound font.
#include <dlfcn.h>

#include <unistd.h>

#include <array>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <thread>

namespace {

void WriteDown(const char* function, int channel, int first, int second) {
  const char* const path = std::getenv("POINTALK_NOTES");
  std::FILE* const file = path == nullptr ? nullptr : std::fopen(path, "ae");
  if (file == nullptr) return;
  const std::chrono::duration<double> now = std::chrono::steady_clock::now().time_since_epoch();
  std::fprintf(file, "%.6f %s %d %d %d\n", now.count(), function, channel, first, second);
  std::fclose(file);
}

bool HasDevice() { return std::getenv("POINTALK_SOUND") != nullptr; }

const char* Server() { return std::getenv("POINTALK_SOUND_SERVER"); }
bool HasServer() { return Server() != nullptr && ::access(Server(), F_OK) == 0; }

template <typename Function> Function Next(const char* name) {
  return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

// Takes the sound as a driver does, whose thread ends without a word when its server has ended.
class ServedDevice {
 public:
  explicit ServedDevice(void* synth) : thread_([this, synth] { Take(synth); }) {}
  ~ServedDevice() {
    isUnwanted_ = true;
    thread_.join();
  }
  ServedDevice(const ServedDevice&) = delete;
  ServedDevice& operator=(const ServedDevice&) = delete;

 private:
  static constexpr int kFrames = 441;
  static constexpr std::chrono::milliseconds kLength{10};

  void Take(void* synth) {
    const auto write = reinterpret_cast<int (*)(void*, int, void*, int, int, void*, int, int)>(
        dlsym(RTLD_NEXT, "fluid_synth_write_s16"));
    std::array<std::int16_t, 2 * kFrames> frames{};
    while (!isUnwanted_ && HasServer()) {
      write(synth, kFrames, frames.data(), 0, 2, frames.data(), 1, 2);
      std::this_thread::sleep_for(kLength);
    }
  }

  std::atomic<bool> isUnwanted_ = false;
  std::thread thread_;
};

}  // namespace

// NOLINTBEGIN(readability-identifier-naming): FluidSynth's own names, in whose places they are called
extern "C" {

int fluid_synth_noteon(void* synth, int channel, int key, int velocity) {
  static const auto next = Next<int (*)(void*, int, int, int)>("fluid_synth_noteon");
  WriteDown("noteon", channel, key, velocity);
  return next(synth, channel, key, velocity);
}

int fluid_synth_noteoff(void* synth, int channel, int key) {
  static const auto next = Next<int (*)(void*, int, int)>("fluid_synth_noteoff");
  WriteDown("noteoff", channel, key, 0);
  return next(synth, channel, key);
}

int fluid_synth_program_change(void* synth, int channel, int program) {
  static const auto next = Next<int (*)(void*, int, int)>("fluid_synth_program_change");
  WriteDown("program", channel, program, 0);
  return next(synth, channel, program);
}

int fluid_is_soundfont(const char* path) {
  static const auto next = Next<int (*)(const char*)>("fluid_is_soundfont");
  return std::getenv("POINTALK_NO_FONT") == nullptr ? next(path) : 0;
}

// Where no sound is ever asked for, no note comes to its end by itself.
int fluid_synth_get_active_voice_count(void* synth) {
  static const auto next = Next<int (*)(void*)>("fluid_synth_get_active_voice_count");
  return HasDevice() || Server() != nullptr ? next(synth) : 0;
}

void* new_fluid_audio_driver(void* settings, void* synth) {
  static const auto next = Next<void* (*)(void*, void*)>("new_fluid_audio_driver");
  if (std::getenv("POINTALK_NO_SOUND") != nullptr) return nullptr;
  if (Server() != nullptr && !HasServer()) return nullptr;
  void* driver = synth;  // anything but null
  if (HasDevice()) driver = next(settings, synth);
  if (Server() != nullptr) driver = new ServedDevice(synth);
  if (driver != nullptr) WriteDown("open", 0, 0, 0);
  return driver;
}

void delete_fluid_audio_driver(void* driver) {
  static const auto next = Next<void (*)(void*)>("delete_fluid_audio_driver");
  if (driver == nullptr) return;
  WriteDown("close", 0, 0, 0);
  if (HasDevice()) next(driver);
  if (Server() != nullptr) delete static_cast<ServedDevice*>(driver);
}
}
// NOLINTEND(readability-identifier-naming)
