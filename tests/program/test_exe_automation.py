"""Windows that tell of what is in them by UI Automation only, as the task bar and the programs of today do; its client is a
companion, since Wine's knows no elements at a point."""

import pathlib
import tempfile

from harness import now, quoted
from listening import QUICK, Listening

HOST = "Windows.UI.Composition.DesktopWindowContentBridge"
HOST_NAME = "DesktopWindowXamlSource"
SECRET = "kelpfin"
ELEMENTS = (
    {"rect": (600, 400, 700, 440), "name": "start", "role": 43},
    {"rect": (600, 450, 700, 490), "name": "Search for fish", "role": 42, "value": "cod and ling"},
    {"rect": (600, 500, 700, 540), "name": "Code word", "role": 42, "value": SECRET, "password": True},
    {"rect": (750, 400, 850, 440), "name": "Fish of the day", "role": 41},
    {"rect": (750, 450, 850, 490), "name": "Never said", "role": 43},
)


class Automation(Listening):
    layouts = ("elements",)

    @classmethod
    def setUpClass(cls):
        answers = pathlib.Path(cls.enterClassContext(tempfile.TemporaryDirectory())) / "answers.txt"
        answers.write_text("".join(" ".join(f"{key}={quoted(value)}" for key, value in element.items()) + "\n"
                                   for element in ELEMENTS), "ascii")
        cls.environment = {**QUICK, "POINTALK_AUTOMATION": str(answers)}
        super().setUpClass()
        cls.target.create("host", class_=HOST, rect=(590, 390, 720, 550))
        cls.target.element("host", 0, name=HOST_NAME, role=10, rect=(590, 390, 720, 550))
        cls.target.create("bare", class_="QuayBare", rect=(740, 390, 860, 440))
        cls.target.element("bare", 0, role=10, rect=(740, 390, 860, 440))
        cls.target.create("named", class_="QuayNamed", rect=(740, 450, 860, 500))
        cls.target.element("named", 0, name="Own words", role=41, rect=(740, 450, 860, 500))

    def test_a_host_of_controls_says_each_of_them(self):
        self.visit((650, 420), "start button")
        self.visit((650, 470), "cod and ling")

    def test_a_window_without_words_of_its_own_says_its_element(self):
        self.visit((800, 420), "Fish of the day")

    def test_a_window_with_words_of_its_own_says_those(self):
        since = now()
        self.visit((800, 470), "Own words")
        self.assertEqual([line for line in self.heard.lines(since) if line["what"] == "automation" and line["y"] == 470], [])

    def test_a_password_is_not_said(self):
        since = now()
        self.visit((650, 520), "Code word")
        self.visit((650, 420), "start button")
        with self.hand.held("shift"):
            self.visit_until((650, 520), lambda text: letters(text) == "codeword" and text != "Code word", "Code word, spelled")
        self.assertEqual([text for text in self.heard.words(since) if SECRET in letters(text)], [])


def letters(text):
    """The letters of a text, be it spelled or not."""
    return text.lower().replace(" ", "").replace("eigh", "a").replace("capitl", "")
