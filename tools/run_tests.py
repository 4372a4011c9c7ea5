#!/usr/bin/env python3
"""Builds and tests everything and ends with the line `N passed, N failed`; ./test prepares the machine and calls it.

    tools/run_tests.py [STEP...]

Without a name every step runs. Each step's output goes to build/test-logs/STEP.log. The counts are the runners' own; a
step that ends badly without a failed test to show for it, or that counts no test at all, is one failed, and so is one that
needs a step which failed. A step whose tool is not on this machine is skipped, and said to be. tools/run_tests.py --list
names the steps."""

import concurrent.futures
import contextlib
import signal
import sys
import threading
import time

from steps import LOGS, ROOT, Step, lacks_program, last_line, report_counts
from wine_32_bits import what_is_missing

BUILD = ROOT / "build"
WINDOWS = BUILD / "mingw-x86_64-release"
WINDOWS_32 = BUILD / "mingw-i686-release"
LINUX = BUILD / "linux-release"
CLANG = BUILD / "linux-asan-clang"
TOOLS = ROOT / "tools"
SANITIZERS = {"ASAN_OPTIONS": "detect_leaks=1:strict_string_checks=1", "UBSAN_OPTIONS": "print_stacktrace=1"}
BUILD_SECONDS = 6000  # ten times what the longest build takes
PREFIX = BUILD / "test-prefix"  # the untouched one that every desktop has a copy of
DESKTOPS = 3  # tests of the whole program that run at once: they mostly wait
TIDY = "clang-tidy-14"
IDLE = 0.75  # of the time of all cores, from which on the machine has no other work
HEARTBEAT = 20  # seconds without a line after which one says what runs


def check(name, *arguments, lacks=lambda: ""):
    return Step(f"check-{name}", sys.executable, TOOLS / f"check_{name}.py", *arguments, seconds=600, counts=last_line,
                lacks=lacks)


def python_tests(name, *what, launcher=(), **more):
    """The tests of folders or files, with options before them; the slowest are named."""
    return Step(name, *launcher, sys.executable, "-m", "pytest", "-v", "--durations=15", f"--junitxml={LOGS / name}.xml",
                *what, seconds=3600, counts=report_counts, **more)


def gtest(name, program, *launcher, **more):
    report = LOGS / f"{name}.xml"
    drive = "Z:" if "wine" in launcher else ""  # where a test may make another drive the current one
    return Step(name, *launcher, program, f"--gtest_output=xml:{drive}{report}", seconds=1800, counts=report_counts,
                folder=program.parent, **more)


def preset(name, *targets, step=None):
    return Step(step or f"build-{name}", "sh", "-c", f"cmake --preset {name} && "
                f"cmake --build --preset {name} --target {' '.join(targets) or 'all'}", seconds=BUILD_SECONDS)


def tidy():
    """clang-tidy over the program, the simulated desktop, and what Wine needs, each target compiled as one file."""
    presets = ("tidy", "tidy-windows", "tidy-program")
    configure = " && ".join(f"cmake --preset {name}" for name in presets)
    builds = " ".join(f"'{BUILD / name}'" for name in presets)
    return Step("check-tidy", "sh", "-c", f"{configure} && exec '{sys.executable}' '{TOOLS}/check_tidy.py' {builds}",
                seconds=BUILD_SECONDS, counts=last_line, lacks=lacks_program(TIDY))


def plain_build():
    """Sets up the build that a user makes who knows no presets, and perhaps has nothing for Windows."""
    return Step("configure-plain", "cmake", "-S", ROOT, "-B", BUILD / "plain", seconds=300)


def rehearsals(name, build):
    return Step(name, sys.executable, TOOLS / "check_rehearsals.py", "--program", build / "pointalk-rehearse",
                seconds=300, counts=last_line, environment=SANITIZERS)


def under_wine(name, make, *arguments, build=WINDOWS, target_build=None, **more):
    """A step that has desktops under Wine for programs of that build; the target's is that of the programs that they read."""
    environment = {"DISPLAY": "", "WINEPREFIX": "", "WINEDEBUG": "-all", "POINTALK_PREFIX_BASE": str(PREFIX),
                   "POINTALK_WIN_BUILD": str(build), "POINTALK_TARGET_BUILD": str(target_build or build)}
    return make(name, *arguments, environment=environment, **more)


def on_desktop(build):
    """The command before one that needs a desktop and has none of its own."""
    return (sys.executable, TOOLS / "on_desktop.py", build)


def whole_program(name, *files, **more):
    """Several desktops at once: the tests mostly wait for sounds and windows."""
    folder = ROOT / "tests" / "program"
    return under_wine(name, python_tests, "-n", DESKTOPS, "--dist", "loadfile",
                      *([folder / f"{file}.py" for file in files] or [folder]), **more)


