"""What the listener does with the mouse and the keys."""

import time

import pytest

from session import place, tones_after


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


def test_a_move_sounds_two_tones(session):
    low_right = tones_after(session.desktop, lambda: session.desktop.move(1200, 1000))
    high_left = tones_after(session.desktop, lambda: session.desktop.move(50, 50))
    assert low_right[0] < high_left[0]
    assert low_right[1] > high_left[1]
