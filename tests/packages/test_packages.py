"""The packages on a desktop: unpacked, installed, started, updated and removed."""

import unittest
import zipfile

from packaged import (APP_PATHS, BUILD, DONE_BEFORE, KILLED_AT_ITS_END, ROOT, RUN, SOON, UNINSTALL, WELCOME, PackageCase, version,
                      wait_until)

LEFT, RUNNING = 1, 3  # exit codes of the installer
BUSY = ("Pointalk is running. Please end it: choose File, then Exit, in its control panel. Then choose Retry here. Cancel "
        "leaves everything as it is.")
INSTALLED = "Pointalk is installed. It is in the Start menu. Start it now?"
# All that a user may have.
WRITTEN = {"PTK.ini": b"VoiceVolume = 33\r\n", "status.txt": b"stopped\r\n", "ClassName.txt": b"Edit\r\n",
           "BadClasses.txt": b"Evil\r\n", "DidWarn.flg": DONE_BEFORE}


def setUpModule():
    PackageCase.prepare()


tearDownModule = unittest.doModuleCleanups


class Zip(PackageCase):
    """Unpacked by somebody who never had Pointalk."""

    def test_a_first_start_can_be_heard(self):
        with zipfile.ZipFile(self.zip) as package:
            package.extractall(self.desktop.folder)
        folder = self.desktop.folder / f"Pointalk-{version()}"
        pointalk = self.pointalk(folder).start()
        pointalk.heard.wait(lambda line: line.get("text", "").startswith(WELCOME), SOON)
        self.panel.answer("Pointalk", "y")
        self.panel.answer("Pointalk Instructions", "Return")
        wait_until(lambda: pointalk.file("DidWarn.flg") == DONE_BEFORE.decode(), SOON, "the mark of the first run")
        self.assertEqual([line["value"] for line in pointalk.heard.lines() if line["what"] == "sapi5 volume"][-1], 80)

        self.hand.move(300, 300)
        velocity = lambda line: line["what"] == "midi" and int(line["value"], 16) & 0xFF == 0x9D and int(line["value"], 16) >> 16
        self.assertEqual(velocity(pointalk.heard.wait(velocity, SOON)), 60)
        settings = pointalk.file("PTK.ini").splitlines()
        for line in ("VerticalVolume = 60", "HorizontalVolume = 60", "DoDingVolume = 60", "VoiceVolume = 80"):
            self.assertIn(line, settings)

        self.panel.open()
        self.panel.quit(pointalk)
        self.assertEqual(pointalk.file("status.txt"), "stopped\r\n")


