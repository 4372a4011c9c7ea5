"""Buttons, labels, boxes, trees, scroll bars, parts of a menu bar, and the task bar with its clock."""

import contextlib
import itertools

from harness import now, wait_until
from listening import EARCON, QUICK, SOON, Listening, again_where_late, note_on

SCROLL_UP, SCROLL_DOWN = ([note_on(EARCON, note, 90) for note in notes]
                          for notes in ((*range(209, 217), 216), (*range(216, 208, -1), 209)))

STEPS = 4  # of a pixel, of a move that is not answered

# What is said of each control of the stand-in, in this order.
CONTROLS = (
    ("ok", "O K button"), ("remember", "Remember me button"), ("ansibutton", "Caf\u00e9 button"),
    ("label", "Your name:, client area"), ("field", "hello"), ("ansifield", "caf\u00e9"),
    ("combo", "First choice, client area"),
    ("simplecombo", "It is eigh open combo box"), ("tabs", "It is eigh  tab control  3    2"),
    ("tree", "It is eigh  tree view  3    2"), ("horizontal", "It is eigh scroll bar"), ("toolbar", "It is eigh Tool- Bar"),
)
# What the clock shows, and how it is told.
CLOCK = ("10:45 PM", "System Clock,  1  0  fourty-  5  P M")
LATER = ("3:05 PM", "System Clock,  3  oh  5  P M")


class Controls(Listening):
    layouts = ("desktop", "controls", "menus", "elements")
    environment = QUICK

    def setUp(self):
        self.leave()

    @again_where_late
    def test_each_control_is_told_in_its_own_way(self):
        since = now()
        for name, said in CONTROLS:
            self.visit(self.target.centre(name), said)
        heard = self.heard.words(since)
        self.assertEqual(heard[heard.index(CONTROLS[0][1]):], [said for _, said in CONTROLS])

    @again_where_late
    def test_a_button_without_a_text_is_silent_and_one_with_a_title_alone_tells_it(self):
        self.visit(self.target.centre("ok"), "O K button")
        self.rest()
        since = now()
        self.hand.move(*self.target.centre("blankbutton"))
        self.rest()
        self.assertEqual((self.heard.words(since), self.earcons(since)), ([], ["NewWindow"]))
        self.target.create("titled", class_="TitledButton", title="Can&cel it", rect=(600, 450, 700, 500))
        self.target.element("titled", 0, name="  ", role=43)  # an object that tells nothing
        self.addCleanup(self.target.destroy, "titled")
        self.visit(self.target.centre("titled"), "Cancel it")

    def test_a_control_that_changes_its_text_is_told_anew(self):
        self.visit(self.target.centre("ok"), "O K button")
        self.addCleanup(self.target.ask, "title", "ok", "&OK")
        self.target.ask("title", "ok", "&Later")
        x, y = self.target.centre("ok")
        self.visit((x + 1, y), "Later button")

    def test_parts_of_a_menu_bar(self):
        """Menus themselves cannot be read from another program under Wine 8; objects with the roles of menus can."""
        for place, said in (((620, 405), "Application menu"), ((690, 405), "Open menu"), ((750, 405), "Bold button")):
            self.visit(place, said)

    @again_where_late
    def test_scroll_bars_are_told_and_sound_only_while_the_button_is_held(self):
        thumb, page_up = (900, 405), (840, 405)
        since = self.visit(thumb, "scroll bar")
        self.visit(page_up, "Page up")
        self.visit(thumb, "scroll bar")
        self.rest()
        self.assertEqual([earcon for earcon in self.earcons(since) if earcon != "NewWindow"], [])
        self.hand.down()
        self.addCleanup(self.hand.up)
        x, y = thumb
        for place, (right, down), sound in (((x + 9, y), (1, 0), SCROLL_UP), ((x - 9, y), (-1, 0), SCROLL_DOWN),
                                            ((x - 9, y - 6), (0, -1), SCROLL_UP), ((x - 9, y + 4), (0, 1), SCROLL_DOWN)):
            with self.subTest(place):
                self.hears_sound(sound, place, right, down)
        self.hears_sound(SCROLL_UP, page_up, 0, -1)

    def hears_sound(self, notes, place, right, down):
        """Moves there and waits for the last note; all of its notes, in their order. Where the bar did not answer in time, as on a
        very busy machine, the move goes on by a pixel."""
        since = now()
        numbers = lambda: [message for message in self.heard.midi(since) if message & 0xFF == 0x90 + EARCON]
        for step in range(STEPS):
            self.hand.move(place[0] + step * right, place[1] + step * down)
            with contextlib.suppress(AssertionError):
                wait_until(lambda: len(numbers()) >= len(notes), SOON / STEPS, "the sound")
                break
        self.assertEqual(numbers()[:len(notes)], notes)

    def test_the_task_bar_and_its_clock(self):
        self.hand.move(*self.target.centre("ok"))
        self.rest()
        time, said = CLOCK
        self.target.ask("title", "clock", time)
        since = self.visit(self.target.centre("clock"), "Tasck-Bar-" + said)
        time, said = LATER
        self.target.ask("title", "clock", time)
        x, y = self.target.centre("clock")
        self.visit((x + 1, y), said)
        self.rest()
        looks = itertools.count()

        def is_silent():
            """In the same minute. On a very busy machine the clock may be late, and is then told anew."""
            again = now()
            self.hand.move(x + 5 + next(looks) % 2, y)
            self.rest()
            return not self.heard.words(again)

        wait_until(is_silent, SOON, lambda: f"the same minute is told once; heard {self.heard.words(since)}")
        self.visit(self.target.centre("tasks"), "Running Applications, client area")
        self.visit((880, 752), "It is eigh Siss- Tray")
        self.assertEqual([words for words in self.heard.words(since) if words.startswith("Tasck")], self.heard.words(since)[:1])
