"""Text fields of other programs by line and by word: plain and rich ones of every class name that is read so."""

import itertools

from harness import now
from listening import QUICK, Listening, again_where_late

LINES = ("Woven quick fox", "Must walk over", "", "When lazy dogs", "Do sleep")
TEXT = "\r\n".join(LINES)
FIRST_LINE = LINES[0] + "\r"  # what is said of a whole text: its first line with the end's first character
WORDS = ["Word" + "".join(letters) for letters in itertools.product("abcdefg", repeat=3)]  # said as they are written
LONG_LINE = " ".join(WORDS[:60])     # 479 characters
LONGER_LINE = " ".join(WORDS[:300])  # more than a line that is read has
LONGEST_SAID = 133                   # characters
BETWEEN = ((840, 405), "Page up"), ((960, 380), "O K button")

BY_LINE = ("textbox", "editbox", "rich", "richansi")


class Texts(Listening):
    layouts = ("texts", "elements")
    environment = QUICK

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.others = itertools.cycle(BETWEEN)

    def go_elsewhere(self):
        """To something else, since a text is not said twice in a row."""
        self.visit(*next(self.others))

    def begin_with(self, field, text):
        """Another text, with the pointer elsewhere."""
        self.go_elsewhere()
        self.text = text.replace("\r\n", "\r") if field.startswith("rich") else text  # rich ones count a line's end as one
        self.target.ask("title", field, text)

    def place_of(self, field, word):
        """On a word's second character."""
        x, y = self.target.place(field, "char", self.text.index(word) + 1)
        return x + 2, y

    def place_in_empty_line(self, field):
        x, y = self.target.place(field, "char", self.text.index("\r\n\r\n") + 2)
        return x + 20, y

    def read(self, field, *steps):
        """Visits words and what is said there, one after the other; nothing else may be said."""
        (word, said), *others = steps
        begin = self.visit(self.place_of(field, word), said)
        for word, said in others:
            self.visit(self.place_of(field, word), said)
        words = [said for _, said in steps]
        heard = self.heard.words(begin)
        self.assertEqual(heard[heard.index(words[0]):], words)  # what was left may still have been told first

    def silence_at(self, place):
        """Nothing is said there until the pointer rests, nor afterwards."""
        since = now()
        self.hand.move(*place)
        self.rest()
        self.assertEqual(self.heard.words(since), [])

    @again_where_late
    def test_a_line_is_read_whole_and_then_word_by_word(self):
        for field in BY_LINE:
            with self.subTest(field):
                self.begin_with(field, TEXT)
                self.read(field, ("Woven", LINES[0]), ("quick", "quick"), ("fox", "fox"), ("walk", LINES[1]), ("over", "over"),
                          ("Must", "Must"), ("lazy", LINES[3]), ("sleep", LINES[4]), ("Do", "Do"), ("Woven", LINES[0]))

    @again_where_late
    def test_a_line_left_and_entered_again_is_read_whole_again(self):
        for field in BY_LINE:
            with self.subTest(field):
                self.begin_with(field, TEXT)
                self.read(field, ("quick", LINES[0]), ("Must", LINES[1]), ("fox", LINES[0]))
                self.go_elsewhere()
                self.read(field, ("fox", LINES[0]))  # the window was left

    @again_where_late
    def test_the_same_word_is_not_said_again(self):
        for field in ("textbox", "rich"):
            with self.subTest(field):
                self.begin_with(field, TEXT)
                self.read(field, ("Must", LINES[1]), ("walk", "walk"))
                x, y = self.place_of(field, "walk")
                self.silence_at((x + 4, y))
                self.read(field, ("over", "over"), ("walk", "walk"))

    @again_where_late
    def test_over_an_empty_line_the_whole_text_stands_in(self):
        # Wine's rich edits take the first column of an empty line for the next line.
        for field in ("textbox", "editbox"):
            with self.subTest(field):
                self.begin_with(field, TEXT)
                self.read(field, ("lazy", LINES[3]))
                self.visit(self.place_in_empty_line(field), FIRST_LINE)
                self.read(field, ("lazy", LINES[3]), ("dogs", "dogs"))

    @again_where_late
    def test_fields_of_one_line(self):
        self.begin_with("editcontrol", "one two three")
        self.read("editcontrol", ("one", "one two three"), ("two", "two"), ("three", "three"), ("one", "one"))
        self.visit(self.target.centre("emptybox"), "It is eigh empty text box")

    @again_where_late
    def test_a_field_of_the_plain_class_tells_its_whole_text_wherever_the_pointer_is(self):
        self.begin_with("multiline", TEXT)
        since = self.visit(self.place_of("multiline", "Woven"), FIRST_LINE)
        self.hand.move(*self.place_of("multiline", "lazy"))
        self.rest()
        self.assertEqual(self.heard.words(since)[-1], FIRST_LINE)

    @again_where_late
    def test_letters_of_the_code_page_and_beyond(self):
        """A rich text comes as its object gives it, a plain line through the code page."""
        text = "Gr\u00fc\u00dfe \u0418\u043c\u044f \u20ac5\r\nN\u00e4chste"
        for field, line in (("editbox", "Gr\u00fc\u00dfe ??? \u20ac 5"),
                            ("rich", "Gr\u00fc\u00dfe \u0418\u043c\u044f \u20ac 5")):
            with self.subTest(field):
                self.begin_with(field, text)
                self.read(field, ("Gr\u00fc\u00dfe", line), ("\u20ac5", "\u20ac 5"), ("chste", "N\u00e4chste"))

    @again_where_late
    def test_a_line_longer_than_its_window(self):
        self.begin_with("editcontrol", LONG_LINE)
        self.read("editcontrol", (WORDS[0], LONG_LINE[:LONGEST_SAID]), *zip(WORDS[1:3], WORDS[1:3]))

    def test_a_line_longer_than_any_that_is_read(self):
        self.begin_with("editcontrol", LONGER_LINE)
        self.visit(self.target.centre("editcontrol"), LONGER_LINE[:LONGEST_SAID])

    @again_where_late
    def test_a_rich_text_is_read_by_the_lines_that_it_is_broken_into(self):
        self.begin_with("rich", LONG_LINE)
        _, top = self.place_of("rich", WORDS[0])
        first_line = " ".join(word for word in LONG_LINE.split() if self.place_of("rich", word)[1] == top)
        self.read("rich", (WORDS[0], first_line), (WORDS[1], WORDS[1]))
