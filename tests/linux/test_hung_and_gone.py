"""Programs and a voice that hang, end and come back."""

import os
import signal

from desktop import LIMIT
from session import TARGET, place, tones_after


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


def test_a_program_that_ends_is_forgotten(own):
    own.target.kill()
    own.target.wait(LIMIT)
    own.desktop.move(*place(0, 1))
    own.target = own.desktop.start(TARGET)
    own.desktop.windows("Qt Target")
    own.wait_for_name(place(0, 3), "Toggle me button")
