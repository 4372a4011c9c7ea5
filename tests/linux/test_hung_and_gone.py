"""Programs and a voice that hang, end and come back."""

import os
import signal

from accessible import AccessibleTarget
from desktop import LIMIT
from session import TARGET, place, tones_after, wait_for_name


def test_a_stopped_program_does_not_stop_the_tones(own):
    os.kill(own.target.pid, signal.SIGSTOP)
    for point in ((700, 1000), place(0, 0), place(2, 12), place(0, 0)):
        tones_after(own.desktop, lambda to=point: own.desktop.move(*to))
    os.kill(own.target.pid, signal.SIGCONT)
    own.wait_for_name(place(0, 3), "Toggle me button")


def test_a_voice_that_dies_comes_back(own):
    own.desktop.recorder.kill()
    own.desktop.recorder.wait(LIMIT)
    own.desktop.move(*place(0, 1))
    own.desktop.start_voice()
    own.wait_for_name(place(0, 3), "Toggle me button")


def test_a_voice_that_hangs_does_not_keep_the_tones_from_sounding(own):
    """What is said in answer to Control is waited for, and no longer than a server may need to take it."""
    target = AccessibleTarget(own.desktop)
    target.show_window("frame", [800, 0, 1000, 100], "Told")
    target.put("told", [800, 0, 1000, 100], name="Told", description="long " * 400)
    wait_for_name(own.desktop, (900, 50), "Told button", place(0, 0))
    os.kill(own.desktop.recorder.pid, signal.SIGSTOP)
    own.desktop.output("xdotool", "mousemove", *map(str, place(0, 0)), "sleep", "0.3", "mousemove", "900", "50", "sleep", "0.3",
                       "keydown", "ctrl", "sleep", "0.2", "keyup", "ctrl", "sleep", "0.5")
    try:
        tones_after(own.desktop, lambda: own.desktop.move(700, 1000))
    finally:
        os.kill(own.desktop.recorder.pid, signal.SIGCONT)
    own.wait_for_name(place(0, 3), "Toggle me button")


def test_a_program_that_ends_is_forgotten(own):
    own.target.kill()
    own.target.wait(LIMIT)
    own.desktop.move(*place(0, 1))
    own.target = own.desktop.start(TARGET)
    own.desktop.windows("Qt Target")
    own.wait_for_name(place(0, 3), "Toggle me button")
