"""Text fields by line and by word, plain and rich, and fields that lie about what they hold."""

import unittest

from harness import now
from listening import QUICK, SOON, Listening, for_the_ear

LINES = ("Woven quick fox", "Must walk over", "", "When lazy dogs", "Do sleep")
TEXT = "\r\n".join(LINES)
FIRST_LINE = "Woven quick fox\r"  # what is said of a whole text: its first line
HUGE = 2**31 - 1


class Texts(Listening):
    layouts = ("texts", "elements")
    environment = QUICK

    def setUp(self):
        self.leave()

    def place_of(self, field, word):
        """On a word's second character; rich fields count a line's end as one."""
        text = TEXT.replace("\r\n", "\r") if field.startswith("rich") else TEXT
        x, y = self.target.place(field, "char", text.index(word) + 1)
        return x + 2, y

    def read(self, field, *words):
        """Visits words and what is said there, one after the other."""
        self.target.ask("title", field, TEXT)
        for word, said in words:
            with self.subTest(word, field=field):
                self.visit(self.place_of(field, word), for_the_ear(said))

    def test_a_line_is_read_whole_and_then_word_by_word(self):
        for field in ("textbox", "editbox", "rich", "richansi"):
            self.read(field, ("Woven", LINES[0]), ("quick", " quick"), ("fox", " fox"), ("walk", LINES[1]), ("over", " over"),
                      ("Must", "Must"), ("lazy", LINES[3]), ("sleep", LINES[4]), ("Do", "Do"), ("Woven", LINES[0]))

    def test_the_same_word_is_not_said_again(self):
        self.read("textbox", ("Must", LINES[1]), ("walk", " walk"))
        since = now()
        x, y = self.place_of("textbox", "walk")
        self.hand.move(x + 4, y)
        self.heard.wait(lambda line: line["what"] == "midi", 1, since) if False else None
        self.rest()
        self.assertEqual(self.heard.words(since), [])

    def test_a_line_of_a_single_line_field(self):
        for index, said in ((1, "one two three"), (5, " two"), (9, " three")):
            x, y = self.target.place("editcontrol", "char", index)
            self.visit((x + 2, y), for_the_ear(said))
