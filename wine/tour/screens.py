"""The screens of the tour, each a few programs side by side and the places that are visited there."""

import crash_report_screen
import panel
from places import centre, inside


def first_screen(guide):
    """Notepad, WordPad, the registry editor and Wine's configuration."""
    walk, places = guide.walk, guide.places
    guide.start_program("notepad")
    guide.start_program(r"C:\Program Files\Windows NT\Accessories\wordpad.exe")
    guide.start_program("regedit")
    guide.start_program("winecfg")
    notepad = places.put(places.top_window("Notepad"), (10, 20, 500, 220))
    wordpad = places.put(places.top_window("WORDPADTOP"), (510, 20, 1010, 330))
    regedit = places.put(places.top_window("RegEdit_RegEdit"), (10, 240, 500, 560))
    winecfg = places.put(places.top_window("#32770"), (560, 300, 1000, 760))

    walk.to(inside(notepad, 120, 12), "notepad's title", "notepad")
    walk.clicks("a click on the title", "Click")
    walk.to(centre(places.child(notepad, "Edit")), "notepad's text", "edit")
    walk.clicks("a double click in the text", "DoubleClick", double=True)
    walk.asks("what it is", "It is a text")
    walk.rests("rest in the text")

    walk.to(centre(places.child(wordpad, "RichEdit20W")), "WordPad's text", "client")
    walk.to(inside(places.child(wordpad, "ToolbarWindow32"), 30, 12), "WordPad's tool bar", "Tool- Bar")
    walk.to(centre(places.child(regedit, "SysTreeView32")), "the registry's tree", "Tree View")
    walk.to(centre(places.child(regedit, "SysListView32")), "the registry's list", "regedit child window")
    walk.asks("the top window", "Top Window is ", shift=True)

    walk.to(inside(places.child(winecfg, "SysTabControl32"), 60, 10), "the tabs", "tab control")
    button = centre(places.child(winecfg, "Button", "Cancel"))
    walk.to(button, "a button", "Cancel button")
    walk.asks("what the button is", "It is a client")
    walk.to((button[0] - 80, button[1] - 100), "away from the button", "button")
    walk.spells(button, "the button spelled", "Capitl C eigh n c e l")
    walk.to((300, 650), "the desktop", "Wine desktop")
    walk.rests("rest over the desktop")


def last_screen(guide):
    """A crash report, and the way out by the menu."""
    crash_report_screen.visit(guide)
    panel.leave(guide)


ALL = (first_screen, last_screen)
