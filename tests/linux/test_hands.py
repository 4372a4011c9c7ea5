"""What the listener does with the mouse and the keys."""

import ctypes

import pytest

from session import place, tones_after, wait_for_kind


def test_control_says_what_it_is(session):
    wait_for_kind(session.desktop, place(0, 0), "push button.", (1200, 1000))


def test_shift_spells(session):
    session.spells_the_field()


@pytest.mark.parametrize("click, words", [(("1",), "Click"), (("3",), "Right Click"), (("2",), "Middle Click")])
def test_clicks_are_said(session, click, words):
    session.wait_for_name(place(0, 5), "A label")
    said = session.said_after(lambda: session.desktop.output("xdotool", "click", *click))
    session.desktop.wait_until(lambda: words in said())


def test_a_double_click_is_said(session):
    """On a busy machine the two clicks may come too far apart; then they are made once more."""
    session.wait_for_name(place(0, 5), "A label")
    since = []

    def press():
        since.append(len(session.desktop.said()))
        session.desktop.output("xdotool", "click", "--repeat", "2", "--delay", "60", "1")

    session.desktop.press_until(press, lambda: "DoubleClick" in session.desktop.said()[since[-1]:])
    assert "Click" not in session.desktop.said()[since[-1]:]


class Mouse:
    """The order of the mouse's buttons, as a setting for the left hand changes it."""

    def __init__(self, desktop):
        self.x = ctypes.CDLL("libX11.so.6")
        self.x.XOpenDisplay.restype = ctypes.c_void_p
        self.display = ctypes.c_void_p(self.x.XOpenDisplay(desktop.env["DISPLAY"].encode()))

    def set_order(self, *numbers):
        order = bytes(numbers)
        assert self.x.XSetPointerMapping(self.display, order, len(order)) == 0
        self.x.XSync(self.display, 0)


def test_the_left_button_is_the_one_that_the_settings_make_it(session):
    mouse = Mouse(session.desktop)
    session.wait_for_name(place(0, 5), "A label")
    said = session.said_after(lambda: None)
    mouse.set_order(3, 2, 1, *range(4, 11))
    try:
        session.desktop.output("xdotool", "click", "3")
        session.desktop.wait_until(lambda: {"Click", "Right Click"} & set(said()))
        assert "Click" in said()
    finally:
        mouse.set_order(*range(1, 11))


def test_a_move_sounds_two_tones(session):
    low_right = tones_after(session.desktop, lambda: session.desktop.move(1200, 1000))
    high_left = tones_after(session.desktop, lambda: session.desktop.move(50, 50))
    assert low_right[0] < high_left[0]
    assert low_right[1] > high_left[1]
