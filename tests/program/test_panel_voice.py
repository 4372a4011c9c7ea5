"""The Voice menu, its keys and its buttons: what is said, set and saved."""

from harness import now, wait_until
from panel_case import SOON, PanelCase, values

FASTER, SLOWER = "speeding up voice", "slowing down voice"


class Voice(PanelCase):
    def puts(self, what, since):
        """What the voice was given of a kind, in order."""
        return [line.get("value", line.get("index")) for line in self.pointalk.heard.lines(since)
                if line["what"] == f"sapi5 {what}" and line["how"] != "get"]

    def over(self, changes, since):
        """Waits until so many changes of the speed are over. Each lets what is waiting run before it is said and saved, so
        quick presses lie within one another, and the first is said and saved last. Each reads the rate twice: to change
        it, and to save it."""
        def read():
            return [line for line in self.pointalk.heard.lines(since) if line["what"] == "sapi5 rate" and line["how"] == "get"]

        wait_until(lambda: len(read()) == 2 * changes, SOON, lambda: f"{changes} changes are over; read {len(read())} times")

    def rate(self):
        return (int(values(self.pointalk)["VoiceSpeed"]) - 50) // 5

    def changes_rate(self, press, to):
        """Does something that changes the speed and returns what was said."""
        since = now()
        press()
        wait_until(lambda: self.puts("rate", since), SOON, "a new rate")
        self.assertEqual(self.puts("rate", since), [to])
        self.saved(VoiceSpeed=to * 5 + 50)
        self.panel.wait_for_keyboard()
        return self.words(since)

    def test_speed_by_menu_keys_and_buttons(self):
        rate = self.rate()
        ways = ((lambda: self.panel.choose("Speed Up"), 1), (lambda: self.panel.choose("Slow Down"), -1),
                (lambda: self.hand.tap("F12"), 1), (lambda: self.hand.tap("F11"), -1),
                (lambda: self.panel.press("Speed Up"), 1), (lambda: self.panel.press("Slow Down", "Return"), -1))
        for number, (press, step) in enumerate(ways):
            with self.subTest(number):
                rate += step
                self.assertEqual(self.changes_rate(press, rate), [FASTER if step > 0 else SLOWER])

    def test_the_same_change_is_not_said_twice_and_ends_at_the_limit(self):
        rate = self.rate()
        self.changes_rate(lambda: self.hand.tap("F12"), rate + 1)  # so that the next is another change
        self.assertEqual(self.changes_rate(lambda: self.hand.tap("F11"), rate), [SLOWER])
        self.assertEqual(self.changes_rate(lambda: self.hand.tap("F11"), rate - 1), [])
        since = now()
        self.hand.tap(*["F12"] * 22)
        wait_until(lambda: len(self.puts("rate", since)) == 22, SOON, "22 changes")
        self.assertEqual(self.puts("rate", since), [min(10, rate - 1 + step) for step in range(1, 23)])
        self.saved(VoiceSpeed=100)
        self.over(22, since)
        since = now()
        self.hand.tap(*["F11"] * 22)
        wait_until(lambda: len(self.puts("rate", since)) == 22, SOON, "22 changes")
        self.saved(VoiceSpeed=0)
        self.over(22, since)
        self.assertEqual(self.puts("rate", since)[-3:], [-10, -10, -10])
        since = now()
        self.hand.tap(*["F12"] * 13)
        self.saved(VoiceSpeed=65)
        self.over(13, since)

    def test_voices_by_menu_and_buttons(self):
        for name, code, entry, button, key in (("Mary", 0, "Use Mary", "Voice Mary", "space"),
                                               ("Mike", 1, "Use Mike", "Voice Mike", "Return"),
                                               ("Sam", 2, "Use Sam", "Voice Sam", "space")):
            for way in (lambda: self.panel.choose(entry), lambda: self.panel.press(button, key)):
                with self.subTest(name):
                    since = now()
                    rate = self.rate()
                    way()
                    self.said(f"Voice is now {name}.", since)
                    self.saved(VoiceSelection=code)
                    self.assertEqual(self.puts("voice", since), [code])
                    self.assertEqual(self.puts("rate", since), [rate])
                    self.assertEqual(self.words(since), [f"Voice is now {name}."])
                    self.panel.wait_for_keyboard()

    def test_voice_volume(self):
        present = int(values(self.pointalk)["VoiceVolume"])
        for answer, then in (("30", 30), ("abc", None), (None, None), ("80", 80)):
            with self.subTest(answer):
                since = now()
                self.number("Voice Volume", "InputBox",
                            f"Voice Volume is now {present} percent.  Please enter the New value for Voice Volume.",
                            str(present), answer)
                present = present if then is None else then
                self.saved(VoiceVolume=present)
                self.assertEqual(self.puts("volume", since), [] if then is None else [then])

    def test_mute_by_key_and_menu(self):
        def is_spoken():
            since = now()
            rate = self.rate()
            self.hand.tap("F12")
            self.saved(VoiceSpeed=rate * 5 + 55)
            self.hand.tap("F11")
            self.saved(VoiceSpeed=rate * 5 + 50)
            return self.words(since) == [FASTER, SLOWER]

        self.assertTrue(is_spoken())
        before = self.pointalk.file("PTK.ini")
        for way in (lambda: self.hand.tap("ctrl+m"), lambda: self.panel.choose("Mute Voice")):
            way()
            self.panel.wait_for_keyboard()
            self.assertTrue(self.panel.is_checked("Mute Voice", self.desktop))
            self.assertEqual(self.pointalk.file("PTK.ini"), before)
            self.assertFalse(is_spoken())
            way()
            self.panel.wait_for_keyboard()
            self.assertFalse(self.panel.is_checked("Mute Voice", self.desktop))
            self.assertTrue(is_spoken())

    def test_midi_has_its_mark_at_start(self):
        self.assertTrue(self.panel.is_checked("Midi On/Off", self.desktop))
        for expected in (False, True):
            self.panel.choose("Midi On/Off")
            self.panel.wait_for_keyboard()
            self.assertEqual(self.panel.is_checked("Midi On/Off", self.desktop), expected)
        self.assertFalse(self.panel.is_checked("Clear Sapi Version", self.desktop))

    def test_clear_sapi_version(self):
        since = now()
        self.panel.choose("Clear Sapi Version")
        self.notice("Pointalk", "Next time you start Pointalk, ", " Hit Enter.", since, "Return", then=["Thank you."])
