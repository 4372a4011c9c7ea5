"""How pointalk starts and ends."""

from desktop import LIMIT
from session import PROGRAM, place, start_pointalk_over


def test_a_second_start_brings_the_panel_up(own):
    assert own.desktop.start(PROGRAM).wait(LIMIT) == 0
    own.desktop.windows("Pointalk Control Center")
    assert own.pointalk.poll() is None


def test_the_end_of_the_session_ends_it_in_order(own):
    own.pointalk.terminate()
    assert own.pointalk.wait(LIMIT) == 0
    assert (own.desktop.config / "status.txt").read_bytes() == b"stopped\r\n"


def test_the_end_of_the_x_server_ends_it_in_order(own):
    own.desktop.programs[0].kill()
    assert own.pointalk.wait(LIMIT) == 0
    assert (own.desktop.config / "status.txt").read_bytes() == b"stopped\r\n"


def switch_of_accessibility(desktop, method, *value):
    return desktop.output("gdbus", "call", "--session", "--dest", "org.a11y.Bus", "--object-path", "/org/a11y/bus", "--method",
                          f"org.freedesktop.DBus.Properties.{method}", "org.a11y.Status", "IsEnabled", *value)


def test_accessibility_is_left_as_it_was(own):
    assert b"true" in switch_of_accessibility(own.desktop, "Get")
    own.pointalk.terminate()
    own.pointalk.wait(LIMIT)
    assert b"false" in switch_of_accessibility(own.desktop, "Get")
    switch_of_accessibility(own.desktop, "Set", "<true>")
    own.pointalk = start_pointalk_over(own.desktop)
    own.wait_for_name(place(0, 3), "Toggle me button")
    own.pointalk.terminate()
    own.pointalk.wait(LIMIT)
    assert b"true" in switch_of_accessibility(own.desktop, "Get")
