// Preloaded into a program, it writes down what the program asks FluidSynth to play, and is its sound device.
//
// POINTALK_NOTES names the file; each line is a time of the monotonic clock in seconds, the function, and its
// numbers. With POINTALK_NO_SOUND set there is no sound device, with POINTALK_SOUND the one that the system
// has; with POINTALK_NO_FONT set there is no sound font.
#include <dlfcn.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>

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

template <typename Function> Function Next(const char* name) {
  return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

}  // namespace

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
  return HasDevice() ? next(synth) : 0;
}

void* new_fluid_audio_driver(void* settings, void* synth) {
  static const auto next = Next<void* (*)(void*, void*)>("new_fluid_audio_driver");
  if (std::getenv("POINTALK_NO_SOUND") != nullptr) return nullptr;
  void* const driver = HasDevice() ? next(settings, synth) : synth;  // anything but null
  if (driver != nullptr) WriteDown("open", 0, 0, 0);
  return driver;
}

void delete_fluid_audio_driver(void* driver) {
  static const auto next = Next<void (*)(void*)>("delete_fluid_audio_driver");
  if (driver == nullptr) return;
  WriteDown("close", 0, 0, 0);
  if (HasDevice()) next(driver);
}
}
