"""Menus and lists that are open, which are windows of their own over others."""

import time

import pytest

from accessible import LIST, LIST_ITEM, MENU, MENU_ITEM, POPUP_MENU, TABLE_CELL, TEXT, WINDOW, AccessibleTarget
from session import start_pointalk_over, wait_for_name

OTHER = (700, 40)
IN_LIST = (60, 120)


@pytest.fixture(scope="module", name="running")
def make_running(desktop):
    start_pointalk_over(desktop)
    return desktop


@pytest.fixture(name="target")
def make_target(running):
    """A field, and a button that lies below it."""
    target = AccessibleTarget(running)
    target.show_window("frame", [0, 0, 800, 600], "Pop-ups")
    target.put("other", [650, 20, 750, 60], name="Other")
    target.put("field", [10, 20, 200, 50], TEXT, text="typed")
    target.put("covered", [20, 100, 180, 140], name="Covered")
    target.desktop = running
    wait_for_name(running, IN_LIST, "Covered button", OTHER)
    yield target
    target.program.kill()
    target.program.wait()


def said_over(target, point):
    """What is said there, once another thing has been named after it."""
    target.desktop.move(*OTHER)
    before = len(target.desktop.said())
    target.desktop.move(*point)
    time.sleep(0.3)
    wait_for_name(target.desktop, OTHER, "Other button", (700, 500))
    return target.desktop.said()[before:]


def test_what_a_list_of_completions_covers_is_not_named(target):
    target.tell(focus="field")
    target.show_pop_up([10, 50, 210, 250])
    assert "Covered button" not in said_over(target, IN_LIST)


def test_a_text_that_a_list_of_completions_covers_is_not_read(target):
    target.put("field", [10, 20, 600, 500], TEXT, text="typed", states=[17])
    target.tell(focus="field")
    target.show_pop_up([10, 30, 210, 250])
    assert "typed" not in said_over(target, (20, 35))


def test_a_list_of_completions_that_is_told_of_is_read(target):
    target.tell(focus="field")
    target.show_pop_up([10, 50, 210, 250])
    target.put("list_window", [10, 50, 210, 250], WINDOW, parent="root")
    target.put("list", [11, 51, 209, 249], LIST, parent="list_window")
    target.put("cell", [11, 100, 209, 140], TABLE_CELL, parent="list", name="Completed")
    wait_for_name(target.desktop, IN_LIST, "Completed", OTHER)


@pytest.mark.parametrize("holder, lies, item", [
    (POPUP_MENU, [10, 50, 210, 250], MENU_ITEM), (LIST, [10, 50, 210, 250], LIST_ITEM),
    (MENU, [10, 0, 60, 20], MENU_ITEM),  # the title of a menu of GTK 3
])
def test_an_item_that_has_the_focus_is_named(target, holder, lies, item):
    target.show_pop_up([10, 50, 210, 250])
    target.put("holder", lies, holder, parent="covered")
    target.put("item", [10, 110, 210, 130], item, parent="holder", name="Chosen")
    target.put("next", [10, 140, 210, 160], item, parent="holder", name="Next")
    target.tell(focus="item")
    chosen = "Chosen menu" if item == MENU_ITEM else "Chosen"
    following = "Next menu" if item == MENU_ITEM else "Next"
    wait_for_name(target.desktop, IN_LIST, chosen, OTHER)
    # The focus may come later than the pointer.
    wait_for_name(target.desktop, (60, 150), following, OTHER)


def test_an_item_of_a_list_that_is_longer_than_what_is_shown_of_it(target):
    target.show_pop_up([10, 50, 210, 250])
    target.put("shown", [10, 50, 210, 250], 68, parent="covered")
    target.put("holder", [10, -400, 210, 900], LIST, parent="shown")
    target.put("item", [10, 110, 210, 130], LIST_ITEM, parent="holder", name="Far down")
    target.tell(focus="item")
    wait_for_name(target.desktop, IN_LIST, "Far down", OTHER)


def test_under_a_tool_tip_is_what_it_tells_of(target):
    target.show_other("tool tip", [40, 110, 240, 150])
    wait_for_name(target.desktop, IN_LIST, "Covered button", OTHER)


def test_under_a_tool_tip_the_overlay_of_a_compositing_manager_does_not_count(target):
    target.show_other("tool tip", [40, 110, 240, 150])
    target.show_other("overlay", [0, 0, 1280, 1024])
    wait_for_name(target.desktop, IN_LIST, "Covered button", OTHER)


def test_under_a_window_that_shows_nothing_is_what_is_seen(target):
    """As window managers lay one along the edges of the screen."""
    target.show_other("input only", [40, 110, 240, 150])
    wait_for_name(target.desktop, IN_LIST, "Covered button", OTHER)
