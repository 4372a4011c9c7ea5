"""What is said when buttons and keys are pressed: clicks, the kind of an object, the top window, spelling."""

import contextlib
import itertools
import time

from harness import now, wait_until
from listening import QUICK, SOON, Listening

AND_WAIT = 2  # the flags of an utterance that is waited for
ASYNC = 3

ADDRESS, DOCUMENTS, OK, PAGE_UP, OWN_KIND = (840, 380), (900, 380), (960, 380), (840, 405), (960, 405)
TURNS = 10
APART = 0.5  # seconds, more than may lie between the two of a double click


class ClicksAndKeys(Listening):
    layouts = ("desktop", "controls", "elements")
    environment = QUICK

    def clicks_told(self, *steps):
        """Clicks one after the other, each when the one before was told; returns how all were told."""
        start = now()
        for click, button, text in steps:
            since = now()
            click(button)
            self.heard.wait_words(text, SOON, since)
        return [(flags, text) for flags, text in self.speech(start) if text.endswith("Click")]

    def test_each_button_has_its_name(self):
        texts = {"left": "Click", "right": "Right Click", "middle": "Middle Click"}
        order = ("left", "right", "middle", "right")
        self.assertEqual(self.clicks_told(*((self.hand.click, button, texts[button]) for button in order)),
                         [(ASYNC, texts[button]) for button in order])

    def double_click_told(self, button, text):
        """How a double click is told. On a busy machine its two clicks may come too far apart and be told as two; then it is
        made once more."""
        two_clicks = [text.replace("DoubleClick", "Click")] * 2
        for _ in range(TURNS):
            since = now()
            told = lambda: [(flags, words) for flags, words in self.speech(since) if words.endswith("Click")]
            self.hand.double_click(button)
            wait_until(lambda: len(told()) == 2 or (told() and told()[0][1] == text), SOON, lambda: f"{text}; heard {told()}")
            time.sleep(APART)  # or the next click would belong to these; and what else is told of them has come
            if [words for _, words in told()] != two_clicks:
                break
        return told()

    def test_a_double_click_is_spoken_as_that_alone(self):
        for button, flags, text in (("left", AND_WAIT, "DoubleClick"), ("right", ASYNC, "Right DoubleClick"),
                                    ("middle", ASYNC, "Middle DoubleClick")):
            self.assertEqual(self.double_click_told(button, text), [(flags, text)])
        self.assertEqual(self.clicks_told((self.hand.click, "right", "Right Click")), [(ASYNC, "Right Click")])

    def test_two_clicks_far_apart_are_two_clicks(self):
        self.leave()
        since = now()
        self.hand.click()
        self.heard.wait_words("Click", SOON, since)
        time.sleep(APART)
        since = now()
        self.hand.click()
        self.heard.wait_words("Click", SOON, since)

    def press_control(self, place, *answers):
        """Presses Control over a place that was just named, until that is answered so; returns the time just before. A pointer
        that already rests, as on a busy machine, answers at the next move; over an object that is late Control tells the
        class, and is pressed once more. It is held from one turn to the next, for the window that keys are aimed at then may
        lose them again."""
        self.addCleanup(self.hand.release, "ctrl")
        begin = since = now()
        self.hand.press("ctrl")
        for _ in range(TURNS):
            looks = itertools.count(1)

            def told():
                look = next(looks)
                if look % 100 == 0:
                    self.hand.move(place[0] + look // 100 % 2, place[1])
                return [text for flags, text in self.speech(since) if flags == AND_WAIT]

            with contextlib.suppress(AssertionError):
                wait_until(lambda: len(told()) >= len(answers), SOON / TURNS, "an answer")
            if told()[:len(answers)] == list(answers):
                return since
            since = now()
            self.hand.press_again()
        self.fail(f"{answers}; heard {self.speech(begin)}; keys go to {self.hand.where_keys_go()}")

    def assert_told(self, place, name, *answers):
        """What Control says of what is named so."""
        self.leave()
        self.visit(place, name)
        self.press_control(place, *answers)
        self.hand.release("ctrl")

    def test_control_says_the_kind_and_the_description(self):
        self.assert_told(ADDRESS, "hello", "It is a text. ", "Where to")
        self.assert_told(OK, "O K button", "It is a push button. ")
        self.assert_told(PAGE_UP, "Page up", "It is a scroll bar. ")
        self.assert_told(OWN_KIND, "Own kind", "It is a unknown object. ")

    def test_a_description_with_menu_in_it_is_not_said(self):
        self.target.element("elements", 1, description="A Menu of places")
        self.addCleanup(self.target.element, "elements", 1, description="Where to")
        self.assert_told(ADDRESS, "hello", "It is a text. ")
        self.visit(OK, "O K button")
        self.assertNotIn("A Menu of places", self.heard.words())

    def test_a_description_without_an_end_is_said_as_far_as_anyone_listens(self):
        self.target.element("elements", 1, description="on and " * 50_000)
        self.addCleanup(self.target.element, "elements", 1, description="Where to")
        self.assert_told(ADDRESS, "hello", "It is a text. ", ("on and " * 50_000)[:2000])

    def test_a_combo_box_is_known_by_its_class(self):
        self.assert_told(self.target.centre("combo"), "First choice, client area", "It is a combo box")

    def describe_again(self, place):
        """Moves over the elements until their window was asked."""
        self.target.ask("reset")
        looks = itertools.count()

        def asked():
            look = next(looks)
            if look % 100 == 0:  # a tick asks for no object whose last answer is still out, and another move is needed
                self.hand.move(place[0], place[1] + look // 100 % 2)
            return self.target.counts("elements")

        wait_until(asked, SOON, "a question")

    def test_control_is_asked_once_for_as_long_as_it_is_held(self):
        self.leave()
        self.visit(OK, "O K button")
        since = self.press_control(OK, "It is a push button. ")
        for step in range(5):
            self.describe_again((OK[0] + step % 2, OK[1]))
        self.hand.release("ctrl")
        self.assertEqual(len([text for text in self.heard.words(since) if text.startswith("It is a")]), 1)

    def test_control_says_nothing_after_a_rest_and_something_after_the_least_move(self):
        self.leave()
        self.visit(OK, "O K button")
        self.rest()
        since = now()
        with self.hand.held("ctrl"):
            self.hand.click("middle")  # is told later than Control would be answered
            self.heard.wait_words("Middle Click", SOON, since)
        self.assertEqual(self.heard.words(since), ["Middle Click"])
        self.describe_again((OK[0] + 1, OK[1]))
        self.press_control(OK, "It is a push button. ")

    def test_control_with_shift_names_the_top_window_even_at_rest(self):
        for place, name in (((1000, 600), "DeskTop"), (self.target.centre("tasks"), "TaskBar"), (OK, "")):
            with self.subTest(name):
                self.point(place)
                self.rest()
                since = now()
                with self.hand.held("shift", "ctrl"):
                    self.heard.wait_words("Top Window is " + name, SOON, since)
                self.assertEqual(self.speech(since), [(ASYNC, "dthoghh"), (AND_WAIT, "Top Window is " + name)])

    def test_shift_spells(self):
        self.leave()
        self.hand.press("shift")
        self.addCleanup(self.hand.release, "shift")
        for place, words in ((OK, "Capitl O Capitl K   b u t t o n"), (DOCUMENTS, "2"),
                             (self.target.centre("remember"), "Capitl R e m e m b e r   m e   b u t t o n")):
            with self.subTest(words):
                self.visit(place, words)
        self.hand.release("shift")
        self.visit(OK, "O K button")
