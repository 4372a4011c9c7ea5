"""The whole program over a program of ours whose things have known places."""

import os
import pathlib
import signal
import time

import pytest

from desktop import LIMIT, Desktop

BUILD = pathlib.Path(os.environ.get("POINTALK_LINUX_BUILD",
                                    pathlib.Path(__file__).resolve().parents[2] / "build" / "linux-release"))
PROGRAM = BUILD / "pointalk"
TARGET = BUILD / "pointalk_qt_target"
RECORDER = BUILD / "libpointalk_note_recorder.so"

MENU_HEIGHT = 30
ROW = 40


def place(column, row, x=40):
    """A point in a row of the target's columns."""
    return 10 + column * 240 + x, MENU_HEIGHT + row * ROW + ROW // 2


class Session:
    """A desktop with the target and pointalk on it."""

    def __init__(self, desktop, **env):
        self.desktop = desktop
        self.pointalk = desktop.start_pointalk(PROGRAM, preload=RECORDER, **env)
        self.target = desktop.start(TARGET)
        desktop.windows("Qt Target")
        self.wait_for_name(place(0, 0), "Push me button")

    def wait_for_name(self, point, words):
        """Points there from another thing until it is named: a program has to be on the bus first, a busy machine may take
        longer for an answer than is waited for, and what was said last is not said again."""
        elsewhere = place(0, 5) if words != "A label" else place(0, 0)

        def named():
            self.desktop.move(*elsewhere)
            time.sleep(0.2)
            before = len(self.desktop.said())
            self.desktop.move(*point)
            end = time.monotonic() + 1
            while time.monotonic() < end:
                if words in self.desktop.said()[before:]:
                    return True
                time.sleep(0.02)
            return False
        self.desktop.wait_until(named)

    def said_after(self, action):
        before = len(self.desktop.said())
        action()
        return lambda: self.desktop.said()[before:]


@pytest.fixture(scope="module", name="session")
def make_session(tmp_path_factory):
    with Desktop(tmp_path_factory.mktemp("desktop")) as desktop:
        desktop.start_voice()
        yield Session(desktop)


@pytest.fixture(name="own")
def make_own(tmp_path):
    """For tests after which the desktop is good for no other."""
    with Desktop(tmp_path / "desktop") as desktop:
        desktop.start_voice()
        yield Session(desktop)


@pytest.mark.parametrize("row, words", [
    (0, "Push me button"), (1, "Check me button"), (2, "Radio me button"), (3, "Toggle me button"),
    (4, "Does what nobody has named"), (5, "A label"), (6, "line text"), (7, "Pass phrase"), (8, "Red"), (9, "7"),
    (10, "3  0"), (11, "4  0"), (12, "scroll bar"),
])
def test_things_are_named(session, row, words):
    session.wait_for_name(place(0, row), words)


@pytest.mark.parametrize("column, row, x, words", [
    (1, 6, 30, "Item one"), (2, 0, 60, "Node A"), (2, 3, 30, "Cell one"), (2, 6, 30, "Tab one"),
])
def test_items_are_named(session, column, row, x, words):
    session.wait_for_name((place(column, row, x)[0], MENU_HEIGHT + row * ROW + 12), words)


def test_a_text_is_read_by_line_and_then_by_word(session):
    x, y = place(1, 0, 12)
    session.wait_for_name((x, MENU_HEIGHT + 15), "alpha beta gamma")
    said = session.said_after(lambda: None)
    for step in range(0, 120, 8):
        session.desktop.move(x + step, MENU_HEIGHT + 15)
        time.sleep(0.1)
    session.desktop.wait_until(lambda: "gamma" in said())
    assert "alpha beta gamma" not in said()


def test_a_password_is_never_said(session):
    session.wait_for_name(place(0, 7), "Pass phrase")
    assert not any("secret" in text or "s e c r e t" in text for text in session.desktop.said())


def test_control_says_what_it_is(session):
    def identified():
        said = session.said_after(lambda: session.desktop.output(
            "xdotool", "mousemove", "1200", "1000", "mousemove", *map(str, place(0, 0)), "sleep", "0.1", "keydown", "ctrl",
            "sleep", "0.1", "keyup", "ctrl"))
        time.sleep(0.5)
        return "It is a push button." in said()
    session.desktop.wait_until(identified)


