"""How pointalk starts and ends."""

import os
import pathlib
import subprocess
import sys

import pytest

from desktop import LIMIT, next_line
from session import PROGRAM, place, start_pointalk_over


def test_a_second_start_brings_the_panel_up(own):
    assert own.desktop.start(PROGRAM).wait(LIMIT) == 0
    own.desktop.windows("Pointalk Control Center")
    assert own.pointalk.poll() is None


TAKER = """
import os, socket, sys, time
os.setuid(65534)
place = socket.socket(socket.AF_UNIX)
place.bind("\\0" + sys.argv[1])
place.listen()
print("ready", flush=True)
time.sleep(600)
"""


def name_of_place(program):
    """Of the socket that says that it runs."""
    files = {os.readlink(file) for file in pathlib.Path(f"/proc/{program.pid}/fd").iterdir()}
    sockets = [line.split() for line in pathlib.Path("/proc/net/unix").read_text(encoding="utf-8").splitlines()]
    (name,) = [words[7] for words in sockets if words[-1].startswith("@pointalk-") and f"socket:[{words[6]}]" in files]
    return name.removeprefix("@")


@pytest.mark.skipif(os.geteuid() != 0, reason="another user's program can only be started by root")
def test_another_users_program_does_not_keep_it_from_starting(own):
    name = name_of_place(own.pointalk)
    own.pointalk.terminate()
    own.pointalk.wait(LIMIT)
    taker = own.desktop.start(sys.executable, "-c", TAKER, name, stdout=subprocess.PIPE)
    assert next_line(taker.stdout) == b"ready"
    greetings = own.desktop.said().count("Pointalk is running.  Hit F1 any time for help.")
    start_pointalk_over(own.desktop)
    own.desktop.wait_until(lambda: own.desktop.said().count("Pointalk is running.  Hit F1 any time for help.") > greetings)


def test_the_end_of_the_session_ends_it_in_order(own):
    own.pointalk.terminate()
    assert own.pointalk.wait(LIMIT) == 0
    assert (own.desktop.config / "status.txt").read_bytes() == b"stopped\r\n"


def test_the_end_of_the_x_server_ends_it_in_order(own):
    own.desktop.programs[0].kill()
    assert own.pointalk.wait(LIMIT) == 0
    assert (own.desktop.config / "status.txt").read_bytes() == b"stopped\r\n"


def ask_switch(desktop, method, *arguments):
    """Of the desktop's switches for accessibility."""
    return desktop.output("gdbus", "call", "--session", "--dest", "org.a11y.Bus", "--object-path", "/org/a11y/bus", "--method",
                          f"org.freedesktop.DBus.Properties.{method}", "org.a11y.Status", *arguments)


def test_accessibility_is_left_as_it_was(own):
    assert b"true" in ask_switch(own.desktop, "Get", "IsEnabled")
    own.pointalk.terminate()
    own.pointalk.wait(LIMIT)
    assert b"false" in ask_switch(own.desktop, "Get", "IsEnabled")


def test_accessibility_is_left_on_for_a_screen_reader(own):
    ask_switch(own.desktop, "Set", "ScreenReaderEnabled", "<true>")
    assert b"true" in ask_switch(own.desktop, "Get", "ScreenReaderEnabled")
    own.pointalk.terminate()
    own.pointalk.wait(LIMIT)
    assert b"true" in ask_switch(own.desktop, "Get", "IsEnabled")


def test_accessibility_that_was_on_stays_on(own):
    own.pointalk.terminate()
    own.pointalk.wait(LIMIT)
    ask_switch(own.desktop, "Set", "IsEnabled", "<true>")
    own.pointalk = start_pointalk_over(own.desktop)
    own.wait_for_name(place(0, 3), "Toggle me button")
    own.pointalk.terminate()
    own.pointalk.wait(LIMIT)
    assert b"true" in ask_switch(own.desktop, "Get", "IsEnabled")
