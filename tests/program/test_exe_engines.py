"""Which engine speaks: the question typed at when both are there, the older one alone, none."""

import unittest

from harness import Desktop, Panel, names_desktop, now, settings_text, visit
from listening import GREETING, QUICK, SETTINGS, SOON

ENGINE_QUESTION = ("Pleez wait until I'm done saying this, then pleez select S eigh P I 4, or S eigh P I 5, by typing 4 or 5, "
                   "and hit enter")
ENGINE_BOX = "You have both versions present"
REMEMBERED = ("I will remember this setting. To clear it so you can choose sapi version next time, select Clear Sapi version "
              "from the Voice menu.")
AWAY = (1000, 600)  # where the pointer waits, over the bare desktop
NO_VOICE = "I'm sorry but there is no voice that Pointalk can use."


class EngineCase(unittest.TestCase):
    engines = "sapi5"

    @classmethod
    def setUpClass(cls):
        cls.desktop = cls.enterClassContext(Desktop(private=True, engines=cls.engines))
        cls.probe = cls.enterClassContext(cls.desktop.probe())
        cls.hand = cls.enterClassContext(cls.desktop.hand())
        cls.panel = Panel(cls.probe, cls.hand)

    def run_pointalk(self, settings=SETTINGS, **environment):
        self.hand.move(*AWAY)
        self.pointalk = self.enterContext(self.desktop.pointalk(settings))
        self.pointalk.start(**environment)
        self.heard = self.pointalk.heard

    def kinds(self, *kinds):
        return [line for line in self.heard.lines() if line["what"] in kinds]

    def speech(self):
        """What was spoken or cut off, by which engine and how."""
        told = {"sapi5 speak": lambda line: (5, line["text"], line["flags"] if line["given"] else None),
                "sapi4 speak": lambda line: (4, line["text"]), "sapi4 audio reset": lambda line: (4, None)}
        return [told[line["what"]](line) for line in self.kinds(*told)]

    def assert_greets(self, silence, greeting):
        speech = self.speech()
        self.assertEqual(speech[speech.index(greeting) - 1], silence)


class BothEngines(EngineCase):
    engines = "both"

    def test_the_question_is_spoken_to_its_end_and_asked_until_the_answer_is_good(self):
        self.run_pointalk()
        box = self.panel.box(ENGINE_BOX)
        self.assertIn("Please select SAPI4 or SAPI5 by typing 4 or 5 and hit enter", box["texts"])
        self.assertIn("5", box["texts"])
        self.assertEqual(self.speech(), [(5, " ", 3), (5, ENGINE_QUESTION, None)])
        spoken, = self.kinds("spoken")
        self.assertEqual(spoken["sounded"], sum(line["length"] for line in self.kinds("sounding")))
        rates = [(line["how"], line["value"]) for line in self.kinds("sapi5 rate")]
        self.assertEqual(rates, [("get", 0), ("put", 2)])
        self.assertEqual([line["how"] for line in self.kinds("sapi4 speed")], ["get"])

    def test_six_and_escape_ask_again_and_four_is_taken(self):
        self.run_pointalk(**QUICK)
        self.panel.answer(ENGINE_BOX, typed="six")
        self.panel.answer(ENGINE_BOX, "Escape")
        self.panel.answer(ENGINE_BOX, typed="4.4")
        self.heard.wait_words(REMEMBERED + " Hit Enter.", SOON)
        # Told while the newer voice is still held, which takes no reset: it speaks without flags.
        self.assertEqual(self.speech(), 3 * [(5, " ", 3), (5, ENGINE_QUESTION, None)] + [(5, REMEMBERED + " Hit Enter.", None)])
        self.assertIn(REMEMBERED, self.panel.answer("Pointalk", "Return")["texts"])
        self.pointalk.wait_running()
        self.assertIn((5, "Thank you.", None), self.speech())
        released, = self.kinds("released")
        self.assertEqual(released["class"], "sapi5")
        self.assert_greets((4, None), (4, GREETING))
        self.assertIn("SapiSelection = 4\r\n", self.pointalk.file("PTK.ini"))
        since = now()
        self.hand.move(500, 300)
        self.heard.wait(lambda line: line["what"] == "midi", SOON, since)

    def test_the_five_that_is_offered_is_taken_by_enter(self):
        self.run_pointalk(**QUICK)
        self.panel.answer(ENGINE_BOX, "Return")
        self.heard.wait_words(REMEMBERED + " Hit Enter.", SOON)
        self.assertEqual(self.speech()[-2:], [(5, " ", 3), (5, REMEMBERED + " Hit Enter.", 3)])
        self.panel.answer("Pointalk", "Return")
        self.pointalk.wait_running()
        self.assertEqual([line["class"] for line in self.kinds("released")], ["sapi4"])
        self.assert_greets((5, " ", 3), (5, GREETING, 2))
        self.assertIn("SapiSelection = 5\r\n", self.pointalk.file("PTK.ini"))

    def test_a_remembered_choice_is_not_asked_for(self):
        self.run_pointalk(settings_text(SapiSelection=4, VoiceSpeed=576), **QUICK)
        self.pointalk.wait_running()
        self.assert_greets((4, None), (4, GREETING))
        self.assertNotIn(5, [engine for engine, *_ in self.speech()])

    def test_a_remembered_choice_of_no_engine_ends_the_program(self):
        self.run_pointalk(settings_text(SapiSelection=7), **QUICK)
        self.assertIn(NO_VOICE, self.panel.answer("Pointalk", "Return")["texts"])
        self.pointalk.wait_for_end()


class OlderEngineAlone(EngineCase):
    engines = "sapi4"

    def test_it_speaks_with_the_woman_s_voice_at_240(self):
        self.run_pointalk()
        self.pointalk.wait_running()
        self.assertEqual([line["class"] for line in self.kinds("created")], ["sapi4"])
        found = self.kinds("sapi4 find")[0]
        self.assertEqual((found["criteria"], found["result"]), ("Mfg=Microsoft;Gender=1", 0))
        self.assertEqual(self.kinds("sapi4 select")[0]["number"], found["number"])
        self.assertEqual([line["value"] for line in self.kinds("sapi4 speed") if line["how"] == "put"][0], 65 * 4.8 + 30)
        self.assertIn(240, [line["value"] for line in self.kinds("sapi4 speed") if line["how"] == "put"])
        self.assert_greets((4, None), (4, GREETING))
        visit(self.hand, self.heard, AWAY, names_desktop, "the desktop", SOON, 0)
        self.assertEqual(self.kinds("sapi5 speak"), [])


class NoEngine(EngineCase):
    engines = "none"

    def test_a_box_says_so_and_the_program_ends(self):
        self.run_pointalk()
        self.assertIn(NO_VOICE, self.panel.answer("Pointalk", "Return")["texts"])
        self.pointalk.wait_for_end()
        self.assertIsNone(self.pointalk.file("status.txt"))
        self.assertEqual(self.speech(), [])
