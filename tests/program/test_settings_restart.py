"""Settings that were changed in one run, as the next one finds them."""

from harness import now, settings_text, written_scaling
from panel_case import SOON, DesktopCase, values


class Restart(DesktopCase):
    def ask(self, entry, title, typed=None):
        """Answers an entry's question, with Escape where nothing is typed; returns what the box had proposed."""
        since = now()
        self.panel.choose(entry)
        box = self.panel.answer(title, *(() if typed else ("Escape",)), typed=typed)
        self.pointalk.heard.wait_words("Thank you.", SOON, since)
        self.panel.wait_for_keyboard()
        return box["texts"][1]

    def change_everything(self):
        self.ask("Horizontal Volume", "InputBox", "30")
        self.ask("Vertical Volume", "InputBox", "45")
        self.ask("Ding Volume", "InputBox", "12")
        self.ask("Keyboard Scaling For Midi Volumes", "InputBox", "20")
        self.ask("Horizontal Instrument", "Change Mouse Horizontal Instrument Dialog", "12")
        self.ask("Vertical Instrument", "Change Mouse Vertical Instrument Dialog", "40")
        self.ask("Mouse Melody Format", "The Present Preset Number is 2", "3")
        self.ask("Voice Volume", "InputBox", "55")
        self.hand.tap("F12", "F12")
        since = now()
        self.panel.press("Voice Mike")
        self.pointalk.heard.wait_words("Voice is now Mike.", SOON, since)

    def test_what_was_changed_is_found_again_as_the_file_keeps_it(self):
        with self.desktop.pointalk() as self.pointalk:
            self.start(self.pointalk)
            self.assertEqual(self.pointalk.file("PTK.ini"), settings_text())
            self.change_everything()
            self.panel.quit(self.pointalk)
            kept = {"VerticalVolume": 45, "HorizontalVolume": 45, "DoDingVolume": 45, "VoiceSelection": 1, "VoiceVolume": 55,
                    "MouseMelodyFormat": 2, "InstrumentPreset": 0}
            scaling = written_scaling(20)
            self.assertEqual(self.pointalk.file("PTK.ini"),
                             settings_text(**kept, VoiceSpeed=75, KeyboardScaling=scaling, VerticalInstrument=12,
                                           HorizontalInstrument=40))

            since = now()
            self.start(self.pointalk)
            scaling = written_scaling(float(scaling))
            self.assertEqual(self.pointalk.file("PTK.ini"),
                             settings_text(**kept, VoiceSpeed=65, KeyboardScaling=scaling, VerticalInstrument=40,
                                           HorizontalInstrument=12))
            self.hears_the_voice_set_up(since)
            self.is_asked_with_what_was_found()
            self.panel.quit(self.pointalk)
            self.assertEqual(values(self.pointalk)["KeyboardScaling"], written_scaling(float(scaling)))

    def hears_the_voice_set_up(self, since):
        lines = [line for line in self.pointalk.heard.lines(since) if line.get("how") in ("put", "putref")]
        self.assertEqual([line["index"] for line in lines if line["what"] == "sapi5 voice"], [0, 1, 1])
        self.assertEqual([line["value"] for line in lines if line["what"] == "sapi5 volume"], [80, 55, 55])
        self.assertEqual([line["value"] for line in lines if line["what"] == "sapi5 rate"], [2, 5, 3, 3, 3])

    def is_asked_with_what_was_found(self):
        for entry in ("Horizontal Volume", "Vertical Volume", "Ding Volume"):
            self.assertEqual(self.ask(entry, "InputBox"), "45")
        self.assertEqual(self.ask("Horizontal Instrument", "Change Mouse Horizontal Instrument Dialog"), "12")
        self.assertEqual(self.ask("Vertical Instrument", "Change Mouse Vertical Instrument Dialog"), "40")
        self.assertEqual(self.ask("Mouse Melody Format", "The Present Preset Number is 3"), "3")
        self.assertEqual(self.ask("Voice Volume", "InputBox"), "55")
