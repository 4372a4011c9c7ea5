"""The harness: hand, ear and desktop do what tests rely on."""

import json
import pathlib
import tempfile
import threading
import unittest
from unittest import mock

from harness import Desktop, Heard, names_desktop, now, visit, wait_until

CODES = {"shift": 16, "ctrl": 17, "alt": 18}
BUTTON_CODES = {"left": 1, "right": 2, "middle": 4}
LIMIT = 60  # seconds


class Hands(unittest.TestCase):
    """On a desktop of its own, so that the making of one is tried as well."""

    @classmethod
    def setUpClass(cls):
        cls.desktop = cls.enterClassContext(Desktop(private=True))
        cls.target = cls.enterClassContext(cls.desktop.target("controls"))
        cls.probe = cls.enterClassContext(cls.desktop.probe())
        cls.hand = cls.enterClassContext(cls.desktop.hand())

    def is_down(self, code):
        return self.probe.ask("key", code)["down"]

    def test_the_pointer_goes_where_it_is_told(self):
        for place in ((700, 700), (3, 5), (1000, 200)):
            self.hand.move(*place)
            wait_until(lambda: self.probe.ask("pointer") == {"x": place[0], "y": place[1]}, LIMIT, f"the pointer at {place}")
        self.hand.glide((100, 700), (300, 600), steps=4, pause=0)
        wait_until(lambda: self.probe.ask("pointer") == {"x": 300, "y": 600}, LIMIT, "the pointer at its end")

    def test_keys_and_buttons_go_down_and_up(self):
        self.hand.move(800, 700)
        for name, code in CODES.items():
            self.hand.press(name)
            wait_until(lambda: self.is_down(code), LIMIT, f"{name} down")
            self.hand.release(name)
            wait_until(lambda: not self.is_down(code), LIMIT, f"{name} up")
        for name, code in BUTTON_CODES.items():
            self.hand.down(name)
            wait_until(lambda: self.is_down(code), LIMIT, f"{name} down")
            self.hand.up(name)
            wait_until(lambda: not self.is_down(code), LIMIT, f"{name} up")

    def test_keys_that_are_pressed_again_go_to_the_desktop(self):
        self.hand.move(*self.target.centre("field"))
        self.hand.click()
        with self.hand.held("shift"):
            self.hand.press_again()
            wait_until(lambda: names_desktop(self.hand.where_keys_go()), LIMIT, self.hand.where_keys_go)
            wait_until(lambda: self.is_down(CODES["shift"]), LIMIT, "shift down")

    def test_what_is_typed_arrives_in_the_field_that_was_clicked(self):
        self.hand.move(*self.target.centre("field"))
        self.hand.click()
        self.hand.tap("End")
        self.hand.type("x1 y")
        text = lambda: self.probe.ask("text", self.target.handle("field"), 100)["text"]
        wait_until(lambda: text() == "hellox1 y", LIMIT, text)

    def test_a_picture_is_taken(self):
        path = self.desktop.folder / "screen.png"
        self.desktop.screenshot(path)
        self.assertEqual(path.read_bytes()[:4], b"\x89PNG")


class Listening(unittest.TestCase):
    """Pointalk itself, from its greeting to its end."""

    @classmethod
    def setUpClass(cls):
        cls.desktop = cls.enterClassContext(Desktop(private=True))
        cls.target = cls.enterClassContext(cls.desktop.target("elements"))
        cls.hand = cls.enterClassContext(cls.desktop.hand())

    def test_a_run_is_heard_and_killed_and_may_follow_another(self):
        self.hand.move(700, 700)
        with self.desktop.pointalk() as pointalk:
            for run in ("first", "second"):
                with self.subTest(run):
                    began = now()
                    pointalk.start()
                    if run == "first":
                        pointalk.wait_ready()
                        visit(self.hand, pointalk.heard, (960, 380), lambda text: text == "O K button", "the button", LIMIT)
                    else:  # which asks whether the first one crashed
                        pointalk.heard.wait(lambda line: line["what"].endswith("speak"), LIMIT, began)
                    self.assertTrue(pointalk.running())
                    pointalk.kill()
                    self.assertFalse(pointalk.running())
                    self.assertEqual(pointalk.file("status.txt"), "running\r\n")
            self.assertIsNone(pointalk.file("NoSuchFile.txt"))


class Ears(unittest.TestCase):
    def setUp(self):
        self.path = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory())) / "heard.jsonl"
        self.heard = Heard(self.path)

    def write(self, *lines):
        with self.path.open("ab") as file:
            file.write("".join(json.dumps(line) + "\n" for line in lines).encode())

    def test_lines_come_in_the_order_of_their_times(self):
        self.assertEqual(self.heard.lines(), [])
        self.write({"t": 30, "what": "midi", "value": "0x5"}, {"t": 10, "what": "sapi5 speak", "flags": 3, "text": "one"})
        self.write({"t": 20, "what": "sapi4 speak", "text": " "}, {"t": 40, "what": "midi", "value": "0x513b9e"})
        self.assertEqual([line["t"] for line in self.heard.lines()], [10, 20, 30, 40])
        self.assertEqual(self.heard.midi(since=31), [0x513b9e])
        self.assertEqual(self.heard.words(), ["one"])

    def test_half_a_line_waits_for_its_other_half(self):
        self.path.write_bytes(b'{"t":1,"what":"mi')
        self.assertEqual(self.heard.lines(), [])
        with self.path.open("ab") as file:
            file.write(b'di","value":"0x1"}\n')
        self.assertEqual(self.heard.midi(), [1])

    def test_waiting_ends_with_the_words_or_with_the_limit(self):
        start = now()
        late = threading.Timer(0.2, self.write, [{"t": start + 5, "what": "sapi5 speak", "flags": 3, "text": "OK button"}])
        late.start()
        self.addCleanup(late.join)
        self.assertEqual(self.heard.wait_words("OK button", LIMIT, start)["t"], start + 5)
        with self.assertRaisesRegex(AssertionError, "not within 0.1 s: 'Cancel'"):
            self.heard.wait_words("Cancel", 0.1, start)

    def test_silence_is_the_absence_of_lines_from_now_on(self):
        self.write({"t": 1, "what": "midi", "value": "0x1"})
        self.assertEqual(self.heard.stays_silent(0.05), [])
        meanwhile = lambda _: self.write({"t": now(), "what": "midi", "value": "0x2"})
        with mock.patch("time.sleep", meanwhile):
            self.assertEqual([line["value"] for line in self.heard.stays_silent(1)], ["0x2"])
