"""What the measurement beside Orca makes of what the recorders wrote down."""

import json
import os
import pathlib
import socket
import sys
import types

import pytest

SOURCE = pathlib.Path(__file__).resolve().parents[2]
sys.path[:0] = [str(SOURCE / folder) for folder in ("tours", "tours/linux", "tests/bench/linux")]

import cost  # noqa: E402
from desktop import Desktop  # noqa: E402
from desktop_heard import DesktopHeard  # noqa: E402
import stages  # noqa: E402
from world import PROGRAMS, Speaker, is_fit, names  # noqa: E402


@pytest.mark.parametrize("name, text, expected", [
    ("OK", "O K button", True), ("PushButton", "Push Button button", True), ("Open a file", "Open eigh file", True),
    ("Version: 0.7", "Version:  0  dot  7", True), ("Version: 0.7", "Version:  0  dot  8", False),
    ("Button Boxes", '<speak><mark name="0:6"/>Button <mark name="7:13"/>Boxes.</speak>', True),
    ("Button Boxes", "Button", False), ("Fonts", "It is eigh window", False),
])
def test_a_name_is_known_again_however_it_is_written_for_the_ear(name, text, expected):
    assert names(name, text) == expected


def test_the_first_words_after_a_move_that_name_the_thing_count(tmp_path):
    logs = types.SimpleNamespace(speech_log=tmp_path / "speech.jsonl", notes_log=tmp_path / "notes.txt")
    lines = [{"time": at, "client": 1, "say": text, "message": 20 + at}
             for at, text in enumerate(("Cancel button", "row 5", "Cancel button", "Cancel"), 1)]
    logs.speech_log.write_text("".join(json.dumps(line) + "\n" for line in lines), encoding="utf-8")
    speaker = Speaker("one", None, DesktopHeard(logs))
    times = [line["t"] for line in speaker.heard.lines()]
    assert speaker.first_naming("Cancel", times[1])["t"] == times[2]
    assert speaker.first_naming("Help", times[0]) is None


def test_moves_without_words_have_no_delay():
    turns = [stages.Turn(None, {"one": delay}) for delay in (5, None, 7)]
    assert stages.delays_of(turns, "one") == [5, 7]


def test_things_outside_their_own_window_are_left_out():
    name, _, (left, top, right, bottom) = PROGRAMS[0]
    thing = {"program": name, "role": "push button", "name": "Run", "rect": [left, top, right, bottom]}
    assert is_fit(thing)
    for changed in ({"rect": [left - 1, top, right, bottom]}, {"name": "..."}, {"role": "filler"}, {"program": "another"},
                    {"rect": [left, top, left + 3, bottom]}):
        assert not is_fit({**thing, **changed})


def test_the_share_of_the_processor_is_what_was_used_since_the_beginning(tmp_path):
    """In the program's own code and in the system's. Its name has a parenthesis, which also ends the name in that file."""
    stat = tmp_path / "7" / "stat"
    stat.parent.mkdir()
    times = iter((10, 14))

    def write(own, system):
        stat.write_text(f"7 (a) b) S 1 7 7 0 -1 4194304 900 800 700 600 {own} {system} 500 400 20 0 1 0 300", "ascii")

    write(3 * cost.TICKS, 2 * cost.TICKS)
    processor = cost.Processor(7, tmp_path, lambda: next(times))
    write(4 * cost.TICKS, 2 * cost.TICKS + cost.TICKS // 2)
    assert processor.percent() == 37.5


def test_the_processor_and_the_memory_of_a_program_that_runs_are_known():
    assert cost.Processor(os.getpid()).percent() >= 0
    resident, proportional = cost.memory(os.getpid())
    assert resident >= proportional > 1


def test_every_command_of_a_screen_reader_is_answered(tmp_path):
    """What python3-speechd asks at its start, and a character by itself."""
    with Desktop(tmp_path / "desktop", window_manager=None) as desktop:
        desktop.start_voice()
        with socket.socket(socket.AF_UNIX) as client:
            client.connect(str(desktop.socket))
            answers = client.makefile(encoding="utf-8")
            for command, code in (("HISTORY GET CLIENT_ID", "245"), ("LIST OUTPUT_MODULES", "250"), ("GET RATE", "251"),
                                  ("CHAR x", "225")):
                client.sendall(f"{command}\r\n".encode("ascii"))
                assert [answers.readline()[:4] for _ in range(2)] == [code + "-", code + " "]
        assert desktop.said() == ["x"]
