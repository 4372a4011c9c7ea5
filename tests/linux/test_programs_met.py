"""Programs that pointalk meets, and how it finds out how each has to be asked."""

import os
import signal

from accessible import FRAME, LABEL, TEXT, AccessibleTarget
from session import start_pointalk_over, wait_for_name

HUNG = 8


def test_hung_programs_do_not_keep_the_next_from_being_known(own_desktop):
    for _ in range(HUNG):
        os.kill(AccessibleTarget(own_desktop).program.pid, signal.SIGSTOP)
    target = AccessibleTarget(own_desktop, "Qt")
    target.show_window("frame", [0, 0, 800, 600], "Qt")
    # Only of a program of Qt a text that does not say how many lines it has is a field of one.
    target.put("field", [10, 10, 200, 60], TEXT, text="whole\nfield")
    target.put("elsewhere", [300, 10, 400, 60], LABEL, name="Elsewhere")
    start_pointalk_over(own_desktop)
    wait_for_name(own_desktop, (50, 35), "whole", (350, 35))


def test_a_window_that_was_met_while_it_grew(own_desktop):
    """Its frame was not much more than half as large then, as if the program counted two pixels of the screen as one."""
    target = AccessibleTarget(own_desktop)
    target.show_window("frame", [0, 0, 800, 600], "Grown")
    target.tell(id="frame", rectangle=[0, 0, 450, 350], role=FRAME, name="Grown")
    target.put("small", [60, 40, 100, 60], name="Small")
    target.put("elsewhere", [200, 10, 300, 60], LABEL, name="Elsewhere")
    start_pointalk_over(own_desktop)
    wait_for_name(own_desktop, (160, 100), "Small button", (500, 70))
    target.tell(id="frame", rectangle=[0, 0, 800, 600], role=FRAME, name="Grown")
    wait_for_name(own_desktop, (80, 50), "Small button", (250, 35))


def test_a_process_with_two_connections(own_desktop):
    target = AccessibleTarget(own_desktop, "test 1.0", "Qt")
    for program, name in enumerate(("First", "Second")):
        left = 400 * program
        target.show_window(name, [left, 0, left + 300, 200], name, program)
        target.put("button", [left + 10, 10, left + 110, 60], parent=name, name=name, program=program)
    start_pointalk_over(own_desktop)
    wait_for_name(own_desktop, (50, 35), "First button", (450, 150))
    wait_for_name(own_desktop, (450, 35), "Second button", (50, 150))


def test_a_window_that_has_the_number_of_another_programs_process(own_desktop):
    """As from another machine, or from where processes are counted anew."""
    known = AccessibleTarget(own_desktop)
    known.show_window("frame", [0, 0, 300, 200], "Known")
    known.put("button", [10, 10, 110, 60], name="Known")
    other = AccessibleTarget(own_desktop)
    other.tell(window="frame", rectangle=[100, 300, 850, 900], title="Other", process=known.program.pid)
    start_pointalk_over(own_desktop)
    wait_for_name(own_desktop, (50, 35), "Known button", (1200, 1000))
    before = len(own_desktop.said())
    wait_for_name(own_desktop, (500, 600), "Other", (1200, 1000))
    assert "Known" not in own_desktop.said()[before:]
