"""Settings files that nobody can want, and folders that nobody can write: Pointalk comes up all the same."""

import random

from harness import now, settings_text
from panel_case import SOON, DesktopCase

WHOLE = settings_text(VerticalVolume=60, VoiceSelection=1, KeyboardScaling=50)

# The bytes found, and the values written after them.
FILES = {
    "empty": (b"", {}),
    "noise": (random.Random(5).randbytes(200_000), {}),
    "another encoding": (WHOLE.encode("utf-16"), {}),
    "other line ends": (WHOLE.replace("\r\n", "\n").encode(), {"VerticalVolume": 60}),  # one line, and its first key counts
    "cut off": (WHOLE.encode()[:WHOLE.index("HorizontalVolume = ") + 21], {"VerticalVolume": 60}),
    "one long line": (b"x" * 1_000_000 + b"VerticalVolume = 20" + b"y" * 1_000_000, {"VerticalVolume": 20}),
}


class Damaged(DesktopCase):
    def test_files_of_other_hands(self):
        with self.desktop.pointalk() as pointalk:
            for name, (content, found) in FILES.items():
                with self.subTest(name):
                    (pointalk.folder / "PTK.ini").write_bytes(content)
                    self.begin(pointalk)
                    pointalk.wait_ready()
                    written = {**found, **{key: found["VerticalVolume"] for key in ("HorizontalVolume", "DoDingVolume")
                                           if "VerticalVolume" in found}}
                    pointalk.kill()
                    (pointalk.folder / "status.txt").unlink()
                    self.assertEqual(pointalk.file("PTK.ini"), settings_text(**written))

    def test_where_nothing_can_be_written_the_files_stay_and_everything_else_goes_on(self):
        with self.desktop.pointalk(WHOLE) as pointalk:
            (pointalk.folder / "status.txt").write_bytes(b"stopped\r\n")
            for name in ("PTK.ini", "status.txt", "DidWarn.flg"):  # in the way of what is to become the new file
                (pointalk.folder / f"{name}.new").mkdir()
            self.start(pointalk)
            self.hand.tap("F12")
            pointalk.heard.wait_words("speeding up voice", SOON)
            self.assertEqual(pointalk.file("PTK.ini"), WHOLE)
            self.panel.quit(pointalk)
            self.assertEqual(pointalk.file("PTK.ini"), WHOLE)
            self.assertEqual(pointalk.file("status.txt"), "stopped\r\n")

    def test_folders_in_the_files_places(self):
        with self.desktop.pointalk() as pointalk:
            places = [pointalk.folder / name for name in ("PTK.ini", "status.txt", "ClassName.txt", "BadClasses.txt")]
            for place in places:
                place.mkdir()
            self.start(pointalk)
            since = now()
            self.panel.choose("Vertical Volume")
            self.panel.answer("InputBox", typed="20")
            pointalk.heard.wait_words("Thank you.", SOON, since)
            self.panel.wait_for_keyboard()
            self.panel.quit(pointalk)
            for place in places:
                self.assertTrue(place.is_dir())
            self.assertEqual(list(pointalk.folder.glob("*.new")), [])
