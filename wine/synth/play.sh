#!/bin/sh
# The Linux half of the synthesizer, started by winmm.dll in a folder of its own: FluidSynth, fed with its own
# shell commands through the FIFO "commands". The first sound system that works is taken; where none does, the
# commands are read and forgotten, so that the writer never waits. POINTALK_SOUNDFONT names a sound font to
# use instead of FluidSynth's own, POINTALK_FLUIDSYNTH a program to start in its place: `true` keeps quiet.

exec >/dev/null 2>&1
folder=$PWD
mkfifo commands || exit
# A lesser signal is lost on a sleep that is only just being started.
(trap 'kill -s KILL $!; exit' TERM; sleep 60 & wait $!; : >commands) &  # should nobody ever open it, the end of the file is read
guard=$!
exec <commands
kill $guard

for driver in pulseaudio pipewire alsa; do
  "${POINTALK_FLUIDSYNTH:-fluidsynth}" -q -n -g 0.6 -a "$driver" ${POINTALK_SOUNDFONT:+"$POINTALK_SOUNDFONT"} && break
done
cat
rm -f script commands
rmdir "$folder"
