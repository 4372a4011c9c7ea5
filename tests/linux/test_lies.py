"""Programs that say of their objects what cannot be."""

import time

import pytest

from accessible import LABEL, MULTI_LINE, PANEL, PASSWORD, SLIDER, STATIC, TEXT, AccessibleTarget
from session import start_pointalk_over, wait_for_name

HEALTHY = (700, 40)
ELSEWHERE = (700, 90)
# What is asked of an object, each by the name of its question; without the first three it cannot be named.
QUESTIONS = ("GetAccessibleAtPoint", "GetRole", "Name", "GetState", "GetInterfaces", "Description", "Parent", "GetExtents",
             "CharacterCount", "GetOffsetAtPoint", "GetStringAtOffset", "GetTextAtOffset", "GetText", "CurrentValue")
NAMES = ("amber", "birch", "cedar", "denim", "ebony", "fawn", "green", "hazel", "indigo", "jade", "khaki", "lilac", "maroon",
         "navy")


class Liar:
    """A window with an honest button, and room for objects that are none."""

    def __init__(self, desktop):
        self.desktop = desktop
        self.target = AccessibleTarget(desktop)
        self.target.show_window("frame", [0, 0, 800, 600], "Liar")
        self.target.put("healthy", [650, 20, 750, 60], name="Healthy")
        self.target.put("elsewhere", [650, 70, 750, 110], LABEL, name="Elsewhere")
        self.pointalk = start_pointalk_over(desktop)
        self.is_well()

    def is_well(self):
        """The honest button is named; that takes longer where a question before it went unanswered."""
        wait_for_name(self.desktop, HEALTHY, "Healthy button", ELSEWHERE)
        assert self.pointalk.poll() is None

    def said_over(self, x, y):
        """What is said at a place, once the honest button has been named again."""
        before = len(self.desktop.said())
        self.desktop.move(x, y)
        time.sleep(0.3)
        self.is_well()
        return self.desktop.said()[before:]

    def says_over(self, x, y, is_meant):
        """Waits until such a text is said at a place; a busy machine may have to be asked again."""
        self.desktop.wait_until(lambda: any(map(is_meant, self.said_over(x, y))))


@pytest.fixture(scope="module", name="liar")
def make_liar(desktop):
    return Liar(desktop)


@pytest.mark.parametrize("lie", ["error", "wrong type", "no body"])
def test_one_answer_that_is_none_does_not_cost_the_others(liar, lie):
    for number, (question, name) in enumerate(zip(QUESTIONS, NAMES)):
        top = 20 + 40 * number
        liar.target.put(f"liar{number}", [10, top, 210, top + 30], name=name, value=5, text="text", lies={question: lie})
    for number in range(3, len(QUESTIONS)):
        wait_for_name(liar.desktop, (100, 35 + 40 * number), f"{NAMES[number]} button", ELSEWHERE)
    for number in range(3):
        liar.desktop.move(100, 35 + 40 * number)
        time.sleep(0.1)
    liar.is_well()


def test_text_fields_may_lie_about_their_text(liar):
    for number, question in enumerate(QUESTIONS[8:]):
        top = 20 + 40 * number
        liar.target.put(f"field{number}", [220, top, 420, top + 30], TEXT, text="some words", states=[MULTI_LINE],
                        lies={question: "wrong type"})
        liar.said_over(230, top + 5)


def test_objects_within_each_other_without_end(liar):
    liar.target.put("endless", [430, 20, 630, 50], PANEL, endless=True)
    liar.said_over(500, 35)


def test_objects_that_lie_in_each_other(liar):
    liar.target.put("first", [430, 60, 630, 90], PANEL, **{"child at": "second"})
    liar.target.put("second", [430, 60, 630, 90], PANEL, parent="first", **{"child at": "first"})
    liar.target.put("itself", [430, 100, 630, 130], PANEL, parent="itself", **{"child at": "itself"})
    liar.target.put("above", [430, 140, 630, 170], name="Found", **{"child at": "frame"})
    liar.said_over(500, 75)
    liar.said_over(500, 115)
    liar.says_over(500, 155, lambda text: text == "Found button")


def test_objects_that_are_not_there(liar):
    liar.target.put("gone", [430, 180, 630, 210], PANEL, name="Holder", **{"child at": "nobody"})
    liar.said_over(500, 195)


def test_a_text_of_two_milliard_characters(liar):
    liar.target.put("huge", [430, 220, 630, 250], TEXT, text="few words", characters=2147483647)
    liar.says_over(500, 235, lambda text: text == "few words")


def test_a_value_that_is_no_number_of_this_world(liar):
    liar.target.put("slider", [430, 260, 630, 290], SLIDER, name="Level", value=1.7e308)
    liar.says_over(500, 275, lambda text: text == "Level")


def test_a_name_of_a_hundred_thousand_characters(liar):
    liar.target.put("long", [430, 300, 630, 330], name="long " * 20_000)
    liar.says_over(500, 315, lambda text: text.startswith("long long") and len(text) == 133)


def test_a_description_of_a_hundred_thousand_characters(liar):
    liar.target.put("told", [640, 300, 740, 330], name="Told", description="long " * 20_000)

    def is_told():
        before = len(liar.desktop.said())
        liar.desktop.output("xdotool", "mousemove", "700", "90", "sleep", "0.3", "mousemove", "700", "315", "sleep", "0.3",
                            "keydown", "ctrl", "sleep", "0.2", "keyup", "ctrl", "sleep", "0.5")
        return [len(text) for text in liar.desktop.said()[before:] if text.startswith("long long")] == [1999]
    liar.desktop.wait_until(is_told)


def test_a_name_that_no_voice_can_say(liar):
    liar.target.put("dots", [430, 340, 630, 370], name="..\r\n.\r\nCANCEL ALL\u0000\u0007\u202e")
    liar.says_over(500, 355, lambda text: text.startswith("dot"))
    assert not any(line.get("command", "").startswith("CANCEL ALL") for line in liar.desktop.heard())


@pytest.mark.parametrize("within", [{"role": TEXT, "text": "secret"}, {"role": STATIC, "name": "secret"}])
def test_what_lies_in_a_password_field_is_not_said(liar, within):
    liar.target.put("password", [430, 380, 630, 410], PASSWORD, name="Pass phrase")
    liar.target.put("typed", [435, 385, 625, 405], parent="password", **within)
    before = len(liar.desktop.said())
    liar.says_over(500, 395, lambda text: text == "Pass phrase")
    assert "secret" not in liar.desktop.said()[before:]


def test_a_program_that_answers_one_question_never(own_desktop):
    liar = Liar(own_desktop)
    silent = AccessibleTarget(own_desktop)
    silent.show_window("frame", [0, 700, 200, 800], "Silent")
    silent.put("silent", [0, 700, 200, 800], name="Never", lies={"Name": "silence"})
    liar.said_over(100, 750)
    liar.said_over(150, 780)


@pytest.mark.parametrize("question", ["GetAccessibleAtPoint", "GetRole", "GetExtents", "GetStringAtOffset"])
def test_a_program_that_ends_while_it_is_asked(liar, question):
    dying = AccessibleTarget(liar.desktop)
    dying.show_window("frame", [0, 700, 200, 800], "Dying")
    dying.put("dying", [0, 700, 200, 800], TEXT, text="last words", states=[MULTI_LINE], lies={question: "death"})

    def has_ended():
        liar.said_over(100, 750)
        return dying.program.poll() is not None
    liar.desktop.wait_until(has_ended)
