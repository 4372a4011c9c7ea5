"""Programs that hang: the tones go on over them, a hang costs one question, and the next healthy window is named while they
still hang. And what a resting pointer asks of others: nothing."""

import contextlib
import os
import signal

from harness import now, wait_until
from listening import QUICK, SOON, Listening, notes_at

OK, PAGE_UP = (960, 380), (840, 405)
HUNG_RECT = (100, 440, 520, 740)
OVER_HUNG = [(x, y) for y in (460, 540, 620, 700) for x in (120, 230, 340, 450)]  # each with notes of its own
LAST_NAME = "Back again"


class Hanging(Listening):
    layouts = ("elements", "controls")
    environment = QUICK

    def setUp(self):
        self.leave()

    def make_one(self):
        """A window whose thread, or program, is going to hang until the test ends that."""
        self.other = self.enterContext(self.desktop.target())
        self.other.create("hung", class_="HungOne", title="Hung title", rect=HUNG_RECT)
        self.other.element("hung", 0, name=LAST_NAME, role=41)

    def make_row(self, count):
        """Small windows that hang, each by itself, and the places over them."""
        other = self.enterContext(self.desktop.target())
        for number in range(count):
            name = f"hung{number}"
            other.create(name, class_="HungOne", rect=(100 + 110 * number, 450, 190 + 110 * number, 500), thread=name)
            other.element(name, 0, name="Never heard", role=41)
            other.ask("hang", name)
        return other, [(145 + 110 * number, 470) for number in range(count)]

    def name_healthy_ones(self):
        """Comes to a healthy window from the hung one, again and again."""
        for place, words in ((OK, "O K button"), (PAGE_UP, "Page up")) * 2:
            self.point(OVER_HUNG[0])
            self.visit(place, words)

    def assert_never_in_the_way(self):
        """More often than questions may be left behind; were it asked each time, the healthy ones could not be named."""
        since = now()
        for place in OVER_HUNG:
            self.point(place)
        self.name_healthy_ones()
        self.assertNotIn(LAST_NAME, self.heard.words(since))

    def test_a_window_that_hangs(self):
        self.make_one()
        self.other.ask("hang", "hung")
        self.assert_never_in_the_way()

    def test_a_program_that_stands_still(self):
        self.make_one()
        os.kill(self.other.process.pid, signal.SIGSTOP)
        self.addCleanup(os.kill, self.other.process.pid, signal.SIGCONT)
        self.assert_never_in_the_way()

    def test_an_object_that_does_not_answer_although_its_window_did(self):
        self.make_one()
        self.other.rule("hung", "accValue", "hold")
        self.assert_never_in_the_way()

    def test_the_tones_of_a_place_come_before_anything_is_asked_there(self):
        self.make_one()
        for message in ("WM_GETOBJECT", "accValue"):
            self.other.rule("hung", message, "hold")
        self.hand.move(*OVER_HUNG[0])
        wait_until(lambda: self.other.counts("hung"), SOON, "a question", pause=0)
        self.assertEqual(self.last_notes(), notes_at(*OVER_HUNG[0]))

    def test_a_window_that_answers_again_is_asked_again(self):
        self.make_one()
        self.other.ask("hang", "hung")
        self.visit(OVER_HUNG[0], "It is eigh hung one")
        self.other.ask("wake", "hung")
        self.visit(OVER_HUNG[1], LAST_NAME)

    def test_after_the_first_crossing_of_a_hung_window_the_next_one_is_named(self):
        _, places = self.make_row(3)
        for place in places:
            self.leave()
            self.point(place)
            self.visit(OK, "O K button")

    def test_more_windows_hang_than_are_waited_for(self):
        other, places = self.make_row(5)
        for place in places:
            self.point(place)
        since = now()
        self.hand.move(805, 350)  # a title, which needs no accessible object
        self.heard.wait_words("Elements", SOON, since)
        other.close()
        self.hand.move(*self.away)
        self.visit(OK, "O K button")

    def hear_a_tick(self):
        """Over a resting pointer, by the keys for the top window. No tick may have seen them up since they were pressed last;
        they are pressed again then."""
        since = now()

        def answered():
            with self.hand.held("shift", "ctrl"), contextlib.suppress(AssertionError):
                return self.heard.wait(lambda line: "Top Window is" in line.get("text", ""), SOON / 50, since)

        wait_until(answered, SOON, "the top window", pause=0.1)

    def test_a_resting_tick_asks_nothing_of_another_program(self):
        for place, words in ((OK, "O K button"), (self.target.centre("field"), "hello"),
                             (self.target.centre("details"), "Controls, Budget dot xls")):
            with self.subTest(words):
                self.leave()
                self.visit(place, words)
                self.assertTrue(self.target.all_counts())
                self.rest()
                self.hear_a_tick()  # the one that silenced the tones may still be asking
                self.target.ask("reset")
                since = now()
                self.hear_a_tick()
                self.assertEqual(self.target.all_counts(), {})
                self.assertEqual([message for message in self.heard.midi(since) if message & 0xF0 == 0x90], [])
