"""What objects are called: every role, every way of failing, names that no honest program gives, and queries that die."""

import itertools

from harness import KILLED_AT_ITS_END, now
from listening import QUICK, SOON, Listening, for_the_ear

LONGEST = 133  # characters of a name that are said

# Names as objects give them, and what is said of them before it is respelt for the ear.
HOSTILE = (
    ("ab" * 50_000, ("ab" * 50_000)[:LONGEST]),
    ("=" * 100_000, "=" * LONGEST),
    ("one\r\ntwo\nthree", "one\r"),
    ("one\ntwo\rthree", "one\n"),
    ("\rone", "\r"),
    ("\x01\x07\x1f", "\x01\x07\x1f"),
    ("\u202eright", "\u202eright"),
    ("\u0418\u043c\u044f \u00c4\u00d6\u00df", "\u0418\u043c\u044f \u00c4\u00d6\u00df"),
    ("\U0001f600 smile", "\U0001f600 smile"),
    ('"quoted\\"', '"quoted\\"'),
    ("a^b%s%n&c", "a^b%s%n&c"),
    ("   two blanks   ", "   two blanks   "),
)


def by_role(name, role):
    """What is said of a name in view of its role's text."""
    if "menu" in role.lower():
        return name + " menu"
    if "client" in role.lower():
        return name + ", client area"
    return name + " button" if "button" in role.lower() else name


class Names(Listening):
    layouts = ("elements", "roles")
    environment = QUICK

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.probe = cls.enterClassContext(cls.desktop.probe())
        cls.target.create("odd", class_="OddNames", rect=(600, 450, 800, 500), thread="odd")
        cls.odd_places = itertools.cycle((x, 475) for x in range(610, 790))

    def test_every_role_is_put_into_words(self):
        for role in range(65):
            with self.subTest(role):
                place = 140 + role % 10 * 43, 465 + role // 10 * 38
                text = self.probe.ask("object", *place)["role"]["text"]
                self.visit(place, for_the_ear(by_role(f"role {role}", text)))

    def test_parts_of_a_window_are_named_by_value_before_name(self):
        for place, words in (((840, 380), "hello"), ((900, 380), "2"), ((960, 380), "OK button"), ((840, 405), "Page up"),
                             ((900, 405), "scroll bar"), ((960, 405), "Own kind"), ((805, 350), "Elements")):
            with self.subTest(words):
                self.visit(place, for_the_ear(words))

    def give(self, **element):
        """Gives the odd window's object other properties and moves to another place on it."""
        self.target.element("odd", 0, **{"name": "", "value": "", "description": "", "role": 41, "roletype": "i4", "fails": "",
                                         **element})
        since = now()
        self.hand.move(*next(self.odd_places))
        return since

    def test_names_that_no_honest_program_gives(self):
        for name, said in HOSTILE:
            with self.subTest(name[:20]):
                since = self.give(name=name)
                self.heard.wait_words(for_the_ear(said), SOON, since)

    def test_half_a_surrogate_and_a_nul_are_survived(self):
        for name, remains in (("\ud800 alone", " alone"), ("a\0b c", "a")):
            with self.subTest(remains):
                since = self.give(name=name)
                self.heard.wait(lambda line: remains in line.get("text", ""), SOON, since)

    def test_the_longest_of_every_property(self):
        long = "Word " * 20_000
        since = self.give(name=long, value=long, description=long, role=long, roletype="bstr")
        self.heard.wait_words(for_the_ear(long[:LONGEST]), SOON, since)

    def test_what_fails_is_left_out(self):
        for fails, said in (("name", "v"), ("value", "n"), ("value,name", "It is a odd names"), ("role", "v"),
                            ("name,value,role,description", "It is a odd names")):
            with self.subTest(fails):
                since = self.give(name="n", value="v", description="d", fails=fails)
                self.heard.wait_words(for_the_ear(said), SOON, since)

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
