"""What is chosen on the panel: the formats of the tones, settings that last, the crash report, the start with the session."""

import shutil
import stat

import pytest

import panel as keys
from desktop import LIMIT
from panel import Panel
from session import PROGRAM, RECORDER, Session, place, wait_for_name, wait_for_tones

LOWER, HIGHER = 14, 13  # channels
# By format: the channels and notes of two places.
NOTES = (
    {(700, 900): {(HIGHER, 86), (LOWER, 42)}, (960, 400): {(HIGHER, 90), (LOWER, 52)}},
    {(700, 900): {(HIGHER, 85), (LOWER, 42)}, (960, 400): {(HIGHER, 88), (LOWER, 51)}},
    {(700, 900): {(LOWER, 46)}, (960, 400): {(LOWER, 84)}},
    {(700, 900): {(LOWER, 45)}, (960, 400): {(LOWER, 85)}},
)
LINK = "mailto:support@pointalk.example?subject=CrashReport"


class OnePanel:
    """pointalk in whose path there are no programs but those that a test puts there."""

    def __init__(self, desktop):
        self.desktop = desktop
        self.programs = desktop.folder / "programs"
        self.programs.mkdir()
        self.session = Session(desktop, PATH=str(self.programs))
        self.panel = Panel(desktop)

    def make_crash_report(self):
        self.panel.choose(keys.TROUBLE, keys.CRASH_REPORT)
        self.panel.answer("Crash Report Dialog", "y")
        before = len(self.desktop.said())
        self.desktop.wait_until(lambda: any("Right Click on the object" in text for text in self.desktop.said()[before - 1:]))
        self.session.wait_for_name(place(0, 5), "A label")

        def is_made():
            for step in range(20):  # only what is moved over is described
                self.desktop.move(*place(0, 5, 40 + step % 2))
                if step == 0:
                    self.desktop.output("xdotool", "click", "3")
            return any("create an email message" in text for text in self.desktop.said()[before:])
        self.desktop.wait_until(is_made)

    def shown(self):
        """What a box shows is also written there."""
        return (self.desktop.folder / "pointalk.err").read_text(encoding="utf-8")

    def tones_since(self, before):
        return {note[:2] for note in self.desktop.notes()[before:] if note[0] in (LOWER, HIGHER)}

    def stop_auto_start(self, entry):
        self.panel.choose(keys.PROGRAM_MENU, keys.MAKE_NOT_AUTO_START)
        self.panel.answer("Pointalk", "Return")
        self.desktop.wait_until(lambda: not entry.exists())

    def sounds(self, melody_format):
        """Each place has its notes and no other."""
        wait_for_tones(self.desktop)
        for (x, y), expected in NOTES[melody_format].items():
            before = len(self.desktop.notes())
            self.desktop.move(x, y)
            self.desktop.wait_until(lambda since=before, notes=expected: self.tones_since(since) == notes)


@pytest.fixture(scope="module", name="one")
def make_one(desktop):
    return OnePanel(desktop)


def test_the_voice_is_set_up_as_the_settings_say(one):
    """A rate of 3 out of 10, a volume of 80 percent."""
    commands = [line.get("command", "") for line in one.desktop.heard()]
    assert [command for command in commands if "SELF RATE" in command][-1] == "SET SELF RATE 30"
    assert [command for command in commands if "SELF VOLUME" in command][-1] == "SET SELF VOLUME 60"