class Silent(PackageCase):
    """The installer without a word, as a script runs it."""

    def setUp(self):
        super().setUp()
        silently = self.manifest["InstallerSwitches"]["Silent"]
        self.assertIn(self.wine(self.setup, silently), (0, KILLED_AT_ITS_END))

    def write(self, files):
        for name, data in files.items():
            (self.folder / name).write_bytes(data)

    def test_an_installation_leaves_its_files_and_its_entries(self):
        files = self.files()
        uninstaller = files.pop("Uninstall.exe")
        self.assertEqual(uninstaller[:2], b"MZ")
        self.assertEqual(files, {"Pointalk.exe": (BUILD / "Pointalk.exe").read_bytes(),
                                 "guide.html": (ROOT / "docs" / "guide.html").read_bytes(),
                                 "PTK.ini": (ROOT / "packaging" / "PTK.ini").read_bytes()})
        self.assertEqual(sorted(self.shortcuts()), ["Pointalk", "Pointalk Guide"])
        folder = self.dos(self.folder)
        self.assertEqual(self.registry(APP_PATHS), {"(Default)": folder + r"\Pointalk.exe", "Path": folder})
        size = sum(map(len, files.values())) // 1024
        self.assertEqual(self.registry(UNINSTALL), {
            "DisplayName": "Pointalk", "DisplayVersion": version(), "DisplayIcon": folder + r"\Pointalk.exe",
            "Publisher": "Corvane", "InstallLocation": folder, "EstimatedSize": hex(size), "NoModify": "0x1", "NoRepair": "0x1",
            "UninstallString": f'"{folder}\\Uninstall.exe"', "QuietUninstallString": f'"{folder}\\Uninstall.exe" /S'})

    def test_winget_finds_the_entry_and_the_exit_codes_that_it_is_told(self):
        told, = self.manifest["AppsAndFeaturesEntries"]
        written = {**self.registry(UNINSTALL), "ProductCode": UNINSTALL.rpartition("\\")[2]}
        self.assertEqual(told, {name: written[name] for name in ("DisplayName", "Publisher", "DisplayVersion", "ProductCode")})
        self.assertEqual(self.manifest["ProductCode"], written["ProductCode"])
        codes = {code["ReturnResponse"]: code["InstallerReturnCode"] for code in self.manifest["ExpectedReturnCodes"]}
        self.assertEqual(codes, {"cancelledByUser": LEFT, "packageInUse": RUNNING})

    def test_the_start_menu_starts_it_in_its_own_folder(self):
        pointalk = self.pointalk(self.folder)
        pointalk.start(self.desktop.folder, ["wine", "start", "/wait", self.dos(self.shortcuts()["Pointalk"])])
        pointalk.heard.wait(lambda line: line.get("text", "").startswith(WELCOME), SOON)
        self.panel.answer("Pointalk", "y")
        self.panel.answer("Pointalk Instructions", "Return")
        wait_until(lambda: pointalk.file("DidWarn.flg") == DONE_BEFORE.decode(), SOON, "the mark of the first run")
        self.assertIn("VerticalVolume = 60\r\n", pointalk.file("PTK.ini"))
        self.panel.open()
        self.panel.quit(pointalk)

    def test_its_bare_name_starts_it_by_the_entry(self):
        everyone = APP_PATHS.replace("HKCU", "HKLM")  # Wine knows only what is there for everyone
        self.addCleanup(self.wine, "reg", "delete", everyone, "/f")
        for name, value in self.registry(APP_PATHS).items():
            self.wine("reg", "add", everyone, *(["/ve"] if name == "(Default)" else ["/v", name]), "/d", value, "/f")
        self.write({"DidWarn.flg": DONE_BEFORE})
        pointalk = self.pointalk(self.folder)
        pointalk.start(self.desktop.drive() / "windows", ["wine", "start", "/wait", "Pointalk.exe"])
        pointalk.wait_ready(SOON)

    def test_an_update_brings_the_program_and_keeps_what_the_user_has(self):
        new = self.files()
        self.write({"Pointalk.exe": b"old", "guide.html": b"old", "Uninstall.exe": b"old", **WRITTEN})
        self.assertIn(self.wine(self.setup, "/S"), (0, KILLED_AT_ITS_END))
        self.assertEqual(self.files(), {**new, **WRITTEN})

    def test_an_update_goes_where_the_last_one_went(self):
        self.wine(*self.removing())
        self.wait_until_removed()
        elsewhere = self.desktop.drive() / "Elsewhere"
        self.assertIn(self.wine(self.setup, "/S", "/D=" + self.dos(elsewhere)), (0, KILLED_AT_ITS_END))
        (elsewhere / "Pointalk.exe").unlink()
        self.assertIn(self.wine(self.setup, "/S"), (0, KILLED_AT_ITS_END))
        self.assertTrue((elsewhere / "Pointalk.exe").exists())
        self.assertEqual(list(self.files()), ["PTK.ini"])  # which the removal kept
        self.wine(*self.removing())
        self.wait_until_removed()
        self.assertEqual([path.name for path in elsewhere.iterdir()], ["PTK.ini"])

    def test_a_removal_keeps_what_the_user_has_and_nothing_else(self):
        self.write({**WRITTEN, "PTK.ini.new": b"half"})
        self.wine("reg", "add", RUN, "/v", "Pointalk", "/d", "Pointalk.exe", "/f", self.view)
        self.wine("reg", "add", RUN, "/v", "Other", "/d", "Other.exe", "/f", self.view)
        self.wine(*self.removing())
        self.wait_until_removed()
        self.assertEqual(self.files(), WRITTEN)
        self.assertEqual((self.shortcuts(), self.registry(APP_PATHS)), ({}, {}))
        self.assertEqual(self.registry(RUN).keys() & {"Pointalk", "Other"}, {"Other"})

    def test_while_it_runs_nothing_changes(self):
        self.write({"DidWarn.flg": DONE_BEFORE})
        pointalk = self.pointalk(self.folder).start()
        pointalk.wait_ready()
        (self.folder / "guide.html").write_bytes(b"old")
        self.assertIn(self.wine(self.setup, "/S"), (RUNNING, KILLED_AT_ITS_END))
        uninstaller, silently = self.removing()
        self.assertIn(self.wine(uninstaller, silently, "_?=" + self.dos(self.folder)), (RUNNING, KILLED_AT_ITS_END))
        self.assertEqual(self.files()["guide.html"], b"old")
        self.assertTrue({"Pointalk.exe", "Uninstall.exe", "PTK.ini"} <= self.files().keys())
        self.assertTrue(pointalk.running())
        self.assertNotEqual(self.registry(UNINSTALL), {})


