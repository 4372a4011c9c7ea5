"""A trace: what Pointalk writes into it while it is worked with, and that no text of another program is among it."""

import unittest

from harness import Desktop, Panel, command_for, wait_until
from listening import GREETING, QUICK, SETTINGS, SOON

NAME, TITLE, CLASS, VALUE = "Kelpfin", "Quillback", "Harbourmaster", "Sandtrap"
HUNG_NAME, HUNG_CLASS = "Wolfeel", "Lumpsucker"
TEXTS = (NAME, TITLE, CLASS, VALUE, HUNG_CLASS)
PLACE, HUNG_PLACE = (200, 500), (500, 500)


class Tracing(unittest.TestCase):
    def setUp(self):
        self.desktop = self.enterContext(Desktop(private=True))
        self.hand = self.enterContext(self.desktop.hand())
        self.target = self.enterContext(self.desktop.target())
        self.target.create("window", class_=CLASS, title=TITLE, rect=(100, 440, 300, 560))
        self.target.element("window", 0, name=NAME, role=43, value=VALUE)
        self.target.create("hung", class_=HUNG_CLASS, title=HUNG_NAME, rect=(400, 440, 600, 560), thread="hung")
        self.target.element("hung", 0, name=HUNG_NAME, role=43)

    def trace(self, *switches):
        """A run with these switches that names the window, waits for the hung one and is ended by its menu; what it wrote."""
        with self.desktop.pointalk(SETTINGS) as pointalk, self.desktop.probe() as probe:
            program = pointalk.folder / "Pointalk.exe"
            self.hand.move(1000, 600)
            pointalk.start(command=command_for(program, *switches), **QUICK)
            pointalk.wait_running()
            self.visit(pointalk, PLACE, lambda: any(VALUE in text for text in pointalk.heard.words()))
            if switches:
                self.target.ask("hang", "hung")
                # On a busy machine the first window may be late as well.
                awaited = HUNG_CLASS if "--trace-texts" in switches else "timed out"
                self.visit(pointalk, HUNG_PLACE, lambda: awaited in (pointalk.file("trace.txt") or ""))
                self.target.ask("wake", "hung")
            panel = Panel(probe, self.hand)
            panel.open()
            panel.quit(pointalk)
            return pointalk.file("trace.txt")

    def visit(self, pointalk, place, reached):
        looks = iter(range(1_000_000))

        def there():
            look = next(looks)
            if look % 100 == 0:
                self.hand.move(place[0] + look // 100 % 2, place[1])
            return reached()

        wait_until(there, SOON, lambda: f"{place}; {pointalk.heard.lines()[-8:]}; {pointalk.file('trace.txt')}")

    def test_it_tells_when_but_not_what(self):
        trace = self.trace("--trace", "trace.txt")
        for part in ("SAPI 5 voice created", "SAPI 5 voices: ", "MIDI port opened", "mouse hook on", "box answered by 6",
                     "timed out", "the program ends"):
            self.assertIn(part, trace)
        named = [line for line in trace.splitlines() if f"name {len(NAME)} characters" in line]
        self.assertTrue(named, trace)
        # A busy machine may answer in a later tick than that of the move.
        steps = [" asked ", " answered (", " handed to the voice (", " taken ", " done "]
        self.assertTrue(any(self.holds(line, steps) for line in named), named)
        steps = ["tick: noticed ", " note sent (", " asked "]
        self.assertTrue(any(self.holds(line, steps) for line in trace.splitlines()), trace)
        for text in (*TEXTS, HUNG_NAME, GREETING):
            self.assertNotIn(text.lower(), trace.lower())

    def holds(self, line, steps):
        """Whether the steps stand in the line, in that order."""
        places = [line.find(step) for step in steps]
        return -1 not in places and places == sorted(places)

    def test_it_tells_texts_when_it_is_asked_to(self):
        trace = self.trace("--trace", "trace.txt", "--trace-texts")
        for text in (NAME, CLASS, VALUE, HUNG_CLASS, GREETING):
            self.assertIn(text, trace)

    def test_without_the_switch_there_is_none(self):
        self.assertIsNone(self.trace())


if __name__ == "__main__":
    unittest.main()