def needing(builds, *steps):
    """The steps, which are not run when one of these builds has failed."""
    for step in steps:
        step.needs = builds
    return list(steps)


# What runs under Wine, which comes first so that the tests there begin soon.
PROGRAMS = [
    preset("mingw-x86_64-release", "Pointalk", "pointalk_voice", "pointalk_automation", "pointalk_winmm", "pointalk_target",
           "pointalk_probe", "pointalk_saver", "voice_probe", "midi_probe", step="build-programs"),
    Step("prefix", "sh", "-c", f"rm -rf '{PREFIX}' && wine/prefix.sh make '{PREFIX}'", seconds=600),
]
ALL_FOR_WINDOWS = preset("mingw-x86_64-release")
# These two lists go on beside one another and beside the native steps.
WHOLE_PROGRAM = needing(PROGRAMS, whole_program("program"))
COMPANIONS = needing(
    PROGRAMS,
    under_wine("wine", python_tests, ROOT / "tests" / "wine", launcher=on_desktop(WINDOWS)),
    under_wine("packages", python_tests, ROOT / "tests" / "packages"),
    ALL_FOR_WINDOWS,
) + needing(
    [*PROGRAMS, ALL_FOR_WINDOWS],
    under_wine("contract-win32", gtest, WINDOWS / "pointalk_contract.exe", *on_desktop(WINDOWS), "wine"),
)
# The program for a Linux desktop, on desktops without a screen, a sound card or a voice.
FOR_LINUX = preset("linux-release", "pointalk", "pointalk_note_recorder", "pointalk_qt_target", "pointalk_accessible_target",
                   "pointalk_contract_linux", "pointalk-rehearse", step="build-linux")
DESKTOP = [FOR_LINUX] + needing(
    [FOR_LINUX],
    rehearsals("rehearsals", LINUX),
    gtest("contract-linux", LINUX / "pointalk_contract_linux", sys.executable, ROOT / "tests" / "linux" / "on_desktop.py"),
    python_tests("linux", "-n", DESKTOPS, "--dist", "loadfile", ROOT / "tests" / "linux",
                 environment={"POINTALK_LINUX_BUILD": str(LINUX)}),
    check("deb", LINUX / "pointalk", lacks=lacks_program("lintian")),
)
FOR_32_BITS = preset("mingw-i686-release", "Pointalk" if what_is_missing() else "all")
# These go on beside the sanitized build, which is the longest, and its tests.
CHECKS = [
    python_tests("self-tests", TOOLS / "tests"),
    check("layers"),
    check("includes"),
    check("given_names"),
    check("guide"),
    check("scripts"),
    check("format", lacks=lacks_program("clang-format-14")),
    plain_build(),
    FOR_32_BITS,
    tidy(),
]
SANITIZED = preset("linux-asan-clang")
NATIVE = [SANITIZED] + needing(
    [SANITIZED],
    gtest("tests", CLANG / "pointalk_tests", environment=SANITIZERS),
    gtest("contract-sim", CLANG / "pointalk_contract", environment=SANITIZERS),
    rehearsals("rehearsals-sanitized", CLANG),
    Step("fuzz", sys.executable, TOOLS / "run_fuzzers.py", CLANG, seconds=600, counts=last_line, environment=SANITIZERS),
)
# What looks at several builds.
LAST = needing(
    [PROGRAMS[0], ALL_FOR_WINDOWS, FOR_LINUX, SANITIZED],
    check("tests_built", CLANG, LINUX, WINDOWS),
) + needing(
    [PROGRAMS[0], FOR_32_BITS],
    check("exe", WINDOWS / "Pointalk.exe", WINDOWS_32 / "Pointalk.exe"),
    check("packages", WINDOWS / "Pointalk.exe", WINDOWS_32 / "Pointalk.exe"),
)
# What the 64-bit program passes, over the 32-bit one, and each of both over programs of the other width.
OVER_THE_OTHER = ("test_exe_names", "test_exe_controls", "test_exe_lists", "test_exe_texts", "test_one_pointalk")
THIRTY_TWO_BITS = needing(
    [*PROGRAMS, FOR_32_BITS],
    whole_program("program-32", build=WINDOWS_32, lacks=what_is_missing),
    whole_program("program-32-over-64", *OVER_THE_OTHER, build=WINDOWS_32, target_build=WINDOWS, lacks=what_is_missing),
    whole_program("program-64-over-32", *OVER_THE_OTHER, target_build=WINDOWS_32, lacks=what_is_missing),
    under_wine("wine-32", python_tests, ROOT / "tests" / "wine", build=WINDOWS_32, launcher=on_desktop(WINDOWS_32),
               lacks=what_is_missing),
    under_wine("packages-32", python_tests, ROOT / "tests" / "packages", build=WINDOWS_32, lacks=what_is_missing),
    under_wine("contract-32", gtest, WINDOWS_32 / "pointalk_contract.exe", *on_desktop(WINDOWS_32), "wine",
               build=WINDOWS_32, lacks=what_is_missing),
)
ALL = PROGRAMS + WHOLE_PROGRAM + COMPANIONS + DESKTOP + CHECKS + NATIVE + LAST + THIRTY_TWO_BITS