class Boxes(PackageCase):
    """The installer as its user hears it: every question is a message box, answered by keys."""

    def answer(self, title, text, *keys):
        self.assertIn(text, self.panel.answer(title, *keys)["texts"])

    def begin_to_install(self, *keys):
        setup = self.begin(self.setup)
        self.answer("Pointalk Setup", f"Pointalk {version()} will be installed for you alone, in the folder "
                    f"{self.dos(self.folder)}. Settings that are there already stay as they are.", *keys)
        return setup

    def begin_to_remove(self, *keys):
        uninstaller, _ = self.removing("UninstallString")
        self.begin(uninstaller)
        self.answer("Pointalk Uninstall", "Pointalk will be removed. Shall your settings, and what it has learnt, be removed "
                    f"too? Yes removes all. No keeps them in the folder {self.dos(self.folder)}. Cancel leaves everything as "
                    "it is.", *keys)

    def test_who_leaves_it_has_nothing_installed(self):
        self.assertEqual(self.begin_to_install("Escape").wait(SOON), LEFT)
        self.assertEqual((self.files(), self.shortcuts(), self.registry(UNINSTALL)), ({}, {}, {}))

    def test_its_first_box_has_the_keyboard_over_another_program(self):
        self.addCleanup(self.wine, "taskkill", "/f", "/im", "notepad.exe")
        self.begin("notepad")
        wait_until(lambda: self.panel.focus()["window"]["class"] == "Notepad", SOON, "a notepad with the keyboard")
        self.assertEqual(self.begin_to_install("Escape").wait(SOON), LEFT)

    def test_who_goes_on_may_start_it_at_once_and_has_to_end_it_for_an_update(self):
        setup = self.begin_to_install("Return")
        self.panel.box("Pointalk Setup")
        (self.folder / "DidWarn.flg").write_bytes(DONE_BEFORE)
        pointalk = self.pointalk(self.folder)
        self.answer("Pointalk Setup", INSTALLED, "y")
        self.assertEqual(setup.wait(SOON), 0)
        pointalk.wait_ready()

        setup = self.begin_to_install("Return")
        self.answer("Pointalk Setup", BUSY, "Escape")
        self.assertEqual(setup.wait(SOON), LEFT)
        setup = self.begin_to_install("Return")
        self.answer("Pointalk Setup", BUSY, "Return")  # in vain
        self.panel.box("Pointalk Setup")
        self.end_pointalk()
        self.answer("Pointalk Setup", BUSY, "Return")
        self.answer("Pointalk Setup", INSTALLED, "n")
        self.assertEqual(setup.wait(SOON), 0)

    def test_a_removal_asks_about_the_settings(self):
        self.wine(self.setup, "/S")
        before = self.files()
        self.begin_to_remove("Escape")
        wait_until(lambda: not self.probe.ask("windows")["windows"], SOON, "the uninstaller has ended")
        self.assertEqual(self.files(), before)

        for name, data in WRITTEN.items():
            (self.folder / name).write_bytes(data)
        self.begin_to_remove("n")
        self.answer("Pointalk Uninstall", "Pointalk is removed.", "Return")
        self.assertEqual(self.files(), WRITTEN)

        self.wine(self.setup, "/S")
        (self.folder / "mine.txt").write_bytes(b"what the user put there")
        self.begin_to_remove("y")
        self.answer("Pointalk Uninstall", "Pointalk is removed.", "Return")
        self.assertEqual(list(self.files()), ["mine.txt"])

        self.wine(self.setup, "/S")
        (self.folder / "mine.txt").unlink()
        self.begin_to_remove("y")
        self.answer("Pointalk Uninstall", "Pointalk is removed.", "Return")
        wait_until(lambda: not self.folder.exists(), SOON, "the folder is removed")
