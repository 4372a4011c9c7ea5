"""Turns what was heard into files: transcript, MIDI file, sound."""

import pathlib
import struct
import subprocess
import wave

NOTE_NAMES = ("C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B")
RATE = 44100
QUIET = "-V1"  # sox says so of every sample that is too loud
SOUND_FONT = "/usr/share/sounds/sf2/FluidR3_GM.sf2"


def note_name(note):
    return f"{NOTE_NAMES[note % 12]}{note // 12 - 1}"


def notes(lines):
    """(time, on, channel, note, velocity) of every note message."""
    for line in lines:
        if line["what"] != "midi":
            continue
        value = int(line["value"], 16)
        status, note, velocity = value & 0xF0, value >> 8 & 0xFF, value >> 16 & 0xFF
        if status in (0x80, 0x90):
            yield line["t"], status == 0x90, value & 0x0F, note, velocity


def write_transcript(path, lines, moves, stops, begin):
    """Time in seconds, pointer, and the note or the words."""
    events = [(t, "-> " + what) for t, _, _, what in stops]
    for t, on, channel, note, velocity in notes(lines):
        if on:
            events.append((t, f"channel {channel} note {note_name(note) if note < 128 else note} velocity {velocity}"))
    events += [(line["t"], f'says "{line["text"]}"') for line in lines
               if line["what"].endswith(" speak") and line["text"].strip()]
    events.sort()
    place = iter(sorted(moves))
    following, here = next(place, None), (0, 0)
    with open(path, "w", encoding="utf-8") as file:
        for t, what in events:
            while following and following[0] <= t:
                here, following = following[1:], next(place, None)
            file.write(f"{(t - begin) / 1e6:9.3f}  {here[0]:4d},{here[1]:4d}  {what}\n")


def _variable(number):
    parts = [number & 0x7F]
    while number := number >> 7:
        parts.append(number & 0x7F | 0x80)
    return bytes(reversed(parts))


def write_midi(path, lines, begin):
    """One track, a tick a millisecond. Data bytes lose what MIDI has no room for, as in any synthesizer."""
    track, last = bytearray(b"\x00\xff\x51\x03\x07\xa1\x20"), begin
    for line in lines:
        if line["what"] != "midi" or not (value := int(line["value"], 16)) & 0x80:
            continue
        data = [value & 0xFF, value >> 8 & 0x7F]
        if value & 0xF0 != 0xC0:
            data.append(value >> 16 & 0x7F)
        track += _variable(max(0, (line["t"] - last) // 1000)) + bytes(data)
        last += (line["t"] - last) // 1000 * 1000
    track += b"\x81\x00\xff\x2f\x00"
    with open(path, "wb") as file:
        file.write(b"MThd" + struct.pack(">IHHH", 6, 0, 1, 500) + b"MTrk" + struct.pack(">I", len(track)) + track)


def _utterances(lines):
    """(begin, wave, seconds) of every stretch of speech that sounded: a new one cuts off the one before."""
    ends = {line["utterance"]: line["t"] for line in lines if line["what"] in ("spoken", "cut")}
    for line in lines:
        if line["what"] == "sounding" and line.get("wave"):
            end = min(line["t"] + line["length"], ends.get(line["utterance"], line["t"] + line["length"]))
            yield line["t"], line["wave"], (end - line["t"]) / 1e6


def _speech(path, waves, lines, begin):
    """The whole speech as one wave, silence between."""
    with wave.open(str(path), "wb") as out:
        out.setnchannels(1)
        out.setsampwidth(2)
        rate, written = None, 0
        for start, name, seconds in _utterances(lines):
            file = pathlib.Path(waves) / name
            if not file.exists():
                continue
            with wave.open(str(file), "rb") as spoken:
                if rate is None:
                    rate = spoken.getframerate()
                    out.setframerate(rate)
                first = int((start - begin) / 1e6 * rate)
                if first > written:
                    out.writeframes(bytes(2 * (first - written)))
                    written = first
                frames = spoken.readframes(int(seconds * rate))
            out.writeframes(frames)
            written += len(frames) // 2
        if rate is None:
            out.setframerate(22050)
    return rate is not None


def _run(*command):
    subprocess.run([str(part) for part in command], check=True, timeout=300, stdin=subprocess.DEVNULL,
                   stdout=subprocess.DEVNULL)


def write_sound(path, midi, waves, lines, begin, scratch):
    """Tones and speech mixed as heard. False when nothing was spoken."""
    tones, speech, resampled = scratch / "tones.wav", scratch / "speech.wav", scratch / "resampled.wav"
    _run("fluidsynth", "-q", "-n", "-i", "-g", "0.6", "-r", RATE, "-F", tones, SOUND_FONT, midi)
    spoke = _speech(speech, waves, lines, begin)
    _run("sox", QUIET, speech, "-r", RATE, "-c", "2", resampled)
    _run("sox", QUIET, "-m", "-v", "0.8", tones, "-v", "0.9", resampled, path)
    return spoke