def test_an_open_menu_of_the_panel_is_read(one):
    one.panel.bring_up()
    closed = set(one.desktop.windows_of_pointalk())
    one.desktop.open_menu(lambda: one.panel.press("alt+f"))
    menu, = set(one.desktop.windows_of_pointalk()) - closed
    geometry = one.desktop.output("xdotool", "getwindowgeometry", "--shell", menu.decode()).decode()
    shown = dict(line.split("=") for line in geometry.split())
    left, top, height = (int(shown[name]) for name in ("X", "Y", "HEIGHT"))
    minimize, leave = (left + 20, top + height // 4), (left + 20, top + height * 3 // 4)
    wait_for_name(one.desktop, leave, "Exit menu", minimize)
    wait_for_name(one.desktop, minimize, "Minimize Control Panel  menu", leave)
    one.panel.press("Escape", "Escape")


def test_every_format_has_its_tones(one):
    present = 2
    for number in (1, 2, 3, 4):
        one.panel.ask_number(keys.MELODY_FORMAT, f"The Present Preset Number is {present}", number)
        one.panel.wait_until_saved(MouseMelodyFormat=str(number - 1))
        one.sounds(number - 1)
        present = number


def test_what_was_set_lasts(one):
    present = one.panel.settings()
    one.panel.ask_number(keys.MELODY_FORMAT, f"The Present Preset Number is {int(present['MouseMelodyFormat']) + 1}", 3)
    one.panel.ask_number(keys.VERTICAL_VOLUME, "InputBox", 35)
    one.panel.bring_up()
    one.panel.press("F12")
    speed = int(present["VoiceSpeed"])
    one.panel.wait_until_saved(MouseMelodyFormat="2", VerticalVolume="35", VoiceSpeed=str(speed + 5))
    before = len(one.desktop.said())
    one.session.start_again()
    one.panel.wait_until_saved(MouseMelodyFormat="2", VerticalVolume="35")
    one.sounds(2)
    one.panel.ask_number(keys.VERTICAL_VOLUME, "InputBox", 35)
    assert any(text.startswith("Vertical Volume is now 35 percent") for text in one.desktop.said()[before:])


def test_an_instrument_beyond_the_last_one_is_counted_from_the_first(one):
    one.panel.ask_number(keys.VERTICAL_INSTRUMENT, "Change Mouse Vertical Instrument Dialog", 231)
    wait_for_tones(one.desktop)
    programs = [line.split()[2:4] for line in one.desktop.notes_log.read_text(encoding="ascii").splitlines() if "program" in line]
    assert [str(LOWER), str(231 - 128)] in programs


def test_the_device_sleeps_where_nothing_sounds_and_wakes(one):
    """The last lines of the log are those of the synthesizer."""
    def last():
        return one.desktop.notes_log.read_text(encoding="ascii").splitlines()[-1].split()[1]
    one.desktop.wait_until(lambda: last() == "close")
    lines = len(one.desktop.notes_log.read_text(encoding="ascii").splitlines())
    wait_for_tones(one.desktop)
    assert any(line.split()[1] == "open" for line in one.desktop.notes_log.read_text(encoding="ascii").splitlines()[lines:])


def test_without_a_mail_program_the_crash_report_names_the_package(one):
    one.make_crash_report()
    assert "install the package xdg-utils" in one.shown()
    [box] = one.desktop.windows("^Pointalk$")
    one.desktop.output("xdotool", "windowactivate", str(box))
    one.panel.answer("Pointalk", "Return")


def test_a_crash_report_is_mailed(one):
    mail = one.desktop.folder / "mail.txt"
    program = one.programs / "xdg-email"
    program.write_text(f'#!/bin/sh\necho "$*" >>"{mail}"\n', encoding="ascii")
    program.chmod(stat.S_IRWXU)
    one.make_crash_report()
    one.desktop.wait_until(lambda: mail.exists() and mail.read_text(encoding="ascii") == LINK + "\n")
    # What is to be pasted into the message is pasted into a field of the target.
    one.desktop.output("xdotool", "mousemove", *map(str, place(0, 6)), "click", "1", "key", "ctrl+a", "key", "ctrl+v")
    one.session.wait_for_name(place(0, 6), "m Official Class Name = Label")


def test_it_starts_with_the_session_as_long_as_that_is_wanted(one):
    entry = one.desktop.config.parent / "autostart" / "pointalk.desktop"
    assert not entry.exists()
    one.panel.choose(keys.PROGRAM_MENU, keys.MAKE_AUTO_START)
    one.panel.answer("Pointalk", "Return")
    one.desktop.wait_until(entry.exists)
    assert f'\nExec="{PROGRAM}"\n' in entry.read_text(encoding="utf-8")
    one.stop_auto_start(entry)


def test_it_starts_with_the_session_by_its_own_path_after_an_update(one):
    """The file that it was started from is another one then, or gone."""
    entry = one.desktop.config.parent / "autostart" / "pointalk.desktop"
    one.session.pointalk.terminate()
    assert one.session.pointalk.wait(LIMIT) == 0
    copy = one.desktop.folder / "installed" / "pointalk"
    copy.parent.mkdir()
    shutil.copy(PROGRAM, copy)
    one.session.pointalk = one.desktop.start_pointalk(copy, RECORDER, PATH=str(one.programs))
    copy.unlink()
    one.panel.choose(keys.PROGRAM_MENU, keys.MAKE_AUTO_START)
    one.panel.answer("Pointalk", "Return")
    one.desktop.wait_until(entry.exists)
    assert f'\nExec="{copy}"\n' in entry.read_text(encoding="utf-8")
    one.stop_auto_start(entry)
