#!/usr/bin/env python3
"""Builds and tests everything and ends with the line `N passed, N failed`; ./test prepares the machine and calls it.

    tools/run_tests.py [STEP...]

Without a name every step runs. Each step's output goes to build/test-logs/STEP.log. The counts are the runners' own; a
step that ends badly without a failed test to show for it, or that counts no test at all, is one failed.
tools/run_tests.py --list names the steps."""

import concurrent.futures
import contextlib
import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import threading
import time
import xml.etree.ElementTree

from wine_32_bits import what_is_missing

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = ROOT / "build"
LOGS = BUILD / "test-logs"
WINDOWS = BUILD / "mingw-x86_64-release"
WINDOWS_32 = BUILD / "mingw-i686-release"
GCC = BUILD / "linux-asan-gcc"
FUZZ = BUILD / "fuzz"
PLAIN = BUILD / "plain"
TOOLS = ROOT / "tools"
SANITIZERS = {"ASAN_OPTIONS": "detect_leaks=1:strict_string_checks=1", "UBSAN_OPTIONS": "print_stacktrace=1"}
PREFIX_32 = BUILD / "test-prefix-32"
NO_DESKTOP = {"DISPLAY": "", "WINEPREFIX": ""}
MISSING_32 = what_is_missing()
BUILD_SECONDS = 1800
SHOWN = 60  # lines of a failed step's log that are shown
WIDTH = 400  # characters of such a line
KILLED = -signal.SIGKILL
TIDY = "clang-tidy-14"


class Step:
    """One command; `counts` reads its test counts from its output, or is None where it only builds. A step whose
    tool, named by `needs`, is not there is left out: the tools whose verdict depends on their release are not in every
    distribution. One with a text in `skipped`, which tells what to install, does not run and is counted as skipped."""

    def __init__(self, name, *command, seconds, counts=None, environment=None, folder=ROOT, needs=None, skipped=None):
        self.name = name
        self.command = [str(part) for part in command]
        self.seconds = seconds
        self.counts = counts
        self.environment = environment or {}  # a name with an empty value is taken out
        self.folder = folder
        self.needs = needs
        self.skipped = skipped
        self.running = None
        self.log = LOGS / f"{name}.log"

    def report(self):
        """Where GoogleTest leaves its own report."""
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
            passed, failed = self.counts(self)
        except (OSError, ValueError, xml.etree.ElementTree.ParseError) as error:
            return 0, 1, f"exit status {status}, no counts: {error}"
        if status == KILLED and "wine" in self.command and passed:
            status = 0  # on a busy machine the Wine server kills a program that takes over a second to leave
        if status and not failed:
            return passed, 1, f"{passed} passed, but exit status {status}"
        if not passed and not failed:
            return 0, 1, "ran no test"
        return passed, failed, f"{passed} passed, {failed} failed"

    def execute(self):
        environment = {**os.environ, **self.environment}
        environment = {name: value for name, value in environment.items() if value or name not in self.environment}
        self.report().unlink(missing_ok=True)  # an earlier run's
        with open(self.log, "wb") as log:
            process = subprocess.Popen(self.command, cwd=self.folder, stdin=subprocess.DEVNULL, stdout=log,
                                       stderr=subprocess.STDOUT, env=environment, start_new_session=True)
            self.running = process
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

    def what_failed(self):
        """The lines of the log that tell it: unittest's from its first failure on, GoogleTest's own marks, else the end."""
        try:
            lines = [line[:WIDTH] for line in self.log.read_text("utf-8", "replace").splitlines()]
        except OSError:
            return []
        if "=" * 70 in lines:
            return lines[lines.index("=" * 70):][:SHOWN]
        marked = [number for number, line in enumerate(lines) if ": Failure" in line or "[  FAILED  ]" in line]
        return lines[marked[0]:][:SHOWN] if marked else lines[-SHOWN:]


def last_line(step):
    """The counts that our own runners print last."""
    found = re.findall(r"^(\d+) passed, (\d+) failed$", step.log.read_text("utf-8", "replace"), re.M)
    if not found:
        raise ValueError("no last line")
    return int(found[-1][0]), int(found[-1][1])