class Tally:
    """Counts, and tells what happens: a line a step, and now and then what runs and how far it is."""

    def __init__(self):
        self.passed = 0
        self.failed = 0
        self.skipped = 0
        self.stopped = False
        self._went_wrong = set()  # the names of the steps
        self._lock = threading.Lock()
        self._told = time.monotonic()

    def tell(self, *lines):
        with self._lock:
            self._told = time.monotonic()
            print(*lines, sep="\n", flush=True)

    def add(self, name, passed, failed, words, seconds, tail=()):
        with self._lock:
            self.passed += passed
            self.failed += failed
            if failed:
                self._went_wrong.add(name)
        shown = [f"       | {line}" for line in tail] if failed else []
        self.tell(f"{'ok    ' if not failed else 'FAILED'} {name:24} {words} ({seconds:.0f} s)", *shown)

    def skip(self, name, why):
        with self._lock:
            self.skipped += 1
        self.tell(f"skipped {name:23} {why}")

    def run(self, steps):
        """One after the other; what cannot run counts as failed."""
        for step in steps:
            if self.stopped:
                return
            wrong = [needed.name for needed in step.needs if needed.name in self._went_wrong]
            if step.lacks():
                self.skip(step.name, step.lacks())
            elif wrong:
                self.add(step.name, 0, 1, f"not run, since {' and '.join(wrong)} failed", 0)
            else:
                began = time.monotonic()
                passed, failed, words = step.run()
                self.add(step.name, passed, failed, words, time.monotonic() - began, step.what_failed())

    @contextlib.contextmanager
    def telling_what_runs(self, steps):
        """While nothing else is to be told."""
        over = threading.Event()

        def watch():
            while not over.wait(1):
                running = [f"{step.name} {step.progress()}".rstrip() for step in steps if step.running]
                if running and time.monotonic() - self._told >= HEARTBEAT:
                    self.tell(f"...    {', '.join(running)}")

        thread = threading.Thread(target=watch, daemon=True)
        thread.start()
        try:
            yield
        finally:
            over.set()
            thread.join()

    @contextlib.contextmanager
    def ending(self, steps):
        """When what is done meanwhile is cut short, so are these steps, which other threads run."""
        try:
            yield
        except BaseException:
            self.stopped = True
            for step in steps:
                step.end()
            raise


def share_of_idle_time(seconds=1):
    """How much of the time of all cores nobody uses, from 0 to 1, as Linux counts it."""
    def times():
        with open("/proc/stat", encoding="ascii") as file:
            return [int(word) for word in file.readline().split()[1:9]]

    before = times()
    time.sleep(seconds)
    passed = [now - then for now, then in zip(times(), before)]
    return (passed[3] + passed[4]) / max(sum(passed), 1)  # idle, and waiting for a disk


def run_all(tally, wanted):
    def side_by_side(*lanes):
        with concurrent.futures.ThreadPoolExecutor(len(lanes)) as pool, tally.ending(ALL):
            for lane in [pool.submit(*lane) for lane in lanes]:
                lane.result()

    def for_windows():
        tally.run(wanted(PROGRAMS))
        side_by_side((tally.run, wanted(WHOLE_PROGRAM)), (tally.run, wanted(COMPANIONS)))

    # What waits for a sound or a window goes first, next what such steps are built by, and last what only computes. It would
    # hardly go on at the lowest priority where the machine has other work.
    lower, lowest = (5, 10) if share_of_idle_time() > IDLE else (2, 5)
    for step in COMPANIONS + DESKTOP:
        step.niceness = 0 if step.counts else lower
    for step in CHECKS + NATIVE:
        step.niceness = lower if step.name == "self-tests" else lowest  # whose commands have limits

    with tally.telling_what_runs(ALL):
        side_by_side((for_windows,), *((tally.run, wanted(steps)) for steps in (DESKTOP, NATIVE, CHECKS)))
        tally.run(wanted(LAST))
        tally.run(wanted(THIRTY_TWO_BITS))


def main():
    names = [step.name for step in ALL]
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
    run_all(tally, wanted)
    if tally.skipped:
        print(f"{tally.skipped} skipped: the lines above that begin with that word say why")
    print(f"{tally.passed} passed, {tally.failed} failed")
    # Steps that are named may only build, or all be skipped; of all steps some must pass.
    sys.exit(1 if tally.failed or not tally.passed and not sys.argv[1:] else 0)


if __name__ == "__main__":
    main()
