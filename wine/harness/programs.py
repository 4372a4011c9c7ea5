"""Programs that take one line and answer with one JSON line: target.exe and probe.exe."""

import contextlib
import json
import pathlib
import queue
import struct
import subprocess
import tempfile
import threading


MACHINE_OF_32_BITS = 0x014C
# The loader of Debian's Wine for programs of 64 bits. Where there is one for 32 bits as well, `wine` is that one: it has another
# program start those of 64 bits, and whoever started it could stop or kill only that.
LOADER_OF_64_BITS = pathlib.Path("/usr/lib/wine/wine64")


def bits_of(program):
    """How wide a program for Windows is."""
    with open(program, "rb") as file:
        file.seek(60)
        header, = struct.unpack("<I", file.read(4))
        file.seek(header + 4)
        return 32 if struct.unpack("<H", file.read(2)) == (MACHINE_OF_32_BITS,) else 64


def command_for(program, *arguments):
    """The command whose process is the program itself."""
    direct = bits_of(program) == 64 and LOADER_OF_64_BITS.exists()
    return [str(part) for part in (LOADER_OF_64_BITS if direct else "wine", program, *arguments)]


# The status of a program that took over a second to leave on a busy machine: the Wine server kills it then.
KILLED_AT_ITS_END = -9


def quoted(value):
    """A word of the command channel; pure ASCII, lone surrogates and all."""
    if isinstance(value, bool):
        return str(int(value))
    if isinstance(value, (tuple, list)):
        return ",".join(str(part) for part in value)
    return json.dumps(str(value))


class LineProgram:
    """A running program that is driven through its standard input."""

    def __init__(self, command, environment, limit=100):
        self._complaints = tempfile.TemporaryFile()
        self.process = subprocess.Popen([str(part) for part in command], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        stderr=self._complaints, env=environment)
        self._lines = queue.Queue()
        self._reader = threading.Thread(target=self._read, daemon=True)
        self._reader.start()
        self.greeting = []
        try:
            while not self.greeting or "ready" not in self.greeting[-1]:
                self.greeting.append(self._next(limit))
        except BaseException:
            self.close()
            raise

    def _read(self):
        with self.process.stdout as answers:
            for line in answers:
                self._lines.put(line)
        self._lines.put(None)

    def _next(self, limit):
        try:
            line = self._lines.get(timeout=limit)
        except queue.Empty:
            raise TimeoutError(f"no answer within {limit} s") from None
        if line is None:
            self._lines.put(None)
            raise EOFError(self._end())
        return json.loads(line)

    def _end(self):
        """How it ended, for the message of a test that failed."""
        with contextlib.suppress(subprocess.TimeoutExpired):
            self.process.wait(10)
        self._complaints.seek(0)
        return f"the program has ended with {self.process.poll()}: {self._complaints.read()[-2000:].decode(errors='replace')}"

    def ask(self, *words, limit=100, **options):
        """Sends one command and returns its reply. RuntimeError when the program refuses it, EOFError when it ends over
        it."""
        parts = [quoted(word) for word in words] + [f"{key}={quoted(value)}" for key, value in options.items()]
        try:
            self.process.stdin.write(" ".join(parts).encode("ascii") + b"\n")
            self.process.stdin.flush()
        except BrokenPipeError:
            raise EOFError(self._end()) from None
        reply = self._next(limit)
        if "error" in reply:
            raise RuntimeError(f"{' '.join(parts)[:200]}: {reply['error']}")
        return reply

    def wait_for_end(self, limit=100):
        """Its exit status; subprocess.TimeoutExpired if it goes on."""
        return self.process.wait(limit)

    def close(self):
        if self.process.poll() is None:
            self.process.kill()
        self.process.wait(100)
        self._reader.join(10)
        self._complaints.close()
        with contextlib.suppress(BrokenPipeError):
            self.process.stdin.close()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()


class Probe(LineProgram):
    """Looks at windows from outside."""


class Target(LineProgram):
    """Stands in for other people's programs. `windows` tells, by name, what is known of each window."""

    def __init__(self, command, environment, limit=100):
        super().__init__(command, environment, limit)
        self.windows = {line["name"]: line for line in self.greeting[:-1]}
        self.id = self.greeting[-1]["process"]

    def create(self, name, /, **options):
        """Makes a window; `class_` stands for class, a rectangle is four numbers in screen pixels."""
        options = {key.rstrip("_"): value for key, value in options.items()}
        self.windows[name] = self.ask("create", name, **options)
        return self.windows[name]

    def destroy(self, name):
        self.ask("destroy", name)
        del self.windows[name]

    def element(self, window, number, /, **options):
        """Changes a part of the window's own accessible object; 0 is the whole."""
        self.ask("element", window, number, **options)

    def handle(self, name):
        return self.windows[name]["hwnd"]

    def centre(self, name):
        left, top, right, bottom = self.windows[name]["rect"]
        return (left + right) // 2, (top + bottom) // 2

    def place(self, name, what, index):
        """The centre of an item, a label, a character or a menu title, in screen pixels."""
        left, top, right, bottom = self.ask("where", name, what, index)["rect"]
        return (left + right) // 2, (top + bottom) // 2

    def rule(self, name, message, *words):
        self.ask("rule", name, message, *words)

    def counts(self, name):
        """How many of which messages other programs have sent to the window."""
        return self.ask("counts", name)["counts"]

    def all_counts(self):
        """The same of all windows, those without any left out."""
        return {name: counts for name, counts in self.ask("counts")["counts"].items() if counts}

    def blocks(self):
        """The small private blocks of its memory, by address."""
        return {block["base"]: block for block in self.ask("memory")["blocks"]}