def gtest_report(step):
    """The counts of GoogleTest's own report."""
    top = xml.etree.ElementTree.parse(step.report()).getroot()
    number = {key: int(top.get(key, 0)) for key in ("tests", "failures", "disabled", "errors")}
    skipped = sum(int(suite.get("skipped", 0)) for suite in top.iter("testsuite"))
    failed = number["failures"] + number["errors"]
    return number["tests"] - failed - number["disabled"] - skipped, failed


def check(name, *arguments, needs=None):
    return Step(f"check-{name}", sys.executable, TOOLS / f"check_{name}.py", *arguments, seconds=60, counts=last_line,
                needs=needs)


def python_tests(name, folder, seconds, *files, launcher=(), **options):
    return Step(name, *launcher, sys.executable, TOOLS / "run_unittests.py", folder, *files, seconds=seconds, counts=last_line,
                **options)


def gtest(name, program, *launcher, seconds=300, **options):
    report = LOGS / f"{name}.xml"
    drive = "Z:" if launcher else ""  # under Wine, where a test may make another drive the current one
    return Step(name, *launcher, program, f"--gtest_output=xml:{drive}{report}", seconds=seconds, counts=gtest_report,
                folder=program.parent, **options)


def preset(name, target="all", settings=""):
    return Step(f"build-{name}", "sh", "-c",
                f"cmake --preset {name} {settings} && cmake --build --preset {name} --target {target}", seconds=BUILD_SECONDS)


def tidied_preset(name):
    """The preset's build, which clang-tidy goes along with: what the tidy preset does, without compiling once more."""
    if shutil.which(TIDY):
        return preset(name, settings=f"-DPOINTALK_CLANG_TIDY='{TIDY};--quiet'")
    print(f"left out clang-tidy: {TIDY} is not installed", flush=True)
    return preset(name)


def plain_build():
    """The build as a user without presets, and perhaps without anything for Windows, makes it."""
    return Step("build-plain", "sh", "-c",
                f"cmake -S . -B '{PLAIN}' && cmake --build '{PLAIN}' --target pointalk-rehearse -j {os.cpu_count()}",
                seconds=BUILD_SECONDS)


def rehearsals(name, build):
    return Step(name, sys.executable, TOOLS / "check_rehearsals.py", "--program", build / "pointalk-rehearse",
                seconds=300, counts=last_line, environment=SANITIZERS)


def thirty_two_bits(name, make, *arguments, build=WINDOWS_32, target_build=WINDOWS_32, **options):
    """A step over programs of 32 bits, on desktops of its own; the build is Pointalk's, the target's that of the programs
    that it reads."""
    environment = {**NO_DESKTOP, "POINTALK_WIN_BUILD": str(build), "POINTALK_TARGET_BUILD": str(target_build),
                   "POINTALK_PREFIX_BASE": str(PREFIX_32), "WINEDEBUG": "-all"}
    return make(name, *arguments, environment=environment, skipped=MISSING_32, **options)


FIRST = [
    python_tests("self-tests", TOOLS / "tests", seconds=120),
    check("layers"),
    check("names"),
    check("sizes"),
    check("guide"),
    check("format", needs="clang-format-14"),
    preset("mingw-x86_64-release"),
]
# These mostly wait for sounds and windows, so both lists go on beside the native steps and beside one another.
COMPANIONS = [
    python_tests("wine", ROOT / "tests" / "wine", seconds=900),
    gtest("contract-win32", WINDOWS / "pointalk_contract.exe", "wine", seconds=600),
    python_tests("packages", ROOT / "tests" / "packages", seconds=600),
]
WHOLE_PROGRAM = [
    python_tests("win32", ROOT / "tests" / "win32", seconds=1200),
]
MAKE_THEIR_DESKTOPS = ("win32", "packages")
NATIVE = [
    preset("linux-asan-gcc"),
    gtest("tests", GCC / "pointalk_tests", environment=SANITIZERS),
    gtest("contract-sim", GCC / "pointalk_contract", environment=SANITIZERS),
    plain_build(),
    rehearsals("rehearsals", PLAIN),
    tidied_preset("fuzz"),
    rehearsals("rehearsals-clang", FUZZ),
    Step("fuzz", sys.executable, TOOLS / "run_fuzzers.py", FUZZ, seconds=600, counts=last_line, environment=SANITIZERS),
    preset("mingw-i686-release", "Pointalk" if MISSING_32 else "all"),
    check("tests_built", GCC, FUZZ, WINDOWS),
    check("exe", WINDOWS / "Pointalk.exe", WINDOWS_32 / "Pointalk.exe"),
    check("packages", WINDOWS / "Pointalk.exe", WINDOWS_32 / "Pointalk.exe"),
]

