"""Programs that pointalk meets, and how it finds out how each has to be asked."""

import os
import signal

from accessible import FRAME, LABEL, TEXT, AccessibleTarget
from desktop import Desktop
from session import start_pointalk_over, wait_for_name

HUNG = 8


def test_hung_programs_do_not_keep_the_next_from_being_known(tmp_path):
    with Desktop(tmp_path / "desktop") as desktop:
        desktop.start_voice()
        for _ in range(HUNG):
            os.kill(AccessibleTarget(desktop).program.pid, signal.SIGSTOP)
        target = AccessibleTarget(desktop, "Qt")
        target.show_window("frame", [0, 0, 800, 600], "Qt")
        # Only of a program of Qt a text that does not say how many lines it has is a field of one.
        target.put("field", [10, 10, 200, 60], TEXT, text="whole\nfield")
        target.put("elsewhere", [300, 10, 400, 60], LABEL, name="Elsewhere")
        start_pointalk_over(desktop)
        wait_for_name(desktop, (50, 35), "whole", (350, 35))


def test_a_window_that_was_met_while_it_grew(tmp_path):
    """Its frame was not much more than half as large then, as if the program counted two pixels of the screen as one."""
    with Desktop(tmp_path / "desktop") as desktop:
        desktop.start_voice()
        target = AccessibleTarget(desktop)
        target.show_window("frame", [0, 0, 800, 600], "Grown")
        target.tell(id="frame", rectangle=[0, 0, 450, 350], role=FRAME, name="Grown")
        target.put("small", [60, 40, 100, 60], name="Small")
        target.put("elsewhere", [200, 10, 300, 60], LABEL, name="Elsewhere")
        start_pointalk_over(desktop)
        wait_for_name(desktop, (160, 100), "Small button", (500, 70))
        target.tell(id="frame", rectangle=[0, 0, 800, 600], role=FRAME, name="Grown")
        wait_for_name(desktop, (80, 50), "Small button", (250, 35))
