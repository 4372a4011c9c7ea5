/* Preloaded into a program, it writes down what the program asks FluidSynth to play, and is its sound device.

   POINTALK_NOTES names the file; each line is a time of the monotonic clock in seconds, the function, and its numbers.
   With POINTALK_NO_SOUND set there is no sound device. */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <stdio.h>
#include <stdlib.h>
#include <time.h>

static void write_down(const char *function, int channel, int first, int second) {
  const char *path = getenv("POINTALK_NOTES");
  if (path == NULL) return;
  FILE *file = fopen(path, "ae");
  if (file == NULL) return;
  struct timespec now;
  clock_gettime(CLOCK_MONOTONIC, &now);
  fprintf(file, "%ld.%06ld %s %d %d %d\n", (long)now.tv_sec, now.tv_nsec / 1000, function, channel, first, second);
  fclose(file);
}

int fluid_synth_noteon(void *synth, int channel, int key, int velocity) {
  static int (*next)(void *, int, int, int);
  if (next == NULL) next = dlsym(RTLD_NEXT, "fluid_synth_noteon");
  write_down("noteon", channel, key, velocity);
  return next(synth, channel, key, velocity);
}

int fluid_synth_noteoff(void *synth, int channel, int key) {
  static int (*next)(void *, int, int);
  if (next == NULL) next = dlsym(RTLD_NEXT, "fluid_synth_noteoff");
  write_down("noteoff", channel, key, 0);
  return next(synth, channel, key);
}

int fluid_synth_program_change(void *synth, int channel, int program) {
  static int (*next)(void *, int, int);
  if (next == NULL) next = dlsym(RTLD_NEXT, "fluid_synth_program_change");
  write_down("program", channel, program, 0);
  return next(synth, channel, program);
}

void *new_fluid_audio_driver(void *settings, void *synth) {
  (void)settings;
  if (getenv("POINTALK_NO_SOUND") != NULL) return NULL;
  write_down("open", 0, 0, 0);
  return synth; /* anything but null */
}

void delete_fluid_audio_driver(void *driver) {
  if (driver != NULL) write_down("close", 0, 0, 0);
}
