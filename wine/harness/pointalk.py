"""Runs of Pointalk.exe."""

import pathlib
import shutil
import subprocess

from .heard import Heard, now
from .programs import command_for
from .waiting import wait_until


class Run:
    """The Pointalk that lies in a folder, with Wine's synthesizer beside it. The folder outlives the run: start() may
    follow end()."""

    def __init__(self, build, folder, environment):
        self.folder = pathlib.Path(folder)
        shutil.copy2(build / "wine" / "winmm.dll", self.folder)
        self.heard = Heard(self.folder / "heard.jsonl")
        self._environment = {**environment, "POINTALK_HEARD": str(self.heard.path)}
        self.process = None
        self._began = 0

    def start(self, directory=None, command=None, **environment):
        """Starts the program, in its own folder or another directory, by its path or a command that lasts as long; names and
        values are added to its environment."""
        self._began = now()
        self.process = self.launch(directory, command, **environment)
        return self

    def launch(self, directory=None, command=None, **environment):
        """The same beside what was started before; returns the process, which is the caller's."""
        return subprocess.Popen(command or command_for(self.folder / "Pointalk.exe"), cwd=directory or self.folder,
                                stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                env={**self._environment, **environment})

    def wait_ready(self, limit=300):
        """Waits for the greeting of a run that is not the first."""
        self.heard.wait_words("Pointalk is running.  Hit F1 any time for help.", limit, self._began)

    def wait_running(self, limit=300):
        """Waits until its timer runs: just before, the port is asked for a second time."""
        asked = lambda: [line for line in self.heard.lines(self._began) if line["what"] == "midi devices"]
        wait_until(lambda: len(asked()) == 2, limit, lambda: f"Pointalk runs; heard {self.heard.lines(self._began)[-5:]}")

    def file(self, name):
        """A text file of the folder, None when it is not there."""
        path = self.folder / name
        return path.read_bytes().decode("cp1252") if path.exists() else None

    def running(self):
        return self.process is not None and self.process.poll() is None

    def wait_for_end(self, limit=100):
        wait_until(lambda: not self.running(), limit, "Pointalk ends")

    def kill(self):
        """Ends it as a crash would."""
        if self.running():
            self.process.kill()
        if self.process is not None:
            self.process.wait(100)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.kill()


class Pointalk(Run):
    """A run in a new folder; settings is the text of PTK.ini, or None for none."""

    def __init__(self, build, folder, environment, settings=None, first_run=False):
        folder.mkdir(parents=True)
        shutil.copy2(build / "Pointalk.exe", folder)
        if settings is not None:
            (folder / "PTK.ini").write_bytes(settings.encode("cp1252"))
        if not first_run:
            (folder / "DidWarn.flg").write_bytes(b"Been there done that.\r\n")
        super().__init__(build, folder, environment)
