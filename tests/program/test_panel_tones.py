"""The Midi menu by keys: what is asked, said and saved for good, bad and cancelled answers."""

from harness import names_desktop, now, settings_text, visit, written_scaling
from panel_case import AWAY, SOON, PanelCase, values

PRESETS = {1: (50, 50), 3: (35, 44)}  # lower and higher tone
PRESET_PROMPT = "Please select a Mouse Instument Preset (1 thru 8)"
FORMAT_PROMPT = ("Please select a Mouse Melody Format (1 thru 4)\r\n\r\n1 = Two Tone Chromatic\r\n2 = Two Tone Scales\r\n"
                 "3 = One Tone Chromatic\r\n4 = One Tone Scales")


class Volumes(PanelCase):
    start_settings = settings_text(VerticalVolume=60, KeyboardScaling=50)

    def ask(self, name, present, answer, of=None):
        prompt = f"{of or name} is now {present} percent.  Please enter the New value for {name}."
        entry = "Keyboard Scaling For Midi Volumes" if of else name
        self.number(entry, "InputBox", prompt, str(present), answer)

    def test_horizontal_volume(self):
        present = 60
        for answer, then in (("35.5", 36), ("abc", 36), (None, 36)):
            with self.subTest(answer):
                self.ask("Horizontal Volume", present, answer)
                present = then
        self.saved(VerticalVolume=60, HorizontalVolume=60, DoDingVolume=60)

    def test_vertical_volume_is_saved_for_all_three(self):
        self.ask("Vertical Volume", 60, "45")
        self.saved(VerticalVolume=45, HorizontalVolume=45, DoDingVolume=45)
        for answer in ("none", None):
            self.ask("Vertical Volume", 45, answer)
        self.ask("Vertical Volume", 45, "60")
        self.saved(VerticalVolume=60, HorizontalVolume=60, DoDingVolume=60)

    def test_ding_volume_is_kept_and_not_saved(self):
        self.ask("Ding Volume", 60, "12")
        self.saved(DoDingVolume=60)
        self.ask("Ding Volume", 12, "0")
        self.ask("Ding Volume", 0, None)

    def test_keyboard_scaling(self):
        name, of = "Keyboard Scaling", "Keyboard Scaling for Midi Note Volume"
        self.ask(name, 50, "20", of)
        self.saved(KeyboardScaling=written_scaling(20))
        for answer in ("x", None):
            self.ask(name, 20, answer, of)
        self.saved(KeyboardScaling=written_scaling(20))


class Instruments(PanelCase):
    start_settings = settings_text(VerticalVolume=60)

    def port_was_closed_meanwhile(self, since):
        self.pointalk.heard.wait(lambda line: line["what"] == "midi open", SOON, since, "the port open")
        port = [line["what"] for line in self.pointalk.heard.lines(since) if line["what"] in ("midi close", "midi open")]
        self.assertEqual(port, ["midi close", "midi open"])

    def test_instruments_of_both_tones(self):
        for entry, which, tone, key in (("Horizontal Instrument", "horizontal", "higher", "VerticalInstrument"),
                                        ("Vertical Instrument", "vertical", "lower", "HorizontalInstrument")):
            prompt = f"Please enter new {which} instrument number\r\n\r\n(This is for the {tone} sounding tone)"
            present = values(self.pointalk)[key]
            for answer, then in (("12", 12), ("many", 12), (None, 12)):
                with self.subTest(entry, answer=answer):
                    since = now()
                    self.number(entry, f"Change Mouse {entry.split()[0]} Instrument Dialog", prompt, str(present), answer)
                    present = then
                    self.saved(**{key: then, "InstrumentPreset": 0})
                    self.port_was_closed_meanwhile(since)

    def test_presets(self):
        present = values(self.pointalk)["InstrumentPreset"]
        for preset, (lower, higher) in PRESETS.items():
            with self.subTest(preset):
                since = now()
                self.number("Mouse Instrument Preset", f"The Present Preset Number is {present}", PRESET_PROMPT, str(present),
                            str(preset))
                present = preset
                self.saved(InstrumentPreset=preset, VerticalInstrument=higher, HorizontalInstrument=lower)
                self.port_was_closed_meanwhile(since)
        for answer in ("9", None):
            with self.subTest(answer):
                self.number("Mouse Instrument Preset", "The Present Preset Number is 3", PRESET_PROMPT, "3", answer)
                self.saved(InstrumentPreset=3, VerticalInstrument=44, HorizontalInstrument=35)

    def test_melody_formats(self):
        present = int(values(self.pointalk)["MouseMelodyFormat"]) + 1
        for answer, then in (("4", 4), ("5", 4), (None, 4), ("2", 2)):
            with self.subTest(answer):
                since = now()
                self.number("Mouse Melody Format", f"The Present Preset Number is {present}", FORMAT_PROMPT, str(present), answer)
                present = then
                self.saved(MouseMelodyFormat=then - 1)
                self.port_was_closed_meanwhile(since)

    def test_tones_play_the_chosen_instruments_and_none_when_midi_is_off(self):
        present = values(self.pointalk)["InstrumentPreset"]
        self.number("Mouse Instrument Preset", f"The Present Preset Number is {present}", PRESET_PROMPT, present, "3")
        since = now()
        self.wander()
        self.pointalk.heard.wait(lambda line: line.get("value") == hex(0xC0 + 13 + 44 * 256), SOON, since, "instrument 44")
        self.pointalk.heard.wait(lambda line: line.get("value") == hex(0xC0 + 14 + 35 * 256), SOON, since, "instrument 35")
        since = now()
        self.panel.choose("Midi On/Off")
        self.pointalk.heard.wait(lambda line: line["what"] == "midi close", SOON, since, "the port closed")
        self.panel.wait_for_keyboard()
        since = now()
        self.wander()
        visit(self.hand, self.pointalk.heard, AWAY, names_desktop, "the desktop", SOON, since)
        self.assertEqual(self.pointalk.heard.midi(since), [])
        self.panel.choose("Midi On/Off")
        self.pointalk.heard.wait(lambda line: line["what"] == "midi open", SOON, since, "the port open")
        self.panel.wait_for_keyboard()
        since = now()
        self.wander()
        self.pointalk.heard.wait(lambda line: line["what"] == "midi", SOON, since, "tones")

    def wander(self):
        """Over the panel, so that the desktop is new again, and back."""
        self.hand.glide(AWAY, (20, 12), steps=10)
        self.hand.glide((20, 12), AWAY, steps=10)
