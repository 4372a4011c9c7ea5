"""How Pointalk starts: what it does in which order, the greeting, and the first run's welcome answered by keys."""

import unittest

from harness import Desktop, Panel, now, settings_text, wait_until
from listening import GREETING, SETTINGS, SOON, earcon, note_off, note_on, program

RIGHTS = "Copyright Corvane.  You may use it and pass it on, unchanged and free of charge.  "
AGREEMENT = ("Hello, and welcome to Pointalk, the Audio Mouse \"Driver\".  " + RIGHTS + "It is offered as is, with no "
             "liability whatsoever.  You are the only one responsible for its behavior, usage and results.  Do you agree?")
INSTRUCTIONS = ("This mouse driver lets you hear your mouse", "menu for user options. ")  # how they begin and end
AT_START = 300  # seconds after which what a program says first never comes
MARK = "Been there done that.\r\n"
FIRST_VOICE = [("sapi5 voices", None), ("sapi5 voice item", 0), ("sapi5 voice", 0)]
PORT = [("midi devices", 1), ("midi open", -1, 0, 0, 0, 0)]

desktop = hand = probe = None


def setUpModule():
    global desktop, hand, probe
    desktop = unittest.enterModuleContext(Desktop(private=True))
    hand = unittest.enterModuleContext(desktop.hand())
    probe = unittest.enterModuleContext(desktop.probe())


tearDownModule = unittest.doModuleCleanups


def facts(line):
    """What a line says, without its time."""
    what = line["what"]
    if what == "sapi5 speak":
        return what, line["flags"], line["text"]
    if what == "midi open":
        return tuple(line[key] for key in ("what", "device", "callback", "instance", "flags", "result"))
    if what == "midi":
        return what, int(line["value"], 16)
    if what in ("sapi5 rate", "sapi5 volume"):
        return what, line["how"], line["value"]
    if what in ("created", "midi devices"):
        return what, line.get("class", line.get("count"))
    return what, line.get("index")


class Order(unittest.TestCase):
    """One start, all that was heard of it, and the files as they were while it greeted."""

    @classmethod
    def setUpClass(cls):
        cls.pointalk = cls.enterClassContext(desktop.pointalk(SETTINGS))
        (cls.pointalk.folder / "DidWarn.flg").write_bytes(b"of an older run")
        hand.move(1000, 600)
        cls.pointalk.start()
        cls.pointalk.wait_ready()
        cls.while_greeting = {name: cls.pointalk.file(name) for name in ("status.txt", "DidWarn.flg", "PTK.ini")}
        cls.pointalk.wait_running()
        wait_until(lambda: cls.heard_facts().count(("sapi5 volume", "put", 80)) == 3, SOON, "the settings that are read again")
        cls.pointalk.heard.stays_silent(0.5)  # or the tests below name what is heard
        cls.facts = cls.heard_facts()
        cls.greets = cls.facts.index(("sapi5 speak", 2, GREETING))

    @classmethod
    def heard_facts(cls):
        lines = cls.pointalk.heard.lines()
        return [facts(line) for line in lines if line["what"] not in ("sounding", "spoken", "cut", "silent")]

    def part(self, begin, end):
        return self.facts[self.facts.index(begin):self.facts.index(end)]

    def test_the_engine_is_asked_for_its_rate_first(self):
        self.assertEqual(self.facts[:2], [("created", "sapi5"), ("sapi5 rate", "get", 0)])

    def test_the_voices_are_listed_then_the_first_one_is_set_up(self):
        listed = [("sapi5 voices", None), ("sapi5 voice count", None)]
        for index in range(3):
            listed += [("sapi5 voices", None), ("sapi5 voice item", index), ("sapi5 voice description", index)]
        wanted = listed + FIRST_VOICE + [("sapi5 rate", "put", 2), ("sapi5 volume", "put", 80)]
        self.assertEqual(self.facts[2:2 + len(wanted)], wanted)
        self.assertEqual(self.facts[2 + len(wanted)], PORT[0])

    def test_nothing_is_sent_when_the_port_is_opened(self):
        first = self.facts.index(PORT[1])
        self.assertEqual(self.facts[first - 1], PORT[0])
        until_tones = self.facts[first + 1:self.facts.index(("midi", program(14, 50)))]
        # The file's voice, volume and speed, then the speed that every start sets.
        self.assertEqual(until_tones, [("sapi5 rate", "put", 3), *FIRST_VOICE, ("sapi5 volume", "put", 80),
                                       ("sapi5 rate", "put", 3)])

    def test_three_ticks_warm_up_and_the_port_is_closed_again(self):
        warm = self.part(("midi", program(14, 50)), ("midi close", None))
        midi = [fact[1] for fact in warm if fact[0] == "midi"]
        # The pointer is at (1000, 600) of 1024 x 768: column 19, row 4; both tones along a scale.
        tones = [program(14, 50), note_on(14, 40 + 4, 80), program(13, 50), note_on(13, 76 + 16, 60)]
        stopped = [0, note_off(12, 231, 127), 0, note_off(13, 76 + 16, 60), 0, note_off(14, 40 + 4, 80)]
        self.assertEqual(midi, tones + earcon("NewWindow") + stopped)

    def test_the_speed_is_set_again_and_saved_twice_before_the_greeting(self):
        closed = self.facts.index(("midi close", None))
        self.assertEqual(self.facts[closed + 1:self.greets - 1],
                         [("sapi5 rate", "get", 3), ("sapi5 rate", "put", 3), ("sapi5 rate", "get", 3)])
        self.assertEqual(self.while_greeting["PTK.ini"],
                         settings_text(VerticalVolume=60, HorizontalVolume=60, DoDingVolume=60))

    def test_it_greets_and_waits_until_all_is_said(self):
        self.assertEqual(self.facts[self.greets - 1], ("sapi5 speak", 3, " "))
        self.assertEqual(self.facts[self.greets + 1], ("sapi5 speak over", None))

    def test_the_run_is_marked_before_and_the_first_run_after_the_greeting(self):
        self.assertEqual(self.while_greeting["status.txt"], "running\r\n")
        self.assertEqual(self.while_greeting["DidWarn.flg"], "of an older run")
        self.assertEqual(self.pointalk.file("DidWarn.flg"), MARK)

    def test_then_the_port_is_opened_and_the_settings_are_read_again_and_no_tone_is_struck_anew(self):
        after = self.facts[self.greets + 2:]
        self.assertEqual(after[:7], PORT + [("sapi5 rate", "put", 3)] + FIRST_VOICE + [("sapi5 volume", "put", 80)])
        self.assertEqual([fact for fact in after if fact[0].startswith("midi ")], PORT)
        self.assertNotIn("midi", [fact[0] for fact in after])


