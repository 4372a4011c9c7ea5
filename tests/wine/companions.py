"""Runs the clients of the voice and of the synthesizer under Wine and reads what the two wrote down.

The environment names the build (POINTALK_WIN_BUILD), the prefix (WINEPREFIX, with both engines registered) and the
display; every test has files of its own."""

import contextlib
import json
import os
import pathlib
import shutil
import subprocess
import tempfile
import time
import unittest
import wave

from harness import KILLED_AT_ITS_END, command_for

SOURCE = pathlib.Path(__file__).resolve().parent.parent.parent
BUILD = pathlib.Path(os.environ["POINTALK_WIN_BUILD"])
PREFIX = pathlib.Path(os.environ["WINEPREFIX"])
PREFIX_TOOL = SOURCE / "wine" / "prefix.sh"
VOICE = BUILD / "wine" / "pointalk_voice.dll"

SAPI5 = "{96749377-3391-11D2-9EE3-00C04F797396}"
SAPI5_INTERFACE = "{269316D8-57BD-11D2-9EEE-00C04F797396}"
SAPI4 = "{EEE78591-FE22-11D0-8BEF-0060081841DE}"
SAPI4_INTERFACE = "{EEE78590-FE22-11D0-8BEF-0060081841DE}"
UNKNOWN = "{00000000-0000-0000-C000-000000000046}"
DISPATCH = "{00020400-0000-0000-C000-000000000046}"

ASYNCHRONOUS = 1
PURGE = 2

WAITS = ("await", "leaves", "until")  # the commands of the voice's client that wait
ENDLESS = "Endless."
HOUR = 3600
GUARDED = 60        # seconds that a Linux half waits for its client
HELPER_LIMIT = 200  # seconds for its end


