"""Programs that are there before pointalk, and how it finds out how each has to be asked."""

import os
import signal

from accessible import LABEL, TEXT, AccessibleTarget
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
