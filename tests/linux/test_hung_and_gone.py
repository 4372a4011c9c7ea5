"""Programs, a voice and a bus that hang, end and come back."""

import os
import pathlib
import signal

from accessible import FRAME, AccessibleTarget
from desktop import LIMIT
from session import place, wait_for_name


def test_a_stopped_program_does_not_stop_the_tones(session):
    session.survives_a_stopped_target()


def test_a_program_that_is_late_once_is_not_called_a_window(session):
    target = AccessibleTarget(session.desktop)
    target.show_window("frame", [800, 200, 1000, 300])
    target.put("late", [800, 200, 1000, 300], name="Late", lies={"Name": "late"})
    said = session.said_after(lambda: None)
    wait_for_name(session.desktop, (900, 250), "Late button", place(0, 0))
    assert "It is eigh window" not in said()
    target.program.kill()
    target.program.wait(LIMIT)


def test_a_voice_that_hangs_does_not_keep_the_tones_from_sounding(session):
    """What is said in answer to Control is waited for, and no longer than a server may need to take it."""
    target = AccessibleTarget(session.desktop)
    target.show_window("frame", [800, 0, 1000, 100], "Told")
    target.put("told", [800, 0, 1000, 100], name="Told", description="long " * 400)
    wait_for_name(session.desktop, (900, 50), "Told button", place(0, 0))
    os.kill(session.desktop.recorder.pid, signal.SIGSTOP)
    session.desktop.output("xdotool", "mousemove", *map(str, place(0, 0)), "sleep", "0.3", "mousemove", "900", "50", "sleep",
                           "0.3", "keydown", "ctrl", "sleep", "0.2", "keyup", "ctrl", "sleep", "0.5")
    try:
        for _ in range(3):
            session.tones_go_on()
    finally:
        os.kill(session.desktop.recorder.pid, signal.SIGCONT)
    session.wait_for_name(place(0, 3), "Toggle me button")


def test_a_voice_that_dies_comes_back(session):
    session.desktop.recorder.kill()
    session.desktop.recorder.wait(LIMIT)
    session.desktop.move(*place(0, 1))
    session.desktop.start_voice()
    session.wait_for_name(place(0, 3), "Toggle me button")


def test_a_program_that_ends_is_forgotten(session):
    session.start_target_again()
    session.wait_for_name(place(0, 3), "Toggle me button")


def test_an_old_gtk_4_that_ends_while_it_is_walked_through_ends_nobody_else(session):
    dying = AccessibleTarget(session.desktop, "GTK 4.8.3")
    dying.show_window("frame", [800, 200, 1000, 300], "Dying")
    dying.tell(id="frame", rectangle=[800, 200, 1000, 300], role=FRAME, name="Dying", lies={"GetChildren": "death"})

    def has_ended():
        session.desktop.move(*place(0, 0))
        session.desktop.move(900, 250)
        return dying.program.poll() is not None
    session.desktop.wait_until(has_ended)
    session.wait_for_name(place(0, 3), "Toggle me button")


def test_open_lists_are_read_after_the_registry_of_the_bus_has_ended(own):
    """A program that comes then sends what the new registry was asked for."""
    address = own.desktop.output("gdbus", "call", "--session", "--dest", "org.a11y.Bus", "--object-path", "/org/a11y/bus",
                                 "--method", "org.a11y.Bus.GetAddress").decode().split("'")[1]

    def registry():
        answer = own.desktop.output("gdbus", "call", "--address", address, "--dest", "org.freedesktop.DBus", "--object-path", "/",
                                    "--method", "org.freedesktop.DBus.GetConnectionUnixProcessID", "org.a11y.atspi.Registry")
        return int(answer.split()[1].strip(b",)")) if answer else None
    before = registry()
    os.kill(before, signal.SIGKILL)
    own.desktop.wait_until(lambda: registry() != before)
    own.start_target_again()
    own.desktop.wait_until(lambda: {"Green", "Blue"} <= own.said_in_open_list())
    assert registry() != before


def processes_of_bus(desktop):
    """The one that started the bus of accessible objects, and those that it started."""
    answer = desktop.output("gdbus", "call", "--session", "--dest", "org.freedesktop.DBus", "--object-path", "/", "--method",
                            "org.freedesktop.DBus.GetConnectionUnixProcessID", "org.a11y.Bus")
    launcher = int(answer.split()[1].strip(b",)"))
    children = pathlib.Path(f"/proc/{launcher}/task/{launcher}/children").read_text(encoding="ascii")
    return [launcher, *map(int, children.split())]


def test_a_bus_that_goes_away_comes_back(own):
    before = processes_of_bus(own.desktop)
    for process in before:
        os.kill(process, signal.SIGKILL)
    own.tones_go_on()
    own.start_target_again()  # a program that was there before may not look for another bus
    own.wait_for_name(place(0, 3), "Toggle me button")
    assert not set(before) & set(processes_of_bus(own.desktop))