def poll(ready, seconds, what):
    """Waits until ready() gives something true and returns that."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        found = ready()
        if found:
            return found
        time.sleep(0.02)
    raise AssertionError(f"no {what} within {seconds} s")


class Answer:
    """What one command of a client came to."""

    def __init__(self, line):
        self.result, *value = line.split("\t", 1)
        self.value = value[0] if value else None

    def __repr__(self):
        return f"{self.result} {self.value}"

    @property
    def worked(self):
        return self.result == "00000000"


class CompanionTest(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="pointalk-"))
        self.addCleanup(shutil.rmtree, self.folder)
        self.heard_file = self.folder / "heard.jsonl"
        self.waves = self.folder / "waves"
        self.waves.mkdir()
        self.environment = {
            "POINTALK_HEARD": str(self.heard_file),
            "POINTALK_WAVES": str(self.waves),
            "WINEDLLOVERRIDES": "mscoree,mshtml,winedbg.exe,winemenubuilder.exe=;winmm=n,b",
            "WINEDEBUG": "-all",
            "POINTALK_FLUIDSYNTH": "fluidsynth",
            # No sound, whatever the machine has: nobody wants to hear the tests.
            "ALSA_CONFIG_PATH": "/dev/null", "PULSE_SERVER": "none", "PIPEWIRE_REMOTE": "none",
        }

    def start(self, program, *arguments):
        process = subprocess.Popen(command_for(program, *arguments), stdin=subprocess.DEVNULL,
                                   stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                                   env={**os.environ, **self.environment})
        self.addCleanup(process.stdout.close)
        self.addCleanup(self.end, process)
        return process

    @staticmethod
    def end(process):
        if process.poll() is None:
            process.kill()
            process.wait(60)

    def answers(self, process, seconds):
        output, _ = process.communicate(timeout=seconds)
        self.assertIn(process.returncode, (0, KILLED_AT_ITS_END), output)
        return [Answer(line) for line in output.decode("utf-8").splitlines()]

    def start_voice(self, commands):
        script = self.folder / "script.txt"
        script.write_bytes("".join("\t".join(command) + "\n" for command in commands).encode("utf-8"))
        return self.start(BUILD / "tests" / "wine" / "voice_probe.exe", f"Z:{script}")

    def speech_program(self, script):
        """What speaks in place of espeak-ng; $text and $made are the names of what it reads and writes."""
        path = self.folder / "speech-program"
        path.write_text(f'#!/bin/sh\ntext=${{13}} made=${{15}}\n{script}\n', "utf-8")
        path.chmod(0o755)
        self.environment["POINTALK_ESPEAK"] = str(path)

    def sound_for(self, seconds, word):
        """Has texts with that word sound for so long, unless they are cut off."""
        path = self.folder / "long.wav"
        with wave.open(str(path), "wb") as sound:
            sound.setnchannels(1)
            sound.setsampwidth(1)
            sound.setframerate(1)
            sound.writeframes(bytes(seconds))
        self.speech_program(f'grep -q "{word}" "$text" && exec cp "{path}" "$made"\nexec espeak-ng "$@"')

    def voice(self, *commands, seconds=200):
        """Runs the commands and returns their answers, in order."""
        answers = self.answers(self.start_voice(commands), seconds)
        self.assertEqual(len(answers), len(commands))
        for command, answer in zip(commands, answers):
            self.assertTrue(answer.worked or command[0] not in WAITS, (command, self.heard()))
        return answers

    def start_midi(self, *arguments):
        """The client beside the library, as Pointalk.exe is. One may run already, whose code is read from these files."""
        client = self.folder / "midi_probe.exe"
        if not client.exists():
            shutil.copy(BUILD / "wine" / "winmm.dll", self.folder)
            shutil.copy(BUILD / "tests" / "wine" / "midi_probe.exe", client)
        return self.start(client, *arguments)

    def midi(self, *arguments):
        """Runs the commands and returns their results, as numbers."""
        answers = self.answers(self.start_midi(*arguments), 60)
        self.assertEqual(len(answers), len(arguments))
        return [int(answer.result) for answer in answers]

    def heard(self, *kinds):
        """The lines written down, of these kinds only if any are named, by time."""
        if not self.heard_file.exists():
            return []
        lines = self.heard_file.read_bytes().decode("utf-8").splitlines(keepends=True)
        whole = [json.loads(line) for line in lines if line.endswith("\n")]
        chosen = [line for line in whole if not kinds or line["what"] in kinds]
        return sorted(chosen, key=lambda line: line["t"])

    def order(self, *kinds):
        """The lines of these kinds, each with the number of its utterance among those spoken, where it has one."""
        numbers = [line["utterance"] for line in self.heard("sapi5 speak", "sapi4 speak")]
        return [(line["what"], numbers.index(line["utterance"]) + 1) if "utterance" in line else line["what"]
                for line in self.heard(*kinds)]

    def only(self, kind):
        lines = self.heard(kind)
        self.assertEqual(len(lines), 1, lines)
        return lines[0]

    def record_loudspeaker(self):
        """Makes ALSA's default device a file, the only sound there is, and returns its path."""
        recording = self.folder / "loudspeaker.wav"
        configuration = self.folder / "asound.conf"
        configuration.write_text(f"""
pcm.!default {{ type file slave.pcm silent file "{recording}" format wav }}
pcm.silent {{ type null }}
ctl.!default {{ type null }}
""", "utf-8")
        self.environment["ALSA_CONFIG_PATH"] = str(configuration)
        return recording

    def wave_microseconds(self, line):
        with wave.open(str(self.waves / line["wave"])) as sound:
            return sound.getnframes() * 1_000_000 // sound.getframerate()

    def wave_samples(self, line):
        with wave.open(str(self.waves / line["wave"])) as sound:
            return memoryview(sound.readframes(sound.getnframes())).cast("h").tolist()


def helper_folders():
    """The folders of the Linux halves that still work."""
    places = ("Temp", "AppData/Local/Temp")  # of Wine 8, of Wine 10
    return {str(folder) for place in places for folder in PREFIX.glob(f"drive_c/users/*/{place}/pointalk-*")}


def left_behind():
    """The programs that go on although the Linux half that started them is over, by the folder that it had."""
    folders = set()
    for link in pathlib.Path("/proc").glob("[0-9]*/cwd"):
        with contextlib.suppress(OSError):  # it has ended, or is somebody else's
            folders.add(os.readlink(link))
    return {folder for folder in folders if "/pointalk-" in folder.partition(f"{PREFIX}/drive_c/users/")[2]
            and folder.endswith(" (deleted)")}


def loudest(recording):
    """The greatest sample of a recording, whose header need not have been finished."""
    data = recording.read_bytes()[44:]
    return max((abs(sample) for sample in memoryview(data[:len(data) // 2 * 2]).cast("h")), default=0)


def create(name, class_id=SAPI5, interface=SAPI5_INTERFACE):
    return ("create", name, class_id, interface)


def speak(text, flags=None):
    return ("call", "v", "Speak", f"s:{text}") + (() if flags is None else (f"i:{flags}",))


def awaited(what, count=1):
    """The client goes on once so many lines of that kind were written down."""
    return ("await", what, str(count))
