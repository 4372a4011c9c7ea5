"""What is said of things under the pointer."""

import time

import pytest

from session import MENU_HEIGHT, ROW, place


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
