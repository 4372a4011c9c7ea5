"""Two of GTK's own demonstrations and a window that one opens: a list, tabs, a text, menus and a combo box's open list."""

DEMO, EDITOR = "gtk3-demo", "gtk3-demo-application"
LINES = ("The quick brown fox", "jumps over lazy dogs", "and sleeps in the sun")


def visit(guide):
    walk, places = guide.walk, guide.places
    demo, editor = guide.start_program(DEMO), guide.start_program(EDITOR)
    places.put(demo, "Application Class", (440, 20, 1010, 700))
    places.put(editor, "Application Class", (20, 420, 430, 700))
    write(walk, places.place("", "text", EDITOR))
    in_demo(walk, places)
    places.put(demo, "Combo Boxes", (20, 30, 430, 370), number=1)  # the first window is called after its entry now
    in_editor(walk, places)
    in_combo_boxes(walk, places)
    walk.to((200, 740), "the desktop")
    walk.rests("rest over the desktop")


def write(walk, text):
    """A document, as its user types it."""
    walk.hand.move(*text)
    walk.clicks("a click in an empty text", "Click")
    for line in LINES:
        walk.hand.type(line)
        walk.hand.tap("Return")


def in_demo(walk, places):
    run = places.place("Run", "push button")
    walk.to(run, "a button in the title bar", "Run button")
    walk.asks("what it is", "It is a push button")
    row = {name: places.place(name, "table cell") for name in ("Assistant", "Builder", "Combo Boxes")}
    walk.to(row["Combo Boxes"], "an entry of a list", "Combo Boxes")
    walk.jump(row["Assistant"], "another entry", "Assistant")
    walk.to_and_fro("from entry to entry and back", (row["Builder"], "Builder"), (row["Assistant"], "Assistant"), 30)
    walk.spells(run, "the button spelled", "Capitl R u n")
    walk.jump(places.place("Source", "page tab"), "a tab", "Source")
    walk.jump(row["Assistant"], "an entry again", "Assistant")
    walk.clicks("a click on it", "Click")
    walk.jump(row["Combo Boxes"], "the entry that opens a window", "Combo Boxes")
    walk.clicks("a double click on it", "DoubleClick", double=True)


def in_editor(walk, places):
    """The first word on a line brings the line, every other one itself."""
    place = places.words(EDITOR, "quick", "fox", "jumps", "lazy", "sleeps")
    walk.jump(place["quick"], "the first line of a text", "The quick brown fox")
    walk.jump(place["fox"], "a word of it", '"fox"')
    walk.jump(place["jumps"], "the second line", "jumps over lazy dogs")
    walk.jump(place["lazy"], "a word of it", '"lazy"')
    walk.to_and_fro("from line to line and back", (place["sleeps"], "sleeps in"), (place["lazy"], "over lazy"), 20)


def in_combo_boxes(walk, places):
    """The entries of a list have their places once it is open."""
    walk.to(places.place("Boston", "combo box"), "a combo box", "Boston")
    walk.clicks("a click on it", "Click")
    for name in ("E - J", "K - O"):
        walk.jump(places.place(name, "menu"), "an entry of the open list", name)
    walk.hand.tap("Escape", "Escape")
