"""The folder that Pointalk is started in may hold anything: no library is taken from it, whoever asks for one by its name."""

import shutil

from harness import wait_until
from panel_case import SOON, DesktopCase

VOICE = r"HKEY_LOCAL_MACHINE\Software\Classes\CLSID\{96749377-3391-11D2-9EE3-00C04F797396}\InprocServer32"
LIBRARY = "harbour_voice.dll"


class CurrentFolder(DesktopCase):
    def test_a_library_in_it_is_not_taken_for_the_voice_of_that_name(self):
        elsewhere, on_path = self.desktop.folder / "elsewhere", self.desktop.folder / "path"
        for folder in (elsewhere, on_path):
            folder.mkdir()
        (elsewhere / "DidWarn.flg").touch()
        (elsewhere / LIBRARY).write_bytes(b"no library")
        system = self.desktop.drive() / "windows" / ("system32" if self.desktop.bits() == 64 else "syswow64")
        shutil.copy(system / "pointalk_voice.dll", on_path / LIBRARY)
        self.desktop.import_keys(f'[{VOICE}]\n@="{LIBRARY}"\n')
        pointalk = self.enterContext(self.desktop.pointalk())
        self.hand.move(900, 740)
        pointalk.start(elsewhere, POINTALK_ESPEAK="true", WINEPATH="Z:" + str(on_path).replace("/", "\\"))
        wait_until(lambda: any(line["what"] == "sapi5 speak" for line in pointalk.heard.lines()), SOON, "the voice on the path")
