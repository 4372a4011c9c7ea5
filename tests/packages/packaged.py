"""What the tests of the packages share: a desktop, the packages, and Pointalk as its user installs and removes it."""

import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

import yaml

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tools"))

from harness import BUILD, KILLED_AT_ITS_END, Desktop, Panel, Run, command_for, wait_until  # noqa: E402
from make_packages import describe_packages, make_packages, version  # noqa: E402

__all__ = ["APP_PATHS", "BUILD", "DONE_BEFORE", "KILLED_AT_ITS_END", "PackageCase", "ROOT", "RUN", "SOON", "UNINSTALL",
           "WELCOME", "version", "wait_until"]

SOON = 100  # seconds after which what has not come never will
AWAY = (900, 740)  # where the pointer waits, over the bare desktop
CURRENT_VERSION = r"Software\Microsoft\Windows\CurrentVersion"
APP_PATHS = "HKCU\\" + CURRENT_VERSION + r"\App Paths\Pointalk.exe"
UNINSTALL = "HKCU\\" + CURRENT_VERSION + r"\Uninstall\Pointalk"
RUN = "HKLM\\" + CURRENT_VERSION + r"\Run"
WELCOME = "Hello, and welcome to Pointalk"
DONE_BEFORE = b"Been there done that.\r\n"  # the mark of the first run


class PackageCase(unittest.TestCase):
    """Each test finds a desktop without Pointalk, and leaves it so."""

    @classmethod
    def prepare(cls):
        """Makes the one desktop of a module, and the packages."""
        enter = unittest.enterModuleContext
        cls.desktop = enter(Desktop(private=True))
        cls.desktop.environment["WINEDLLOVERRIDES"] += ";winemenubuilder.exe="  # no entries in the Linux desktop's menus
        cls.desktop.environment["POINTALK_ESPEAK"] = "true"  # speech that takes no time
        cls.view = f"/reg:{cls.desktop.bits()}"
        cls.probe = enter(cls.desktop.probe())
        cls.hand = enter(cls.desktop.hand())
        cls.hand.move(*AWAY)
        cls.panel = Panel(cls.probe, cls.hand, AWAY)
        folder = pathlib.Path(enter(tempfile.TemporaryDirectory()))
        cls.zip, cls.setup = make_packages(folder, BUILD / "Pointalk.exe")
        describe_packages(folder, [(cls.zip, cls.setup)])
        cls.manifest = yaml.safe_load(next(folder.glob("winget/*.installer.yaml")).read_text("utf-8"))
        cls.home, = [home for home in cls.desktop.drive().glob("users/*") if home.name != "Public"]
        cls.folder = cls.home / "AppData" / "Local" / "Programs" / "Pointalk"

    def setUp(self):
        self.addCleanup(self.clear)

    def clear(self):
        """Ends what a failed test left running, and removes what is installed with what removals keep."""
        if self.probe.ask("windows")["windows"]:
            self.end_pointalk()
        wait_until(lambda: not self.probe.ask("windows")["windows"], SOON,
                   lambda: f"an empty desktop: {self.probe.ask('windows')['windows']}")
        if self.registry(UNINSTALL):
            self.wine(*self.removing())
            self.wait_until_removed()
        for path in self.folder.glob("*"):
            path.unlink()

    def dos(self, path):
        """A path on C: as Windows writes it."""
        return "C:\\" + str(path.relative_to(self.desktop.drive())).replace("/", "\\")

    def wine(self, *command, seconds=300):
        """The exit status of a program of Windows."""
        return self.status("wine", *command, seconds=seconds)

    def status(self, *command, seconds=300):
        """The exit status of a command on the desktop."""
        return subprocess.run([str(part) for part in command], env=self.desktop.environment, timeout=seconds, check=False,
                              stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL).returncode

    def end_pointalk(self):
        """By the taskkill of its own width, for that of 32 bits sees no programs of 64."""
        of_64_bits = command_for(self.desktop.drive() / "windows" / "system32" / "taskkill.exe")
        taskkill = of_64_bits if self.desktop.bits() == 64 else ["wine", "taskkill"]
        self.status(*taskkill, "/f", "/im", "Pointalk.exe")

    def begin(self, *command):
        """Starts a program of Windows that will ask, and what that starts is heard; it ends with the test at the latest."""
        environment = {**self.desktop.environment, "POINTALK_HEARD": str(self.folder / "heard.jsonl")}
        process = subprocess.Popen(["wine", *map(str, command)], env=environment, stdin=subprocess.DEVNULL,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.addCleanup(process.wait, SOON)
        self.addCleanup(process.kill)
        return process

    def registry(self, key):
        """The values of a key by their names, as the packaged program sees it; empty when there is no such key."""
        run = subprocess.run(["wine", "reg", "query", key, self.view], env=self.desktop.environment, timeout=300, check=False,
                             stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        return dict(re.findall(r"^ {4}(.+?) {4}REG_\w+ {4}(.*?)\r*$", run.stdout.decode("cp1252"), re.M))

    def files(self):
        """What lies in the program's folder, by name; empty when there is no such folder."""
        return {path.relative_to(self.folder).as_posix(): path.read_bytes() for path in self.folder.rglob("*")}

    def shortcuts(self):
        programs = self.home / "AppData" / "Roaming" / "Microsoft" / "Windows" / "Start Menu" / "Programs"
        return {path.stem: path for path in programs.glob("*.lnk")}

    def removing(self, value="QuietUninstallString"):
        """The command that the list of programs holds; a copy of the program goes on after the program itself has ended."""
        return re.fullmatch(r'"(.*)"(?: (.*))?', self.registry(UNINSTALL)[value]).group(1, 2)

    def wait_until_removed(self):
        """Until the entry is gone, which goes last."""
        wait_until(lambda: not self.registry(UNINSTALL), SOON, lambda: f"removed; there is {sorted(self.files())}")

    def pointalk(self, folder):
        """The Pointalk that lies there, not started yet."""
        return self.enterContext(Run(BUILD, folder, self.desktop.environment))
