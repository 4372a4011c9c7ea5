"""A desktop without a screen, a sound card or a voice, for running pointalk beside other programs.

    with Desktop(folder) as desktop:
        desktop.start("gtk3-widget-factory")
        pointalk = desktop.start_pointalk(program)
        desktop.move(300, 200)
        desktop.wait_until(lambda: "Cut button" in desktop.said())

It has an X server, a window manager and a message bus of its own, a speech-dispatcher that only writes down, and a
synthesizer whose notes are written down where the recorder is preloaded. Everything that was started is ended with it.
"""

import contextlib
import ctypes
import json
import os
import pathlib
import select
import signal
import subprocess
import sys
import time

HERE = pathlib.Path(__file__).resolve().parent
LIMIT = 60  # seconds, which only end a wait for ever
KEY_LIMIT = 2  # seconds after which what an X server or a new window has not taken is tried again
LIBC = ctypes.CDLL(None)
PR_SET_PDEATHSIG = 1


def end_with_us():
    """In a program that is being started: however its parent ends, it ends too."""
    LIBC.prctl(PR_SET_PDEATHSIG, signal.SIGKILL)


def next_line(pipe, limit=LIMIT):
    """The next line that a program writes to a pipe, without its end; what follows stays in the pipe. TimeoutError when it takes
    longer than the limit, EOFError when the program ends before."""
    end = time.monotonic() + limit
    line = b""
    while not line.endswith(b"\n"):
        ready, _, _ = select.select([pipe], [], [], max(0, end - time.monotonic()))
        if not ready:
            raise TimeoutError(f"no whole line within {limit} s, only {line}")
        byte = os.read(pipe.fileno(), 1)
        if not byte:
            raise EOFError(f"the program has ended, and wrote only {line}")
        line += byte
    return line[:-1]


