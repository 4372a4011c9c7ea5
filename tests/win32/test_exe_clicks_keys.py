"""What is said when buttons and keys are pressed: clicks, the kind of an object, the top window, spelling."""

import time
import unittest

from harness import now
from listening import QUICK, SOON, Listening, for_the_ear

AND_WAIT = 2  # the flags of an utterance that is waited for
ASYNC = 3

ADDRESS, DOCUMENTS, OK, PAGE_UP, OWN_KIND = (840, 380), (900, 380), (960, 380), (840, 405), (960, 405)
SETTLES = 0.2  # seconds in which a click may become a double click


class ClicksAndKeys(Listening):
    layouts = ("desktop", "controls", "elements")
    environment = QUICK

    def hears(self, click, text, flags):
        """No other click than that one, and not before it has settled."""
        since = now()
        click()
        self.heard.wait_words(text, SOON, since)
        time.sleep(2 * SETTLES)
        spoken = [line for line in self.heard.lines(since) if line.get("text", "").endswith("Click")]
        self.assertEqual([(line["flags"], line["text"]) for line in spoken], [(flags, text)])
        self.assertGreater(spoken[0]["t"] - since, SETTLES * 1e6)

    def test_each_button_has_its_name(self):
        for button, text in (("left", "Click"), ("right", "Right Click"), ("middle", "Middle Click")):
            with self.subTest(button):
                self.hears(lambda: self.hand.click(button), text, ASYNC)

    def test_a_double_click_is_spoken_as_that_alone(self):
        for button, text, flags in (("left", "DoubleClick", AND_WAIT), ("right", "Right DoubleClick", ASYNC),
                                    ("middle", "Middle DoubleClick", ASYNC)):
            with self.subTest(button):
                self.hears(lambda: self.hand.double_click(button), text, flags)

    def test_two_clicks_far_apart_are_two_clicks(self):
        self.leave()
        since = now()
        self.hand.click()
        self.heard.wait_words("Click", SOON, since)
        time.sleep(0.3)
        since = now()
        self.hand.click()
        self.heard.wait_words("Click", SOON, since)

    def asks(self, place, name):
        """What Control says of what is named so."""
        self.leave()
        self.visit(place, name)
        since = now()
        with self.hand.held("ctrl"):
            self.heard.wait(lambda line: line.get("text", "").startswith("It is a"), SOON, since)
            time.sleep(0.3)
        return self.speech(since)

    def test_control_says_the_kind_and_the_description(self):
        self.assertEqual(self.asks(ADDRESS, "hello")[:2], [(AND_WAIT, "It is a text. "), (AND_WAIT, "Where to")])
        self.assertEqual(self.asks(OK, "O K button")[:1], [(AND_WAIT, "It is a push button. ")])
        self.assertEqual(self.asks(PAGE_UP, "Page up")[:1], [(AND_WAIT, "It is a scroll bar. ")])
        self.assertEqual(self.asks(OWN_KIND, "Own kind")[:1], [(AND_WAIT, "It is a unknown object. ")])

    def test_a_description_with_menu_in_it_is_not_said(self):
        self.target.element("elements", 1, description="A Menu of places")
        self.addCleanup(self.target.element, "elements", 1, description="Where to")
        self.assertEqual(self.asks(ADDRESS, "hello")[:1], [(AND_WAIT, "It is a text. ")])
        self.assertNotIn("A Menu of places", self.heard.words())

    def test_a_combo_box_is_known_by_its_class(self):
        asked = self.asks(self.target.centre("combo"), "First choice, client area")
        self.assertEqual(asked[:1], [(AND_WAIT, "It is a combo box")])

    def test_control_is_asked_once_for_as_long_as_it_is_held(self):
        self.leave()
        self.visit(OK, "O K button")
        since = now()
        self.hand.press("ctrl")
        self.heard.wait_words("It is a push button. ", SOON, since)
        for step in range(5):  # ticks that describe
            self.hand.move(OK[0] + step % 2, OK[1])
            time.sleep(0.1)
        self.hand.release("ctrl")
        self.assertEqual(len([text for text in self.heard.words(since) if text.startswith("It is a")]), 1)

    def test_control_says_nothing_after_a_rest_and_something_after_the_least_move(self):
        self.leave()
        self.visit(OK, "O K button")
        self.rest()
        since = now()
        with self.hand.held("ctrl"):
            time.sleep(0.4)
        self.assertEqual(self.heard.words(since), [])
        self.hand.move(OK[0] + 1, OK[1])
        time.sleep(0.1)
        with self.hand.held("ctrl"):
            self.heard.wait_words("It is a push button. ", SOON, since)

    def test_control_with_shift_names_the_top_window_even_at_rest(self):
        for place, name in (((1000, 600), "DeskTop"), (self.target.centre("tasks"), "TaskBar"), (OK, "")):
            with self.subTest(name):
                self.hand.move(*place)
                self.rest()
                since = now()
                with self.hand.held("shift", "ctrl"):
                    self.heard.wait_words("Top Window is " + name, SOON, since)
                self.assertEqual(self.speech(since), [(ASYNC, "dthoghh"), (AND_WAIT, "Top Window is " + name)])

    def test_shift_spells(self):
        self.leave()
        self.hand.press("shift")
        self.addCleanup(self.hand.release, "shift")
        for place, text in ((OK, "OK button"), (self.target.centre("remember"), "Remember me button"), (DOCUMENTS, "2")):
            with self.subTest(text):
                self.visit(place, for_the_ear(text, spelled=True))
        self.hand.release("shift")
        self.visit(OK, for_the_ear("OK button"))


if __name__ == "__main__":
    unittest.main()