# What the 64-bit program passes, over the 32-bit one, and each of both over programs of the other width. They come last.
OVER_THE_OTHER = ("test_exe_names", "test_exe_controls", "test_exe_lists", "test_exe_texts")
ON_DESKTOP_32 = (TOOLS / "on_desktop.py", WINDOWS_32)
WIN32 = ROOT / "tests" / "win32"
THIRTY_TWO_BITS = [
    thirty_two_bits("prefix-32", Step, "sh", "-c", f"rm -rf '{PREFIX_32}' && wine/prefix.sh make '{PREFIX_32}'", seconds=300),
    thirty_two_bits("contract-32", gtest, WINDOWS_32 / "pointalk_contract.exe", *ON_DESKTOP_32, "wine", seconds=900),
    thirty_two_bits("wine-32", python_tests, ROOT / "tests" / "wine", 1200, launcher=ON_DESKTOP_32),
    thirty_two_bits("packages-32", python_tests, ROOT / "tests" / "packages", 900),
    thirty_two_bits("win32-32", python_tests, WIN32, 2400),
    thirty_two_bits("win32-32-over-64", python_tests, WIN32, 900, *OVER_THE_OTHER, target_build=WINDOWS),
    thirty_two_bits("win32-64-over-32", python_tests, WIN32, 900, *OVER_THE_OTHER, build=WINDOWS),
]


@contextlib.contextmanager
def virtual_screen():
    """An X server of our own on a free display; yields the display's name."""
    reading, writing = os.pipe()
    command = ["Xvfb", "-displayfd", str(writing), "-screen", "0", "1280x1024x24", "-nolisten", "tcp"]
    with open(LOGS / "xvfb.log", "wb") as log:
        server = subprocess.Popen(command, pass_fds=(writing,), stdin=subprocess.DEVNULL, stdout=log,
                                  stderr=subprocess.STDOUT)
    os.close(writing)
    try:
        with open(reading, encoding="ascii") as answer:
            number = answer.readline().strip()
        if not number:
            raise OSError("Xvfb did not start")
        yield f":{number}"
    finally:
        server.terminate()
        server.wait(10)


@contextlib.contextmanager
def windows_desktop():
    """A fresh Wine prefix with both speech engines on a screen of its own, and an untouched one beside it; yields the
    environment of the programs there."""
    untouched, prefix = BUILD / "test-prefix-untouched", BUILD / "test-prefix"
    for folder in (untouched, prefix):
        shutil.rmtree(folder, ignore_errors=True)
    with virtual_screen() as display:
        environment = {
            "DISPLAY": display, "WINEPREFIX": str(prefix), "WINEARCH": "win64", "WINEDEBUG": "-all",
            "WINEDLLOVERRIDES": "mscoree,mshtml,winedbg.exe,winemenubuilder.exe=;winmm=n,b", "POINTALK_WIN_BUILD": str(WINDOWS),
            "POINTALK_PREFIX_BASE": str(untouched),
        }
        with open(LOGS / "prefix.log", "wb") as log:
            def run(*command, seconds):
                subprocess.run([str(part) for part in command], env={**os.environ, **environment}, timeout=seconds,
                               check=True, stdin=subprocess.DEVNULL, stdout=log, stderr=subprocess.STDOUT)
            maker = ROOT / "wine" / "prefix.sh"
            run(maker, "make", untouched, seconds=300)
            run(maker, "copy", untouched, prefix, seconds=120)
            run(maker, "engines", prefix, "both", WINDOWS / "wine" / "pointalk_voice.dll", seconds=120)
            run("wineserver", "-w", seconds=60)  # the one that registered the engines still lingers
            run("wineserver", "-p", seconds=30)
            try:
                yield environment
            finally:
                with contextlib.suppress(subprocess.SubprocessError):
                    run("wineserver", "-k", seconds=30)
                    run("wineserver", "-w", seconds=30)


