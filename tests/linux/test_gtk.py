"""What is said over a program of GTK 3, which has the same things at the same places as the one of Qt."""

import pytest

from session import GTK_TARGET, Session, place, wait_for_kind

NOWHERE = (1200, 1000)
# Where a thing lies, what is said over it, and what is said of it after Control.
THINGS = [
    (place(0, 0), "Push me button", "push button."), (place(0, 1), "Check me button", "check box."),
    (place(0, 2), "Radio me button", "radio button."), (place(0, 3), "Toggle me button", "push button."),
    (place(0, 4), "Does what nobody has named", "push button."), (place(0, 5), "A label", "text."),
    (place(0, 6), "line text", "editable text."), (place(0, 7), "Pass phrase", "editable text."),
    (place(0, 8), "Red", "combo box"), (place(0, 9), "7", "spin box."), (place(0, 10), "3  0", "slider."),
    (place(0, 11), "4  0", "progress bar."), (place(0, 12), "scroll bar", "scroll bar."),
    (place(1, 3), "first line of words", "editable text."), (place(1, 6), "Item one", "text."),
    (place(2, 0, 60), "Node A", "cell."), (place(2, 3, 30), "Cell one", "cell."), (place(2, 3, 100), "Cell two", "cell."),
    ((530, 294), "Tab one", "page tab."), ((618, 294), "Tab two", "page tab."), (place(2, 9), "Icon one", "graphic."),
    ((600, 350), "On the page button", "push button."), ((20, 15), "File menu", "menu item."),
]


@pytest.fixture(scope="module", name="gtk")
def make_gtk(desktop):
    return Session(desktop, GTK_TARGET)


@pytest.mark.parametrize("point, words, kind", THINGS, ids=[words for _, words, _ in THINGS])
def test_things_are_named_and_say_what_they_are(gtk, point, words, kind):
    gtk.wait_for_name(point, words)
    wait_for_kind(gtk.desktop, point, kind, NOWHERE)


def test_shift_spells(gtk):
    gtk.spells_the_field()


def test_a_text_is_read_by_line_and_then_by_word(gtk):
    gtk.reads_first_text()


def test_a_password_is_never_said(gtk):
    gtk.says_no_password()


def test_an_open_list_is_read(gtk):
    gtk.desktop.wait_until(lambda: {"Green menu", "Blue menu"} <= gtk.said_in_open_list())


def test_an_open_menu_is_read(gtk):
    gtk.desktop.wait_until(lambda: {"Open menu", "Save As menu"} <= gtk.said_in_open_menu())


def test_a_stopped_program_does_not_stop_the_tones(gtk):
    gtk.survives_a_stopped_target()
