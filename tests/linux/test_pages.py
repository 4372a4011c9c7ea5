"""Pages of tabs as GTK 3 tells of them: what is on a page belongs to its tab, which lies above the page."""

import pytest

from accessible import PAGE_TAB, PAGE_TAB_LIST, PANEL, AccessibleTarget
from session import start_pointalk_over, wait_for_name

ON_PAGE, BESIDE, TAB = (60, 120), (300, 200), (60, 35)


@pytest.fixture(scope="module", name="target")
def make_target(desktop):
    target = AccessibleTarget(desktop)
    target.desktop = desktop
    target.show_window("frame", [0, 0, 400, 300], "Pages")
    target.put("tabs", [10, 20, 390, 290], PAGE_TAB_LIST, selected="first")
    target.put("first", [10, 20, 110, 50], PAGE_TAB, parent="tabs", name="First")
    target.put("second", [120, 20, 220, 50], PAGE_TAB, parent="tabs", name="Second")
    target.put("page", [10, 50, 390, 250], PANEL, parent="first")
    target.put("ok", [20, 100, 100, 140], parent="page", name="Fine")
    target.put("hidden", [20, 100, 100, 140], parent="second", name="Hidden")
    start_pointalk_over(desktop)
    return target


def test_what_is_on_the_selected_page_is_found(target):
    wait_for_name(target.desktop, ON_PAGE, "Fine button", TAB)


def test_the_page_follows_the_tab_that_is_selected(target):
    target.put("tabs", [10, 20, 390, 290], PAGE_TAB_LIST, selected="second")
    wait_for_name(target.desktop, ON_PAGE, "Hidden button", TAB)
    target.put("tabs", [10, 20, 390, 290], PAGE_TAB_LIST, selected="first")


def test_tabs_are_themselves_and_what_lies_beside_them_is_theirs(target):
    wait_for_name(target.desktop, TAB, "First", ON_PAGE)
    wait_for_name(target.desktop, (300, 35), "It is eigh page tab list", ON_PAGE)


def test_a_tab_that_tells_of_its_page_wherever_the_point_is(target):
    target.put("third", [230, 20, 290, 50], PAGE_TAB, parent="tabs", name="Third", **{"child at": "third_page"})
    target.put("third_page", [10, 50, 390, 250], parent="third", name="Below")
    wait_for_name(target.desktop, (260, 35), "Third", ON_PAGE)
    target.put("tabs", [10, 20, 390, 290], PAGE_TAB_LIST, selected="third")
    wait_for_name(target.desktop, ON_PAGE, "Below button", TAB)
    wait_for_name(target.desktop, (300, 35), "It is eigh page tab list", ON_PAGE)
    target.put("tabs", [10, 20, 390, 290], PAGE_TAB_LIST, selected="first")


@pytest.mark.parametrize("selected", ["tabs", "frame", "nobody", "first"])
def test_a_selected_page_that_leads_nowhere_or_round_in_a_circle(target, selected):
    target.put("odd", [200, 100, 390, 240], PAGE_TAB_LIST, parent="page", selected=selected)
    wait_for_name(target.desktop, BESIDE, "It is eigh page tab list", ON_PAGE)