class Tally:
    def __init__(self):
        self.passed = 0
        self.failed = 0
        self.skipped = 0
        self.stopped = False
        self._lock = threading.Lock()

    def add(self, name, passed, failed, words, seconds, tail=()):
        with self._lock:
            self.passed += passed
            self.failed += failed
            print(f"{'ok    ' if not failed else 'FAILED'} {name:24} {words} ({seconds:.0f} s)", flush=True)
            if failed:
                for line in tail:
                    print(f"       | {line}", flush=True)

    def run(self, steps):
        for step in steps:
            if self.stopped:
                return
            if step.needs and not shutil.which(step.needs):
                print(f"left out {step.name}: {step.needs} is not installed", flush=True)
                continue
            if step.skipped:
                self.skipped += 1
                print(f"skipped {step.name}: {step.skipped}", flush=True)
                continue
            began = time.monotonic()
            passed, failed, words = step.run()
            self.add(step.name, passed, failed, words, time.monotonic() - began, step.what_failed())

    @contextlib.contextmanager
    def ending(self, steps):
        """When what is done meanwhile is cut short, so are these steps, which another thread runs."""
        try:
            yield
        except BaseException:
            self.stopped = True
            for step in steps:
                step.end()
            raise

    def run_under_wine(self, steps, others):
        if not steps + others:
            return
        began = time.monotonic()
        try:
            with windows_desktop() as environment, concurrent.futures.ThreadPoolExecutor(1) as beside:
                for step in steps + others:
                    step.environment.update(environment)
                    if step.name in MAKE_THEIR_DESKTOPS:  # from the untouched prefix
                        step.environment.update(NO_DESKTOP)
                self.add("prefix", 0, 0, "ready", time.monotonic() - began)
                meanwhile = beside.submit(self.run, others)
                with self.ending(others):
                    self.run(steps)
                    meanwhile.result()
        except (OSError, subprocess.SubprocessError) as error:
            self.add("prefix", 0, 1, str(error), time.monotonic() - began)


def main():
    names = [step.name for step in FIRST + COMPANIONS + WHOLE_PROGRAM + NATIVE + THIRTY_TWO_BITS]
    if sys.argv[1:] == ["--list"]:
        print(*names, sep="\n")
        return
    unknown = set(sys.argv[1:]) - set(names)
    if unknown:
        sys.exit(f"no such step: {', '.join(sorted(unknown))}")

    def wanted(steps):
        return [step for step in steps if not sys.argv[1:] or step.name in sys.argv[1:]]

    signal.signal(signal.SIGTERM, lambda *_: sys.exit(128 + signal.SIGTERM))  # so that what was started is ended
    LOGS.mkdir(parents=True, exist_ok=True)
    tally = Tally()
    tally.run(wanted(FIRST))
    for step in NATIVE:
        step.command = ["nice", "-n", "10", *step.command]  # what waits for a sound or a window goes first
    with concurrent.futures.ThreadPoolExecutor(1) as beside:
        native = beside.submit(tally.run, wanted(NATIVE))
        with tally.ending(NATIVE):
            tally.run_under_wine(wanted(COMPANIONS), wanted(WHOLE_PROGRAM))
            native.result()
    tally.run(wanted(THIRTY_TWO_BITS))
    if tally.skipped:
        print(f"{tally.skipped} steps skipped")
    print(f"{tally.passed} passed, {tally.failed} failed")
    sys.exit(1 if tally.failed or not tally.passed else 0)


if __name__ == "__main__":
    main()
