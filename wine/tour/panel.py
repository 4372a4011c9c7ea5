"""The control panel, visited by keys."""

from harness import now
from places import centre

PANEL_CLASS = "PointalkPanel"


def open_panel(guide):
    """By a double click on the minimised window."""
    window = guide.places.top_window(PANEL_CLASS)
    guide.walk.to(centre(window), "the minimised control panel", "Pointalk Control Center")
    guide.walk.hand.double_click()
    guide.places.restored(window)


def leave(guide):
    """Ends Pointalk by File, Exit."""
    walk, hand = guide.walk, guide.walk.hand
    open_panel(guide)
    since = now()
    hand.tap("alt+f", "x")
    walk.hears("File, Exit", "Do you want to quit from Pointalk?", since=since)
    since = now()
    hand.tap("y")
    walk.hears("Yes", "Yes.", "Pointalk is ending. Goodbye.", since=since)
    guide.pointalk.wait_for_end()
