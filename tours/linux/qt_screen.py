"""A program of Qt 6: the settings of Qt's own look."""


def visit(guide):
    walk, places = guide.walk, guide.places
    places.put(guide.start_program("qt6ct"), "Qt6 Configuration Tool", (60, 40, 960, 640))
    walk.to(places.place("Information", "push button"), "a button", "Information button")
    walk.to(places.place("Fonts", "page tab"), "a tab", "Fonts")
    walk.to(places.place("Custom", "radio button"), "a radio button", "Custom button")
    walk.to(places.place("PushButton", "push button"), "a button in a window of its own", "Push Button button")
    ok, cancel = places.place("OK", "push button"), places.place("Cancel", "push button")
    walk.to_and_fro("from button to button and back", (ok, "O K button"), (cancel, "Cancel button"), 30)
    in_list(walk, places)
    walk.to((500, 720), "the desktop")
    walk.rests("rest over the desktop")


def in_list(walk, places):
    walk.to(places.place("Fusion", "combo box"), "a combo box", "Fusion")
    walk.clicks("a click on it", "Click")
    walk.jump(places.place("Windows", "list item"), "an entry of the open list", "Windows")
    walk.hand.tap("Escape")