def test_shift_spells(session):
    session.desktop.output("xdotool", "keydown", "shift")
    try:
        session.wait_for_name(place(0, 6), "l i n e   t e x t")
    finally:
        session.desktop.output("xdotool", "keyup", "shift")


@pytest.mark.parametrize("click, words", [(("1",), "Click"), (("3",), "Right Click"), (("2",), "Middle Click"),
                                          (("--repeat", "2", "--delay", "60", "1"), "DoubleClick")])
def test_clicks_are_said(session, click, words):
    session.wait_for_name(place(0, 5), "A label")
    said = session.said_after(lambda: session.desktop.output("xdotool", "click", *click))
    session.desktop.wait_until(lambda: words in said())


def test_an_open_list_is_read(session):
    session.wait_for_name(place(0, 8), "Red")
    session.desktop.output("xdotool", "click", "1")
    try:
        x, y = place(0, 8)
        names = set()

        def found():
            for down in range(-30, 90, 10):
                said = session.said_after(lambda step=down: session.desktop.move(x, y + step))
                time.sleep(0.15)
                names.update(said())
            return {"Green", "Blue"} <= names
        session.desktop.wait_until(found)
    finally:
        session.desktop.output("xdotool", "key", "Escape")


def tones_after(desktop, action):
    """The keys that sound on the channels of position after an action, once there is one on each."""
    before = len(desktop.notes())
    action()
    keys = {}

    def sounded():
        keys.update({note[1]: note[2] for note in desktop.notes()[before:] if note[1] in (13, 14)})
        return len(keys) == 2
    desktop.wait_until(sounded)
    return keys[14], keys[13]


def test_a_move_sounds_two_tones(session):
    session.desktop.move(100, 900)
    lower, higher = tones_after(session.desktop, lambda: session.desktop.move(900, 300))
    assert 40 <= lower < higher


def test_a_stopped_program_does_not_stop_the_tones(own):
    os.kill(own.target.pid, signal.SIGSTOP)
    for point in (place(2, 11), place(0, 0)) * 3:  # of other columns and rows
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


def test_accessibility_is_left_as_it_was(own):
    question = ("gdbus", "call", "--session", "--dest", "org.a11y.Bus", "--object-path", "/org/a11y/bus", "--method",
                "org.freedesktop.DBus.Properties.Get", "org.a11y.Status", "IsEnabled")
    assert b"true" in own.desktop.output(*question)
    own.pointalk.terminate()
    own.pointalk.wait(LIMIT)
    assert b"false" in own.desktop.output(*question)


def test_a_wayland_session_is_refused(tmp_path):
    with Desktop(tmp_path / "desktop") as desktop:
        desktop.start_voice()
        assert desktop.start(PROGRAM, XDG_SESSION_TYPE="wayland").wait(LIMIT) == 3
        assert len(desktop.said()) == 1
        assert "Wayland" in desktop.said()[0]


def test_without_a_sound_device_it_asks(tmp_path):
    with Desktop(tmp_path / "desktop") as desktop:
        desktop.start_voice()
        desktop.start(PROGRAM, LD_PRELOAD=str(RECORDER), POINTALK_NO_SOUND="1")
        desktop.wait_until(lambda: any("Do you want to run without midi" in text for text in desktop.said()))


def test_without_a_voice_the_tones_sound(tmp_path):
    with Desktop(tmp_path / "desktop") as desktop:
        desktop.config.mkdir(parents=True)
        (desktop.config / "DidWarn.flg").write_text("Been there done that.\r\n", encoding="ascii")
        desktop.start(PROGRAM, LD_PRELOAD=str(RECORDER), POINTALK_NOTES=str(desktop.notes_log))

        def sounds():
            before = len(desktop.notes())
            for point in ((300, 300), (700, 800)):
                desktop.move(*point)
                time.sleep(0.3)
            return len(desktop.notes()) > before
        desktop.wait_until(sounds)
        assert "speech-dispatcher" in (desktop.folder / "pointalk.err").read_text(encoding="utf-8")
