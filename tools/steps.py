"""The steps of tools/run_tests.py: a command with its log, its limit, how far it is, and what it counted."""

import contextlib
import os
import pathlib
import re
import shutil
import signal
import subprocess
import xml.etree.ElementTree

ROOT = pathlib.Path(__file__).resolve().parent.parent
LOGS = ROOT / "build" / "test-logs"
SHOWN = 60  # lines of a failed step's log that are shown
WIDTH = 400  # characters of such a line
TAIL = 4096  # bytes of a running step's log that tell how far it is
KILLED = -signal.SIGKILL
# How ninja, pytest and GoogleTest say how far they are.
PROGRESS = (re.compile(r"\[(\d+/\d+)\]"), re.compile(r"\[ *(\d+)%\]"))
GTEST_DONE, GTEST_ALL = re.compile(r"^\[ +(?:OK|FAILED) +\]", re.M), re.compile(r"^\[=+\] Running (\d+) tests", re.M)


class Step:
    """One command; `counts` reads its test counts from its output, or is None where it only builds. A step that `lacks`
    something (a function that says what, or an empty text) is skipped: what decides its verdict is not on every system."""

    needs = ()  # the steps that build what it uses

    def __init__(self, name, *command, seconds, counts=None, environment=None, folder=ROOT, lacks=lambda: ""):
        self.name = name
        self.command = [str(part) for part in command]
        self.seconds = seconds
        self.counts = counts
        self.environment = environment or {}  # a name with an empty value is taken out
        self.folder = folder
        self.lacks = lacks
        self.niceness = 0  # of its processes: how far it yields to other steps
        self.running = None
        self.log = LOGS / f"{name}.log"

    def report(self):
        """Where GoogleTest and pytest leave their own report."""
        return self.log.with_suffix(".xml")

    def run(self):
        """Runs it and returns (passed, failed, what to say)."""
        try:
            status = self.execute()
        except subprocess.TimeoutExpired:
            return 0, 1, f"ended after {self.seconds} s"
        except OSError as error:
            return 0, 1, str(error)
        if not self.counts:
            return 0, int(status != 0), "built" if status == 0 else f"exit status {status}"
        try:
            passed, failed, skipped = self.counts(self)
        except (OSError, ValueError, xml.etree.ElementTree.ParseError) as error:
            return 0, 1, f"exit status {status}, no counts: {error}"
        if status == KILLED and "wine" in self.command and passed:
            status = 0  # on a busy machine the Wine server kills a program that takes over a second to leave
        if status and not failed:
            return passed, 1, f"{passed} passed, but exit status {status}"
        if not passed and not failed:
            return 0, 1, "ran no test"
        return passed, failed, f"{passed} passed, {failed} failed" + (f", {skipped} skipped" if skipped else "")

    def execute(self):
        environment = {**os.environ, **self.environment}
        environment = {name: value for name, value in environment.items() if value or name not in self.environment}
        self.report().unlink(missing_ok=True)  # an earlier run's
        with open(self.log, "wb") as log:
            process = subprocess.Popen(["nice", "-n", str(self.niceness), *self.command], cwd=self.folder, env=environment,
                                       stdin=subprocess.DEVNULL, stdout=log, stderr=subprocess.STDOUT, start_new_session=True)
            self.running = process
            # Linux shares the machine among sessions, whatever the niceness of the processes in one.
            with contextlib.suppress(OSError):
                pathlib.Path(f"/proc/{process.pid}/autogroup").write_text(str(self.niceness), "ascii")
            try:
                return process.wait(self.seconds)
            finally:
                self.end()

    def end(self):
        """Ends it with all that it started, if it runs."""
        process, self.running = self.running, None
        if process:
            with contextlib.suppress(ProcessLookupError):
                os.killpg(process.pid, signal.SIGKILL)
            process.wait()

    def progress(self):
        """How far it is, as `57/128` or `45 %`; empty where its log does not tell."""
        try:
            with open(self.log, "rb") as log:
                text = log.read().decode("utf-8", "replace")
        except OSError:
            return ""
        whole = GTEST_ALL.search(text)
        if whole:
            return f"{len(GTEST_DONE.findall(text))}/{whole[1]}"
        for pattern, unit in zip(PROGRESS, ("", " %")):
            found = pattern.findall(text[-TAIL:])
            if found:
                return found[-1] + unit
        return ""

    def what_failed(self):
        """The lines of the log that tell it: pytest's from its first failure on, GoogleTest's own marks, else the end."""
        try:
            lines = [line[:WIDTH] for line in self.log.read_text("utf-8", "replace").splitlines()]
        except OSError:
            return []
        marked = [number for number, line in enumerate(lines)
                  if re.match(r"=+ (FAILURES|ERRORS) =+$", line) or ": Failure" in line or "[  FAILED  ]" in line]
        return lines[marked[0]:][:SHOWN] if marked else lines[-SHOWN:]


def last_line(step):
    """The counts that our own runners print last; they skip none."""
    found = re.findall(r"^(\d+) passed, (\d+) failed$", step.log.read_text("utf-8", "replace"), re.M)
    if not found:
        raise ValueError("no last line")
    return int(found[-1][0]), int(found[-1][1]), 0


def report_counts(step):
    """The counts of a report as GoogleTest and pytest write it: passed, failed, skipped."""
    passed = failed = skipped = 0
    for suite in xml.etree.ElementTree.parse(step.report()).getroot().iter("testsuite"):
        number = {key: int(suite.get(key, 0)) for key in ("tests", "failures", "errors", "skipped", "disabled")}
        bad = number["failures"] + number["errors"]
        left_out = number["skipped"] + number["disabled"]
        failed += bad
        skipped += left_out
        passed += number["tests"] - bad - left_out
    return passed, failed, skipped


def lacks_program(name):
    """Says that a program is not installed."""
    return lambda: "" if shutil.which(name) else f"{name} is not installed"