class Desktop(contextlib.ExitStack):
    def __init__(self, folder, size="1280x1024", window_manager="openbox"):
        super().__init__()
        self.folder = pathlib.Path(folder)
        self.size = size
        self.window_manager = window_manager
        self.speech_log = self.folder / "speech.jsonl"
        self.notes_log = self.folder / "notes.txt"
        self.socket = self.folder / "speechd.sock"
        self.config = self.folder / "config" / "pointalk"
        self.programs = []
        self.recorder = None

    def __enter__(self):
        super().__enter__()
        self.callback(self.end_all)
        try:
            self.begin()
        except BaseException:
            self.close()
            raise
        return self

    def begin(self):
        self.folder.mkdir(parents=True, exist_ok=True)
        runtime = self.folder / "runtime"
        runtime.mkdir(mode=0o700, exist_ok=True)
        keep = ("PATH", "LD_LIBRARY_PATH", "TMPDIR")
        self.env = {name: os.environ[name] for name in keep if name in os.environ}
        self.env.update(HOME=str(self.folder), XDG_RUNTIME_DIR=str(runtime), XDG_CONFIG_HOME=str(self.folder / "config"),
                        LANG="C.UTF-8", GTK_A11Y="atspi", NO_AT_BRIDGE="0", LIBGL_ALWAYS_SOFTWARE="1")
        self.env["DISPLAY"] = self.start_server()
        self.env["DBUS_SESSION_BUS_ADDRESS"] = self.start_bus()
        self.env["SPEECHD_ADDRESS"] = f"unix_socket:{self.socket}"
        if self.window_manager:
            self.start(self.window_manager)
            self.wait_until(lambda: b"_NET_SUPPORTING_WM_CHECK(WINDOW)" in self.output("xprop", "-root"))

    # Without -noreset the server begins anew when its last client goes, and takes one with it that comes meanwhile.
    def start_server(self):
        reading, writing = os.pipe()
        self.start("Xvfb", "-screen", "0", f"{self.size}x24", "-nolisten", "tcp", "-noreset", "-displayfd",
                   str(writing), pass_fds=(writing,))
        os.close(writing)
        with os.fdopen(reading) as display:
            return f":{next_line(display).decode()}"

    def start_bus(self):
        bus = self.start("dbus-daemon", "--session", "--nofork", "--print-address=1", stdout=subprocess.PIPE)
        return next_line(bus.stdout).decode()

    def start(self, *command, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, pass_fds=(), **env):
        """Starts a program on the desktop; further names are its environment."""
        with open(self.folder / (pathlib.Path(command[0]).name + ".err"), "ab") as errors:
            program = subprocess.Popen([str(part) for part in command], env={**self.env, **env}, stdin=stdin, stdout=stdout,
                                       stderr=errors, pass_fds=pass_fds, cwd=self.folder, start_new_session=True,
                                       preexec_fn=end_with_us)
        self.programs.append(program)
        return program

    def start_voice(self, *options):
        """Starts the recording speech-dispatcher."""
        self.recorder = self.start_recorder(self.socket, self.speech_log, *options)
        return self.recorder

    def start_recorder(self, socket, log, *options):
        """Starts another one, for a program that has its SPEECHD_ADDRESS."""
        recorder = self.start(sys.executable, HERE / "ssip_recorder.py", socket, log, *options, stdout=subprocess.PIPE)
        assert next_line(recorder.stdout) == b"ready"
        return recorder

    def start_sound(self):
        """Starts a sound server whose only device plays to nobody, in the time that a real one would take."""
        server = self.start("pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--load=module-null-sink",
                            "--load=module-native-protocol-unix")
        self.wait_until(lambda: b"null" in self.output("pactl", "list", "short", "sinks"))
        return server

    def start_pointalk(self, program, preload=None, **env):
        """Starts pointalk as a user who has agreed to the terms, and waits for its greeting."""
        self.config.mkdir(parents=True, exist_ok=True)
        (self.config / "DidWarn.flg").write_text("Been there done that.\r\n", encoding="ascii")
        if not (self.config / "PTK.ini").exists():
            (self.config / "PTK.ini").write_bytes((HERE.parent / "packaging" / "PTK.ini").read_bytes())
        if preload:
            env.update(LD_PRELOAD=str(preload), POINTALK_NOTES=str(self.notes_log))
        before = len(self.said())
        started = self.start(program, **env)
        self.wait_until(lambda: any("Pointalk is running" in text for text in self.said()[before:]))
        return started

    def output(self, *command):
        return subprocess.run([str(part) for part in command], env=self.env, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL, stdin=subprocess.DEVNULL, check=False, timeout=LIMIT).stdout

    def move(self, x, y):
        self.output("xdotool", "mousemove", str(x), str(y))

    def windows(self, name):
        """The numbers of the windows of that name, once there is one."""
        found = []

        def look():
            found[:] = self.output("xdotool", "search", "--onlyvisible", "--name", name).split()
            return found

        self.wait_until(look)
        return [int(number) for number in found]

    def windows_of_pointalk(self):
        """Their numbers, those of open menus among them."""
        return self.output("xdotool", "search", "--onlyvisible", "--class", "^pointalk$").split()

    def open_menu(self, press):
        """Has a menu of Pointalk's panel opened by press."""
        before = len(self.windows_of_pointalk())
        self.press_until(press, lambda: len(self.windows_of_pointalk()) > before)

    def active_window(self):
        """The name of the window that has the keyboard."""
        return self.output("xdotool", "getactivewindow", "getwindowname").decode().strip()

    def answer_box(self, title, press):
        """Has the box of that title, which comes, closed by press."""
        self.wait_until(lambda: self.active_window() == title)
        self.press_until(press, lambda: self.active_window() != title)

    def press_until(self, press, condition):
        """Calls press until the condition holds: a window that has just come up may not know yet that it has the keyboard."""
        def holds():
            press()
            with contextlib.suppress(TimeoutError):
                self.wait_until(condition, KEY_LIMIT)
                return True
            return False

        self.wait_until(holds)

    def heard(self):
        """Everything that the recording speech-dispatcher has written down."""
        if not self.speech_log.exists():
            return []
        lines = self.speech_log.read_text(encoding="utf-8").split("\n")
        return [json.loads(line) for line in lines[:-1]]

    def said(self):
        return [line["say"] for line in self.heard() if "say" in line]

    def notes(self):
        """The notes that were started, as (channel, key, velocity)."""
        if not self.notes_log.exists():
            return []
        rows = [line.split() for line in self.notes_log.read_text(encoding="ascii").split("\n")[:-1]]
        return [tuple(map(int, row[2:])) for row in rows if row[1] == "noteon"]

    @contextlib.contextmanager
    def stopped(self, process):
        """Stops a program for a while, but not while it has the X server to itself: nobody could move the pointer then."""
        self.wait_until(lambda: self._stops(process))
        try:
            yield
        finally:
            os.kill(process.pid, signal.SIGCONT)

    def _stops(self, process):
        os.kill(process.pid, signal.SIGSTOP)
        try:
            return subprocess.run(["xdotool", "getmouselocation"], env=self.env, stdout=subprocess.DEVNULL, check=False,
                                  timeout=KEY_LIMIT).returncode == 0
        except subprocess.TimeoutExpired:
            os.kill(process.pid, signal.SIGCONT)
            return False

    def wait_until(self, condition, limit=LIMIT):
        end = time.monotonic() + limit
        while not condition():
            if time.monotonic() > end:
                raise TimeoutError("what was waited for did not come")
            time.sleep(0.02)

    def end_all(self):
        for program in reversed(self.programs):
            with contextlib.suppress(ProcessLookupError):
                os.killpg(program.pid, signal.SIGCONT)
                os.killpg(program.pid, signal.SIGTERM)
        for program in reversed(self.programs):
            try:
                program.wait(5)
            except subprocess.TimeoutExpired:
                with contextlib.suppress(ProcessLookupError):
                    os.killpg(program.pid, signal.SIGKILL)
                program.wait(LIMIT)
            for pipe in (program.stdin, program.stdout):
                if pipe:
                    with contextlib.suppress(BrokenPipeError):
                        pipe.close()
