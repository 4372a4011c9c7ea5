"""What some toolkits tell in a way of their own."""

import pytest

from accessible import COMBO_BOX, MENU, MENU_ITEM, TABLE_CELL, AccessibleTarget
from session import start_pointalk_over, wait_for_name

OTHER = (350, 35)


def show(desktop, toolkit="test 1.0"):
    target = AccessibleTarget(desktop, toolkit)
    target.show_window("frame", [0, 0, 400, 300], "Toolkits")
    target.put("other", [310, 20, 390, 50], name="Other")
    return target


@pytest.fixture(scope="module", name="target")
def make_target(desktop):
    target = show(desktop)
    target.desktop = desktop
    start_pointalk_over(desktop)
    return target


def test_a_closed_list_of_firefox_is_its_combo_box_with_what_is_shown(target):
    target.put("combo", [10, 20, 110, 50], COMBO_BOX)
    target.put("list", [10, 20, 110, 50], MENU, parent="combo", selected="second")
    target.put("first", [0, 0, 0, 0], MENU_ITEM, parent="list", name="Boston")
    target.put("second", [0, 0, 0, 0], MENU_ITEM, parent="list", name="Paris")
    wait_for_name(target.desktop, (60, 35), "Paris", OTHER)


def test_a_combo_box_with_a_name_keeps_it(target):
    target.put("named", [10, 60, 110, 90], COMBO_BOX, name="Town")
    target.put("its_list", [10, 60, 110, 90], MENU, parent="named", selected="second")
    wait_for_name(target.desktop, (60, 75), "Town", OTHER)


def test_a_cell_of_a_spreadsheet_is_what_stands_in_it_and_then_its_place(target):
    target.put("full", [10, 100, 110, 130], TABLE_CELL, name="B2", text="Anna")
    target.put("empty", [10, 140, 110, 170], TABLE_CELL, name="B3", text="")
    target.put("same", [10, 180, 110, 210], TABLE_CELL, name="Builder", text="Builder")
    wait_for_name(target.desktop, (60, 115), "Anna, B 2", OTHER)
    wait_for_name(target.desktop, (60, 155), "B 3", OTHER)
    wait_for_name(target.desktop, (60, 195), "Builder", OTHER)


@pytest.mark.parametrize("x", [30, 90, 150])
def test_an_entry_of_a_list_of_gtk_3_has_the_name_of_one_of_its_parts(target, x):
    target.put("entry", [10, 270, 190, 290], TABLE_CELL)
    target.put("picture", [10, 270, 60, 290], TABLE_CELL, parent="entry")
    target.put("named", [60, 270, 120, 290], TABLE_CELL, parent="entry", name="Assistant")
    wait_for_name(target.desktop, (x, 280), "Assistant", OTHER)


def test_a_cell_without_any_name_says_what_it_is(target):
    target.put("check", [200, 270, 240, 290], TABLE_CELL)
    wait_for_name(target.desktop, (220, 280), "It is eigh table cell", OTHER)


def test_the_place_of_an_object_in_a_text_is_no_character(target):
    target.put("heading", [10, 220, 110, 240], 83, name="Read\ufffcmore")
    target.put("paragraph", [10, 245, 210, 265], 73, text="See \ufffc there")
    wait_for_name(target.desktop, (60, 230), "Read more", OTHER)
    wait_for_name(target.desktop, (12, 250), "See   there", OTHER)


def test_a_walk_through_a_slow_window_of_an_old_gtk_4_goes_on(own_desktop):
    target = show(own_desktop, "GTK 4.8.3")
    target.put("slow", [10, 250, 20, 260], lies={"GetChildren": "late"})
    target.put("deep", [10, 20, 110, 50], name="Deep", **{"found after": "slow"})
    target.put("other", [310, 20, 390, 50], name="Other", **{"found after": "slow"})
    start_pointalk_over(own_desktop)
    wait_for_name(own_desktop, (60, 35), "Deep button", OTHER)
