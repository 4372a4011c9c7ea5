"""What the tour makes of what the recorders of its desktop wrote down, and how it finds things."""

import json
import pathlib
import socket
import sys
import time
import types

import pytest

SOURCE = pathlib.Path(__file__).resolve().parents[2]
sys.path[:0] = [str(SOURCE / "tours"), str(SOURCE / "tours" / "linux")]

from desktop import Desktop  # noqa: E402
from desktop_heard import DesktopHeard  # noqa: E402
from harness import now  # noqa: E402
from places import Places  # noqa: E402
from record import notes  # noqa: E402


@pytest.fixture(name="logs")
def make_logs(tmp_path):
    return types.SimpleNamespace(speech_log=tmp_path / "speech.jsonl", notes_log=tmp_path / "notes.txt")


def write(path, *lines):
    with path.open("a", encoding="utf-8") as file:
        file.write("".join(line if isinstance(line, str) else json.dumps(line) + "\n" for line in lines))


def test_words_and_notes_are_lines_in_the_order_of_their_times(logs):
    heard, at = DesktopHeard(logs), time.monotonic()
    write(logs.speech_log, {"time": at + 2, "client": 1, "say": "Cancel button", "message": 21})
    write(logs.notes_log, f"{at + 1:.6f} program 13 104 0\n", f"{at + 3:.6f} noteon 13 84 60\n", f"{at + 4:.6f} close 0 0 0\n")
    lines = heard.lines()
    assert [(line["what"], line.get("value"), line.get("text")) for line in lines] == [
        ("midi", "0x68cd", None), ("ssip speak", None, "Cancel button"), ("midi", "0x3c549d", None)]
    assert [note[1:] for note in notes(lines)] == [(True, 13, 84, 60)]
    assert heard.words(now() + 3_000_000) == []


def test_a_line_that_is_half_written_waits_for_its_end(logs):
    heard, at = DesktopHeard(logs), time.monotonic()
    write(logs.notes_log, f"{at:.6f} noteon 13 ")
    assert heard.lines() == []
    write(logs.notes_log, "84 60\n")
    assert len(heard.lines()) == 1


def test_speech_sounds_until_it_has_been_spoken_or_is_cut_off(logs):
    heard, at = DesktopHeard(logs), time.monotonic()
    write(logs.speech_log, {"time": at, "client": 1, "command": "CANCEL SELF"},
          {"time": at + 1, "client": 1, "event": "sounding", "message": 21, "wave": "21.wav", "length": 0.5},
          {"time": at + 2, "client": 1, "event": "cut", "message": 21})
    assert [(line["what"], line["utterance"], line.get("length")) for line in heard.lines()] == [
        ("sounding", 21, 500_000), ("cut", 21, None), ("ssip speak over", 21, None)]


class Told:
    """A desktop whose programs tell of these things."""

    def __init__(self, *things):
        self._things = [{"program": "one", "role": "push button", "words": [], **thing} for thing in things]

    def output(self, *_):
        return json.dumps(self._things).encode()


def test_the_innermost_thing_at_a_place():
    places = Places(Told({"name": "window", "rect": [0, 0, 100, 100], "depth": 1}, {"name": "OK", "rect": [10, 10, 30, 20], "depth": 2},
                         {"name": "not there", "rect": [-9, -9, 200, 200], "depth": 3}))
    assert places.place("OK") == (20, 15)
    assert [places.at(x, y) and places.at(x, y)["name"] for x, y in ((20, 15), (50, 50), (150, 50))] == ["OK", "window", None]


def test_texts_become_waves_that_sound_one_after_the_other(tmp_path):
    with Desktop(tmp_path / "desktop") as desktop:
        waves = desktop.folder / "waves"
        waves.mkdir()
        desktop.start_voice("--waves", waves)
        heard = DesktopHeard(desktop)
        with socket.socket(socket.AF_UNIX) as client:
            client.connect(str(desktop.socket))
            client.sendall(b"SPEAK\r\nOne two three.\r\n.\r\nSPEAK\r\nFour.\r\n.\r\n")
            desktop.wait_until(lambda: [line["what"] for line in heard.lines()].count("spoken") == 2)
        lines = {(line["what"], line["utterance"]): line for line in heard.lines()}
        first, second = lines["sounding", 21], lines["sounding", 22]
        assert (waves / first["wave"]).stat().st_size > (waves / second["wave"]).stat().st_size > 1000
        assert second["t"] >= lines["spoken", 21]["t"]
