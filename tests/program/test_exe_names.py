"""What objects are called: every role, every way of failing, names that no honest program gives, and queries that die."""

import itertools

from harness import KILLED_AT_ITS_END, now, wait_until
from listening import QUICK, SOON, Listening

LONGEST = 133  # characters of a name that are said

# Names as objects give them, and what is said of them.
HOSTILE = (
    ("ab" * 50_000, ("ab" * 50_000)[:LONGEST]),
    ("one\r\ntwo\nthree", "one\r"),
    ("\x01\x07\x1f", "\x01\x07\x1f"),
    ("\u0418\u043c\u044f \u00c4\u00d6\u00df", "\u0418\u043c\u044f \u00c4 \u00d6\u00df"),
    ("\U0001f600 smile", "\U0001f600 smile"),
)


class Names(Listening):
    layouts = ("elements", "roles")
    environment = QUICK

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.target.create("odd", class_="OddNames", rect=(600, 450, 800, 500), thread="odd")
        cls.odd_places = itertools.cycle((x, 475) for x in range(610, 790))

    def test_a_role_is_put_into_words(self):
        for role, words in ((0, "role  0"), (2, "role  2  menu"), (10, "role  1  0 , client area"), (41, "role  4  1"),
                            (43, "role  4  3  button")):
            with self.subTest(role):
                self.visit((140 + role % 10 * 43, 465 + role // 10 * 38), words)

    def test_parts_of_a_window_are_named_by_value_before_name(self):
        for place, words in (((840, 380), "hello"), ((900, 380), "2"), ((960, 380), "O K button"), ((840, 405), "Page up"),
                             ((900, 405), "scroll bar"), ((960, 405), "Own kind"), ((805, 350), "Elements")):
            with self.subTest(words):
                self.visit(place, words)

    def give(self, **element):
        """Gives the odd window's object other properties and moves to another place on it."""
        self.target.element("odd", 0, **{"name": "", "value": "", "description": "", "role": 41, "roletype": "i4", "fails": "",
                                         **element})
        since = now()
        self.hand.move(*next(self.odd_places))
        return since

    def hears(self, words, since):
        """Waits for the words; an object that did not answer in time, as on a very busy machine, is asked again."""
        looks = itertools.count(1)

        def said():
            if next(looks) % 100 == 0:
                self.hand.move(*next(self.odd_places))
            return any(line.get("text") == words for line in self.heard.lines(since))

        wait_until(said, SOON, lambda: f"{words!r}; heard {self.heard.lines(since)[-12:]}")

    def test_names_that_no_honest_program_gives(self):
        for name, said in HOSTILE:
            with self.subTest(name[:20]):
                since = self.give(name=name)
                self.hears(said, since)

    def test_a_name_that_begins_like_markup_is_said_to_be_none(self):
        for name, flags in (("< Back", (18, 19)), ("Back <", (2, 3))):
            with self.subTest(name):
                since = self.give(name=name)
                self.hears(name, since)
                self.assertIn(dict(map(reversed, self.speech(since)))[name], flags)

    def test_half_a_surrogate_and_a_nul_are_survived(self):
        for name, remains in (("\ud800 alone", " alone"), ("a\0b c", "a")):
            with self.subTest(remains):
                since = self.give(name=name)
                self.heard.wait(lambda line: remains in line.get("text", ""), SOON, since)

    def test_the_longest_of_every_property(self):
        long = "Word " * 20_000
        since = self.give(name=long, value=long, description=long, role=long, roletype="bstr")
        self.hears(long[:LONGEST], since)

    def test_what_fails_is_left_out(self):
        for fails, said in (("name", "v"), ("value", "n"), ("value,name", "It is eigh odd names"), ("role", "v"),
                            ("name,value,role,description", "It is eigh odd names")):
            with self.subTest(fails):
                since = self.give(name="n", value="v", description="d", fails=fails)
                self.hears(said, since)

    def test_a_program_that_dies_over_any_question_is_survived(self):
        for call in ("WM_GETOBJECT", "accHitTest", "accName", "accRole", "accDescription", "accValue"):
            with self.subTest(call), self.desktop.target() as dying:
                dying.create("dying", class_="DyingOne", rect=(600, 520, 800, 580))
                dying.element("dying", 0, name="Never heard", role=43)
                dying.rule("dying", call, "die")
                self.hand.move(700, 550)
                self.assertIn(dying.wait_for_end(SOON), (3, KILLED_AT_ITS_END))
                self.visit((960, 380), "O K button")
                self.visit((840, 405), "Page up")
