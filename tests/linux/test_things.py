"""What is said of things under the pointer."""

import time

import pytest

from accessible import MULTI_LINE, AccessibleTarget
from desktop import LIMIT
from session import MENU_HEIGHT, ROW, place, wait_for_kind


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
    session.reads_first_text()


def test_a_password_is_never_said(session):
    session.says_no_password()


def test_an_open_list_is_read(session):
    session.desktop.wait_until(lambda: {"Green", "Blue"} <= session.said_in_open_list())


def test_an_open_menu_is_read(session):
    session.desktop.wait_until(lambda: {"Open menu", "Save As menu"} <= session.said_in_open_menu())


# What is asked of no object: some programs fall over the first, the second walks their trees.
NEVER_ASKED = {"GetAll": "silence", "GetChildren": "silence"}
NEVER_ASKED_OF_A_PASSWORD = {question: "silence" for question in (
    "CharacterCount", "GetText", "GetOffsetAtPoint", "GetStringAtOffset", "GetTextAtOffset", "CurrentValue")}
# The role, what the thing has, what is said over it, and what is said of it after Control.
KINDS = [
    (43, {"name": "Amber"}, "Amber button", "push button."), (62, {"name": "Birch"}, "Birch button", "push button."),
    (7, {"name": "Cedar"}, "Cedar button", "check box."), (44, {"name": "Denim"}, "Denim button", "radio button."),
    (11, {"name": "Ebony"}, "Ebony", "combo box"),
    (61, {"text": "fawn deer\nsecond line", "states": [MULTI_LINE]}, "fawn deer", "editable text."),
    (73, {"text": "green field"}, "green field", "editable text."), (95, {"text": "hazel nut"}, "hazel nut", "editable text."),
    (60, {"text": "indigo blue"}, "indigo blue", "editable text."),
    (79, {"name": "Jade", "text": "khaki cloth"}, "khaki cloth", "editable text."),
    (79, {"name": "Lilac"}, "Lilac", "editable text."), (52, {"name": "Maroon", "value": 7}, "7", "spin box."),
    (32, {"name": "Navy"}, "Navy", "list item."), (26, {"name": "Olive"}, "Olive", "graphic."),
    (91, {"name": "Pearl"}, "Pearl", "outline item."), (56, {"name": "Quartz"}, "Quartz", "cell."),
    (40, {"name": "Ruby", "text": "never told", "lies": NEVER_ASKED | NEVER_ASKED_OF_A_PASSWORD}, "Ruby", "editable text."),
    (88, {"name": "Topaz"}, "Topaz", "link."), (35, {"name": "Violet"}, "Violet menu", "menu item."),
    (37, {"name": "Wheat"}, "Wheat", "page tab."), (50, {}, "It is eigh separator", "separator."),
    (27, {}, "It is eigh image", "graphic."), (48, {}, "scroll bar", "scroll bar."),
    (26, {"text": "Almond"}, "Almond", "graphic."),
]
LEFT, WIDTH, HEIGHT = 760, 160, 40
NOWHERE = (1200, 1000)
LINE_AND_WORD = [number for number, kind in enumerate(KINDS) if kind[3] == "editable text." and "name" not in kind[1]]


def place_of_kind(number, x=12):
    return LEFT + number % 3 * (WIDTH + 10) + x, number // 3 * (HEIGHT + 10) + 5


@pytest.fixture(scope="module", name="kinds")
def make_kinds(session):
    """A program with a thing of every kind, which would be silent from then on if it were asked what nobody should ask."""
    target = AccessibleTarget(session.desktop)
    target.show_window("frame", [LEFT, 0, 1270, 900], "Kinds")
    for number, (role, more, _, _) in enumerate(KINDS):
        x, y = place_of_kind(number, 0)
        target.put(f"kind{number}", [x, y - 5, x + WIDTH, y - 5 + HEIGHT], role, **{"lies": NEVER_ASKED, **more})
    return session


@pytest.mark.parametrize("number", range(len(KINDS)))
def test_every_kind_is_named_and_says_what_it_is(kinds, number):
    _, _, words, kind = KINDS[number]
    kinds.wait_for_name(place_of_kind(number), words)
    wait_for_kind(kinds.desktop, place_of_kind(number), kind, NOWHERE)


@pytest.mark.parametrize("number", LINE_AND_WORD)
def test_texts_of_every_kind_are_read_by_word_after_their_line(kinds, number):
    line = KINDS[number][2]
    kinds.wait_for_name(place_of_kind(number), line)
    said = kinds.said_after(lambda: None)
    last = line.split()[-1]

    def has_read():
        for word in (0, line.index(last)):
            kinds.desktop.move(*place_of_kind(number, word * 8 + 12))
            time.sleep(0.1)
        return last in said()
    kinds.desktop.wait_until(has_read)
    assert line not in said()


def test_a_text_of_gtk_4_is_read_where_it_says_its_window_is(session):
    target = AccessibleTarget(session.desktop, "GTK 4.18.1")
    target.show_window("frame", [760, 910, 1270, 960], "New")
    target.put("text", [10, 10, 200, 40], 61, text="umber vase", states=[MULTI_LINE])
    session.wait_for_name((775, 925), "umber vase")
    target.program.kill()
    target.program.wait(LIMIT)


def test_an_old_gtk_4_is_not_asked_for_the_place_in_a_text(session):
    target = AccessibleTarget(session.desktop, "GTK 4.8.3")
    target.show_window("frame", [760, 910, 1270, 960], "Old")
    target.put("text", [10, 10, 200, 40], 61, text="umber vase", states=[MULTI_LINE], lies={"GetOffsetAtPoint": "silence"})
    target.put("button", [210, 10, 400, 40], name="Xanadu")
    for _ in range(3):
        session.desktop.move(775, 925)
        time.sleep(0.2)
        session.wait_for_name((980, 925), "Xanadu button")
