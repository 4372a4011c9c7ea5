"""The control panel's window as the keyboard, other programs and the eye find it."""

from harness import now, wait_until
from panel_case import SOON, DesktopCase

BUTTONS = ["Voice Sam", "Voice Mike", "Voice Mary", "Speed Up", "Slow Down", "Instrument Preset", "Melody Format"]
RIGHTS = "Copyright Corvane.  You may use it and pass it on, unchanged and free of charge.  "

# Wine calls every control a client; Windows knows better.
CLIENT, PUSH_BUTTON, STATIC_TEXT = 10, 43, 41


class Window(DesktopCase):
    def setUp(self):
        self.pointalk = self.enterContext(self.desktop.pointalk())
        self.start(self.pointalk)

    def test_it_opens_at_the_top_left_with_its_caption(self):
        window = self.panel.window()
        self.assertEqual(window["title"], "Pointalk Control Center")
        self.assertEqual(window["rect"][:2], [0, 0])

    def test_its_controls_have_their_names_for_other_programs(self):
        controls = self.panel.controls()
        *buttons, label, picture = controls
        self.assertEqual([(control["class"], control["title"]) for control in buttons], [("Button", name) for name in BUTTONS])
        self.assertEqual((label["class"], label["title"]), ("Static", RIGHTS))
        self.assertEqual((picture["class"], picture["title"]), ("Static", ""))
        for control in (*buttons, label):
            with self.subTest(control["title"]):
                left, top, right, bottom = control["rect"]
                seen = self.probe.ask("object", (left + right) // 2, (top + bottom) // 2)
                self.assertEqual(seen["name"].get("text"), control["title"])
                role = STATIC_TEXT if control is label else PUSH_BUTTON
                self.assertIn(seen["role"]["number"], (CLIENT, role))

    def test_tab_goes_round_the_buttons_both_ways(self):
        def goes_to(name):
            wait_until(lambda: self.panel.focus()["focus"]["title"] == name, SOON, lambda: f"{name}: {self.panel.focus()}")

        goes_to(BUTTONS[0])
        for name in (*BUTTONS[1:], BUTTONS[0]):
            self.hand.tap("Tab")
            goes_to(name)
        for name in reversed(BUTTONS):
            self.hand.tap("shift+Tab")
            goes_to(name)

    def test_it_comes_back_as_it_was_left(self):
        self.panel.press("Speed Up")
        self.hand.tap("alt+f", "m")
        wait_until(lambda: self.panel.is_minimised(), SOON, "the panel is minimised")
        self.panel.open()
        self.assertEqual(self.panel.focus()["focus"]["title"], "Speed Up")
        self.assertEqual(self.panel.window()["rect"][:2], [0, 0])

    def test_closing_it_ends_the_program_in_order(self):
        since = now()
        self.hand.tap("alt+F4")
        self.pointalk.wait_for_end()
        self.assertEqual(self.pointalk.file("status.txt"), "stopped\r\n")
        # What the window uncovers may still be named; a goodbye belongs to Exit alone.
        self.assertNotIn("Pointalk is ending. Goodbye.", self.pointalk.heard.words(since))
        sounds = [line for line in self.pointalk.heard.lines(since) if line["what"] in ("midi close", "sound")]
        self.assertEqual([line["what"] for line in sounds], ["midi close", "sound"])
        self.assertEqual((sounds[1]["name"], sounds[1]["module"], sounds[1]["flags"]), ("1", 1, 11))

    def test_a_click_on_the_window_itself_does_nothing(self):
        left, top, right, bottom = self.panel.window()["rect"]
        place = (right - 20, bottom - 30)
        self.hand.move(*place)
        wait_until(lambda: self.probe.ask("at", *place)["class"] == "PointalkPanel", SOON, "the panel under the pointer")
        since = now()
        self.hand.click()
        self.pointalk.heard.wait_words("Click", SOON, since)
        self.assertEqual(self.panel.focus()["focus"]["title"], BUTTONS[0])
        self.assertTrue(self.pointalk.running())
