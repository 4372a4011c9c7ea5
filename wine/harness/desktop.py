"""A Windows desktop under Wine: a screen and a prefix."""

import contextlib
import fcntl
import os
import pathlib
import select
import shutil
import subprocess
import tempfile

from .hand import Hand
from .pointalk import Pointalk
from .programs import KILLED_AT_ITS_END, Probe, Target, bits_of, command_for

ROOT = pathlib.Path(__file__).resolve().parents[2]
# Where the programs for Windows were built.
BUILD = pathlib.Path(os.environ.get("POINTALK_WIN_BUILD", ROOT / "build" / "mingw-x86_64-release"))
# Where the stand-in for other people's programs was built, which may be of the other width.
TARGET_BUILD = pathlib.Path(os.environ.get("POINTALK_TARGET_BUILD", BUILD))
PREFIX_TOOL = ROOT / "wine" / "prefix.sh"
REGEDIT_ATTEMPTS = 3
OVERRIDES = "mscoree,mshtml,winedbg.exe,winemenubuilder.exe=;winmm=n,b"


class Desktop:
    """The desktop that DISPLAY and WINEPREFIX name, or one of its own when they are not both set or when it is to be private.

    Its own one is a copy of the prefix that POINTALK_PREFIX_BASE names (by default one in the build folder, made when it is
    missing), with the given speech engines, on an X server of its own of that size. One desktop is for one test at a time."""

    def __init__(self, private=False, engines="sapi5", screen="1280x1024"):
        self._own = private or not {"DISPLAY", "WINEPREFIX"} <= os.environ.keys()
        self._engines = engines
        self._screen = screen
        self._server = None
        self._runs = 0
        # Notes are written down and not played: FluidSynth takes a second of a core each time it begins.
        self.environment = {**os.environ, "WINEARCH": "win64", "WINEDEBUG": "-all", "WINEDLLOVERRIDES": OVERRIDES,
                            "POINTALK_FLUIDSYNTH": "true"}

    def __enter__(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="pointalk-desktop-"))
        try:
            if self._own:
                self._start_server()
                self._copy_prefix()
        except BaseException:
            self.close()
            raise
        return self

    def __exit__(self, *_):
        self.close()

    # Without -noreset the server begins anew when its last client goes, and turns away one that comes meanwhile.
    def _start_server(self):
        reading, writing = os.pipe()
        self._server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writing), "-screen", "0", self._screen + "x24", "-nolisten", "tcp", "-noreset"],
            pass_fds=(writing,), stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(writing)
        with open(reading, encoding="ascii") as answer:
            told, _, _ = select.select([answer], [], [], 100)
            number = answer.readline().strip() if told else ""
        if not number:
            raise OSError("Xvfb did not start")
        self.environment["DISPLAY"] = f":{number}"

    def _copy_prefix(self):
        prefix = self.folder / "prefix"
        self.run(PREFIX_TOOL, "copy", self._ready_prefix(), prefix, seconds=1000)
        self.environment["WINEPREFIX"] = str(prefix)
        self.run("wineserver", "-p", seconds=100)

    def _ready_prefix(self):
        """The prefix with these engines, which is made once for each build of them; tests at the same time share it."""
        base = pathlib.Path(os.environ.get("POINTALK_PREFIX_BASE", BUILD / "wine-prefix"))
        # The engines are there for a Pointalk of either build.
        libraries = {bits_of(build / "Pointalk.exe"): [build / "wine" / f"pointalk_{name}.dll" for name in ("voice", "automation")]
                     for build in (TARGET_BUILD, BUILD)}
        ready = base.with_name("-".join(map(str, (base.name, self._engines, *sorted(libraries)))))
        base.parent.mkdir(parents=True, exist_ok=True)
        with open(base.with_name(f"{base.name}.lock"), "w", encoding="ascii") as lock:
            fcntl.flock(lock, fcntl.LOCK_EX)
            self.run(PREFIX_TOOL, "make", base, seconds=1000)
            mark = ready / "made-of"
            made_of = " ".join(str(file.stat().st_mtime_ns) for file in (*sum(libraries.values(), []), base / "pointalk-ready"))
            if not mark.exists() or mark.read_text("ascii") != made_of:
                shutil.rmtree(ready, ignore_errors=True)
                self.run(PREFIX_TOOL, "copy", base, ready, seconds=1000)
                self.environment["WINEPREFIX"] = str(ready)
                for voice, automation in libraries.values():
                    self.run(PREFIX_TOOL, "engines", ready, self._engines, voice, seconds=1000)
                    self.run(PREFIX_TOOL, "automation", ready, automation, seconds=1000)
                self._end_wine()
                mark.write_text(made_of, "ascii")
        return ready

    def run(self, *command, seconds, cwd=None):
        """Runs a program to its end and returns what it printed; an exception when it fails or takes longer."""
        done = subprocess.run([str(part) for part in command], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL, timeout=seconds, check=False, env=self.environment, cwd=cwd)
        if done.returncode != KILLED_AT_ITS_END or command[0] != "wine":
            done.check_returncode()
        return done.stdout

    def target(self, *layouts, unaware=False):
        """unaware: of the screen's scale; it then counts in pixels of its own, and so do the places that it is given and gives."""
        words = [word for layout in layouts for word in ("--layout", layout)]
        if unaware:
            words += ["--awareness", "unaware"]
        return Target(command_for(TARGET_BUILD / "wine" / "target" / "target.exe", *words), self.environment)

    def probe(self):
        return Probe(command_for(BUILD / "wine" / "probe" / "probe.exe"), self.environment)

    def hand(self):
        return Hand(self.environment)

    def pointalk(self, settings=None, first_run=False, build=BUILD):
        """A Pointalk that is not started yet, in a folder of its own."""
        self._runs += 1
        return Pointalk(build, self.folder / f"Pointalk{self._runs}", self.environment, settings, first_run)

    def screenshot(self, path):
        self.run("import", "-window", "root", path, seconds=100)

    def pixels(self, left, top, width, height):
        """What a part of the screen shows: rows of bytes, three to a pixel."""
        image = self.run("import", "-window", "root", "-crop", f"{width}x{height}+{left}+{top}", "-depth", "8", "rgb:-",
                         seconds=100)
        return [image[row * width * 3:(row + 1) * width * 3] for row in range(height)]

    def drive(self):
        """The folder that is C:."""
        return pathlib.Path(self.environment["WINEPREFIX"]) / "drive_c"

    def bits(self):
        """How wide the programs of the build are."""
        return bits_of(BUILD / "Pointalk.exe")

    def import_keys(self, text):
        """Takes registry keys over, as regedit's files hold them."""
        path = self.folder / "keys.reg"
        path.write_bytes(b"REGEDIT4\r\n\r\n" + text.replace("\n", "\r\n").encode("cp1252"))
        for attempt in range(REGEDIT_ATTEMPTS):
            try:
                self.run("wine", "regedit", "/S", "Z:" + str(path).replace("/", "\\"), seconds=200)
                return
            except subprocess.CalledProcessError:  # seen once, on a new desktop of a busy machine; why was not found out
                if attempt == REGEDIT_ATTEMPTS - 1:
                    raise

    def restart(self):
        """Ends every program of a private desktop; the next one finds it as it is after a log-on."""
        self._end_wine()
        self.run("wineserver", "-p", seconds=100)

    def _end_wine(self):
        for option in ("-k", "-w"):
            with contextlib.suppress(subprocess.CalledProcessError):  # nothing was running
                self.run("wineserver", option, seconds=100)

    def close(self):
        try:
            if self._own and self.environment.get("WINEPREFIX", "").startswith(str(self.folder)):
                self._end_wine()
        finally:
            if self._server:
                self._server.terminate()
                self._server.wait(100)
            shutil.rmtree(self.folder, ignore_errors=True)
