"""The desktop that is measured on: pointalk and Orca, each with a speech-dispatcher of its own, and programs of GTK and Qt."""

import json
import types

from desktop import Desktop
from desktop_heard import DesktopHeard
from harness import wait_until
from places import Places, centre
from recorded_hand import RecordedHand
from tones import SCREEN

START_LIMIT = 60  # seconds
# What the pointer is put onto: things that both programs have words for.
ROLES = {"push button", "toggle button", "check box", "radio button", "page tab", "table cell", "list item", "tree item",
         "label", "combo box", "menu"}
SMALLEST, LONGEST_NAME = 8, 60
PROGRAMS = (  # one of GTK 3 and one of Qt 6: name, the title of its window, and where that is put
    ("gtk3-demo", "Application Class", (10, 20, 500, 730)),
    ("qt6ct", "Qt6 Configuration Tool", (530, 20, 1015, 730)),
)
FREE = (250, 760)  # a place of the bare desktop


class Speaker:
    """One of the two programs, and what it said."""

    def __init__(self, name, process, heard):
        self.name, self.process, self.heard = name, process, heard

    def first_naming(self, name, since):
        """The first line from then on that has the name's words in it, or none."""
        return next((line for line in self.heard.lines(since) if "text" in line and names(name, line["text"])), None)


def letters(text):
    return "".join(letter for letter in text.lower() if letter.isalnum())


def names(name, text):
    """Whether each longer word of a name is in a text, however it is written there for the ear."""
    spoken = letters(text)
    return all(letters(word) in spoken or letters(word.replace(".", "dot")) in spoken for word in name.split() if len(word) > 1)


class World(Desktop):
    """Starts everything that is measured, and ends it."""

    def __init__(self, folder, build):
        super().__init__(folder, size=f"{SCREEN[0]}x{SCREEN[1]}")
        self.build = build
        self.seen = []  # the things, when they were last looked for

    def __enter__(self):
        super().__enter__()
        try:
            self.start_all()
        except BaseException:
            self.close()
            raise
        return self

    def start_all(self):
        self.hand = self.enter_context(RecordedHand(self.env))
        self.hand.move(*FREE)
        self.places = Places(self)
        self.start_voice()
        self.start_sound()
        pointalk = self.start_pointalk(self.build / "pointalk", preload=self.build / "libpointalk_note_recorder.so",
                                       POINTALK_SOUND="1")
        self.speakers = (Speaker("pointalk", pointalk, DesktopHeard(self)), self.start_orca())
        self.shown = {}
        for name, title, rect in PROGRAMS:
            self.shown[name] = self.start(name)
            self.places.put(self.shown[name], title, rect)
        self.things = wait_until(self.find_things, START_LIMIT, "every program tells of its things")

    def start_orca(self):
        folder, log, socket = self.folder / "orca", self.folder / "orca.jsonl", self.folder / "orca.sock"
        folder.mkdir()
        general = {"enableMouseReview": True, "startingProfile": ["Default", "default"]}
        settings = {"general": general, "pronunciations": {}, "keybindings": {},
                    "profiles": {"default": {"profile": ["Default", "default"], "pronunciations": {}, "keybindings": {}}}}
        (folder / "user-settings.conf").write_text(json.dumps(settings), encoding="utf-8")
        self.start_recorder(socket, log)
        heard = DesktopHeard(types.SimpleNamespace(speech_log=log, notes_log=self.folder / "no-notes.txt"))
        orca = self.start("orca", "--user-prefs", folder, "--disable", "braille", SPEECHD_ADDRESS=f"unix_socket:{socket}")
        wait_until(lambda: any("text" in line for line in heard.lines()), START_LIMIT, "Orca's greeting")
        return Speaker("Orca", orca, heard)

    def find_things(self):
        """What the pointer is put onto, (program, name, place): each name once, and none where a program has no things yet or
        its window still moves."""
        found = {}
        for thing in self.places.look():
            x, y = centre(thing["rect"])
            if is_fit(thing) and self.places.at(x, y) is thing:
                found.setdefault(letters(thing["name"]), (thing["program"], thing["name"], (x, y)))
        before, self.seen = self.seen, list(found.values())
        everywhere = {program for program, _, _ in self.seen} == {program[0] for program in PROGRAMS}
        return self.seen if everywhere and self.seen == before else []


def is_fit(thing):
    """Whether it is of a kind and a size that can be pointed at, in its program's window."""
    left, top, right, bottom = thing["rect"]
    first, upper, last, lower = next((rect for name, _, rect in PROGRAMS if name == thing["program"]), (0, 0, 0, 0))
    return (thing["role"] in ROLES and letters(thing["name"]) and len(thing["name"]) <= LONGEST_NAME
            and right - left >= SMALLEST and bottom - top >= SMALLEST
            and left >= first and top >= upper and right <= last and bottom <= lower)
