"""Notepad, WordPad, the registry editor and Wine's configuration."""

from places import centre, inside

WORDPAD = r"C:\Program Files\Windows NT\Accessories\wordpad.exe"
TEXT = "The quick brown fox\rjumps over lazy dogs\rand sleeps in the sun\r"


def visit(guide):
    places = guide.places
    document = guide.make_file("fox.txt", TEXT.replace("\r", "\r\n"))
    guide.start_program("notepad")
    guide.start_program(WORDPAD, document)
    guide.start_program("regedit")
    guide.start_program("winecfg")
    notepad = places.put(places.top_window("Notepad"), (10, 20, 500, 220))
    wordpad = places.put(places.top_window("WORDPADTOP", "fox.txt"), (510, 20, 1010, 330))
    regedit = places.put(places.top_window("RegEdit_RegEdit"), (10, 240, 500, 560))
    winecfg = places.put(places.top_window("#32770"), (560, 300, 1000, 760))

    in_notepad(guide.walk, places, notepad)
    in_wordpad(guide.walk, places, wordpad)
    in_regedit(guide.walk, places, regedit)
    in_winecfg(guide.walk, places, winecfg)
    guide.walk.to((300, 650), "the desktop", "Wine desktop")
    guide.walk.rests("rest over the desktop")


def in_notepad(walk, places, notepad):
    walk.to(inside(notepad, 120, 12), "notepad's title", "notepad")
    walk.clicks("a click on the title", "Click")
    walk.to(centre(places.child(notepad, "Edit")), "notepad's text", "edit")
    walk.clicks("a double click in the text", "DoubleClick", double=True)
    walk.asks("what it is", "It is a text")
    walk.rests("rest in the text")


def in_wordpad(walk, places, wordpad):
    """The first word on a line brings the line, every other one itself."""
    text = places.child(wordpad, "RichEdit20W")
    place = {word: places.word(text, TEXT, word) for word in ("quick", "fox", "jumps", "lazy", "sleeps")}
    walk.to(place["quick"], "WordPad's first line", "The quick brown fox")
    walk.jump(place["fox"], "a word of it", '"fox"')
    walk.jump(place["jumps"], "the second line", "jumps over lazy dogs")
    walk.jump(place["lazy"], "a word of it", '"lazy"')
    walk.jump(place["sleeps"], "the third line", "and sleeps in")
    walk.to_and_fro("from line to line and back", (place["quick"], "quick brown"), (place["lazy"], "over lazy"), 20)
    walk.to(inside(places.child(wordpad, "ToolbarWindow32"), 30, 12), "WordPad's tool bar", "Tool- Bar")


def in_regedit(walk, places, regedit):
    tree = places.child(regedit, "SysTreeView32")
    walk.to(inside(tree, 80, 42), "the registry's tree", "Tree View")
    walk.clicks("a click on a key", "Click")
    default = places.item(places.child(regedit, "SysListView32"), "(Default)")
    walk.to(default, "the registry's list", "regedit child window,", "( Default)", earcon="another icon")
    walk.asks("the top window", "Top Window is", shift=True)


def in_winecfg(walk, places, winecfg):
    walk.to(inside(places.child(winecfg, "SysTabControl32"), 60, 10), "the tabs", "tab control")
    cancel = centre(places.child(winecfg, "Button", "Cancel"))
    ok = centre(places.child(winecfg, "Button", "OK"))
    walk.to(cancel, "a button", "Cancel button")
    walk.asks("what the button is", "It is a client")
    walk.to((cancel[0] - 80, cancel[1] - 100), "away from the button", "button")
    walk.spells(cancel, "the button spelled", "Capitl C eigh n c e l")
    walk.to_and_fro("from button to button and back", (ok, "O K button"), (cancel, "Cancel button"), 30)
