#!/bin/sh
# The Linux half of the voice, started by pointalk_voice.dll in a folder of its own. It reads from the FIFO
# "commands":
#   speak N VOICE PITCH SPEED AMPLITUDE   say the text of N.txt; N.wav appears whole once it can sound, N.failed
#                                         when there is no speech, N.done when the player is over
#   end N                                 silence N at once if it still sounds, and remove its files
# The player is the first of pw-play, paplay and aplay that can play. Where none can, the wave is made all the
# same, and its maker lets its time pass. Speech comes from espeak-ng, or the program named in POINTALK_ESPEAK.

if [ "$1" = part ]; then
  n=$2
  "${POINTALK_ESPEAK:-espeak-ng}" -b 1 -z -v "$3" -p "$4" -s "$5" -a "$6" -f "$n.txt" -w "$n.making" ||
    { : >"$n.failed"; exit; }
  [ -e "$n.making" ] || : >"$n.making"
  mv "$n.making" "$n.wav"
  if [ -s "$n.wav" ] && [ ! -e no-player ]; then
    pw-play "$n.wav" || paplay "$n.wav" || aplay -q "$n.wav" || : >no-player
  fi
  : >"$n.done"
  exit
fi

exec >/dev/null 2>&1
folder=$PWD
mkfifo commands || exit
# A lesser signal is lost on a sleep that is only just being started.
(trap 'kill -s KILL $!; exit' TERM; sleep 60 & wait $!; : >commands) &  # should nobody ever open it, the end of the file is read
guard=$!
exec <commands
kill $guard

part=
silence() {
  [ "$part" ] || return
  kill -s KILL "$part"
  kill -s KILL -- "-$part"
  wait "$part"
}

while read -r verb n voice pitch speed amplitude; do
  case $verb in
  speak)
    setsid sh script part "$n" "$voice" "$pitch" "$speed" "$amplitude" </dev/null &
    part=$!
    ;;
  end)
    [ -e "$n.done" ] || silence
    part=
    rm -f "$n".*
    ;;
  esac
done
silence
rm -f script commands no-player [0-9]*.*
rmdir "$folder"