class FirstRun(unittest.TestCase):
    def setUp(self):
        self.panel = Panel(probe, hand)
        hand.move(1000, 600)
        self.pointalk = self.enterContext(desktop.pointalk(SETTINGS, first_run=True))
        self.pointalk.start()

    def spoken(self, since=0):
        """Texts with their flags; the blanks that cut off what is being said are left out."""
        return [(line["flags"], line["text"]) for line in self.pointalk.heard.lines(since)
                if line["what"] == "sapi5 speak" and line["text"].strip()]

    @staticmethod
    def instructs(text):
        begin, end = INSTRUCTIONS
        return text.startswith(begin) and text.endswith(end)

    def test_agreeing_leads_to_the_instructions_and_on(self):
        self.pointalk.heard.wait_words(AGREEMENT + " Y for yes, N for No.", AT_START)
        since = self.pointalk.heard.lines()[-1]["t"]
        box = self.panel.answer("Pointalk", "y")
        self.assertIn(AGREEMENT, box["texts"])
        self.pointalk.heard.wait(lambda line: self.instructs(line.get("text", "")), SOON, since, "the instructions")
        self.assertIsNone(self.pointalk.file("DidWarn.flg"))
        box = self.panel.answer("Pointalk Instructions", "Return")
        self.assertTrue(any(map(self.instructs, box["texts"])), box["texts"])
        self.pointalk.wait_running()
        texts = self.spoken()
        begin = texts.index((3, AGREEMENT + " Y for yes, N for No."))
        said = texts[begin + 1:begin + 5]
        self.assertTrue(self.instructs(said[2][1]), said)
        self.assertEqual(said, [(3, "Yes."), (2, "thank you"), (3, said[2][1]), (2, "thank you")])
        self.assertEqual(self.pointalk.file("DidWarn.flg"), MARK)
        self.assertNotIn(GREETING, self.pointalk.heard.words())
        since = now()
        hand.move(500, 300)  # its ticks come
        self.pointalk.heard.wait(lambda line: line["what"] == "midi", SOON, since)

    def test_declining_ends_the_program_and_leaves_no_mark(self):
        self.pointalk.heard.wait_words(AGREEMENT + " Y for yes, N for No.", AT_START)
        self.panel.answer("Pointalk", "n")
        self.pointalk.wait_for_end()
        self.assertEqual(self.spoken()[-2:], [(3, "No."), (3, "O K nevermind.")])
        self.assertIsNone(self.pointalk.file("DidWarn.flg"))
        self.assertEqual(self.pointalk.file("status.txt"), "running\r\n")
