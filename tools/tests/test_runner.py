"""Proves that tools/run_tests.py and run_fuzzers.py see what goes wrong."""

import contextlib
import io
import pathlib
import subprocess
import sys
import tempfile
import threading
import time
import unittest
from unittest import mock

TOOLS = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(TOOLS))

import run_tests  # noqa: E402
import steps  # noqa: E402

REPORT = ('<testsuites tests="4" failures="{failures}" disabled="1" errors="0">'
          '<testsuite tests="4" failures="{failures}" disabled="1" skipped="1" errors="0"/></testsuites>')


class Folder(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def program(self, name, body):
        path = self.folder / name
        path.write_text(f"#!/bin/sh\n{body}\n")
        path.chmod(0o755)
        return path


class Steps(Folder):
    def run_step(self, body, counts=None, seconds=20):
        step = steps.Step("step", "sh", "-c", body, seconds=seconds, counts=counts)
        step.log = self.folder / "step.log"
        return step.run()

    def outcome(self, *arguments, **named):
        return self.run_step(*arguments, **named)[:2]

    def test_a_build(self):
        self.assertEqual(self.outcome("true"), (0, 0))
        self.assertEqual(self.outcome("false"), (0, 1))

    def test_counts_of_our_runners(self):
        self.assertEqual(self.outcome("echo 1 passed, 9 failed; echo 3 passed, 0 failed", steps.last_line), (3, 0))
        self.assertEqual(self.outcome("echo 3 passed, 2 failed; exit 1", steps.last_line), (3, 2))

    def test_a_bad_end_without_a_failed_test(self):
        self.assertEqual(self.outcome("echo 3 passed, 0 failed; exit 1", steps.last_line), (3, 1))
        self.assertEqual(self.outcome("echo hello; kill -SEGV $$", steps.last_line), (0, 1))

    def test_no_test_at_all(self):
        self.assertEqual(self.outcome("echo 0 passed, 0 failed", steps.last_line), (0, 1))

    def test_no_end(self):
        self.assertEqual(self.outcome("sleep 60", steps.last_line, seconds=0.2), (0, 1))

    def test_counts_of_googletest(self):
        def report(failures):
            return f"cat >'{self.folder}/step.xml' <<'E'\n{REPORT.format(failures=failures)}\nE\n"
        self.assertEqual(self.outcome(report(0), steps.report_counts), (2, 0))
        self.assertEqual(self.outcome(report(1) + "exit 1", steps.report_counts), (1, 1))
        self.assertEqual(self.outcome(report(0) + "exit 1", steps.report_counts), (2, 1))
        self.assertEqual(self.run_step(report(1) + "exit 1", steps.report_counts)[2], "1 passed, 1 failed, 2 skipped")
        self.assertEqual(self.run_step("echo 3 passed, 0 failed", steps.last_line)[2], "3 passed, 0 failed")

    def test_what_is_shown_of_a_failed_step(self):
        step = steps.Step("step", "true", seconds=1)
        step.log = self.folder / "step.log"
        self.assertEqual(step.what_failed(), [])
        step.log.write_text("\n".join(str(line) for line in range(100)))
        self.assertEqual(step.what_failed(), [str(line) for line in range(40, 100)])
        step.log.write_text("a PASSED\n==== FAILURES ====\n" + "x" * 500 + "\n==== 1 failed ====\n")
        self.assertEqual(step.what_failed(), ["==== FAILURES ====", "x" * 400, "==== 1 failed ===="])
        step.log.write_text("[ OK ] A\na.cpp:1: Failure\nExpected: b\n[  FAILED  ] C\n")
        self.assertEqual(step.what_failed(), ["a.cpp:1: Failure", "Expected: b", "[  FAILED  ] C"])

    def test_an_old_report_does_not_count(self):
        (self.folder / "step.xml").write_text(REPORT.format(failures=0))
        self.assertEqual(self.outcome("kill -SEGV $$", steps.report_counts), (0, 1))


class Progress(Folder):
    def told(self, log):
        step = steps.Step("step", "true", seconds=1)
        step.log = self.folder / "step.log"
        step.log.write_text(log)
        return step.progress()

    def test_how_far_a_step_is(self):
        self.assertEqual(self.told(""), "")
        self.assertEqual(self.told("a note\n"), "")
        self.assertEqual(self.told("[1/128] a.cpp\n[57/128] b.cpp\n"), "57/128")
        self.assertEqual(self.told("[gw0] [  3%] PASSED a\n[gw1] [ 45%] PASSED b\n"), "45 %")
        self.assertEqual(self.told("[==========] Running 3 tests from 1 test suite.\n"
                                   "[ RUN      ] A.a\n[       OK ] A.a (0 ms)\n"
                                   "[ RUN      ] A.b\n[  FAILED  ] A.b (0 ms)\n[ RUN      ] A.c\n"), "2/3")


class PythonTests(Folder):
    def outcome(self, body):
        """What the step of a folder with this test file comes to."""
        suite = self.folder / "suite"
        suite.mkdir(exist_ok=True)
        if body:
            (suite / "test_a.py").write_text("import unittest\nclass A(unittest.TestCase):\n" + body)
        step = run_tests.python_tests("step", "-p", "no:cacheprovider", suite)
        step.log = self.folder / "step.log"
        step.command = [word.replace(str(steps.LOGS), str(self.folder)) for word in step.command]
        return step.run()[:2]

    def test_counts(self):
        self.assertEqual(self.outcome("  def test_a(self): pass\n  def test_b(self): self.skipTest('')\n"), (1, 0))

    def test_one_fails_in_two_subtests(self):
        self.assertEqual(self.outcome("  def test_a(self): pass\n  def test_b(self):\n    for i in (1, 2):\n"
                                      "      with self.subTest(i): self.assertEqual(i, 0)\n"), (1, 1))

    def test_set_up_fails(self):
        for set_up in ("  def setUp(self): 1 / 0\n", "  @classmethod\n  def setUpClass(cls): 1 / 0\n"):
            self.assertEqual(self.outcome(set_up + "  def test_a(self): pass\n"), (0, 1))

    def test_does_not_import(self):
        self.assertEqual(self.outcome("  import no_such_module\n"), (0, 1))

    def test_no_test_there(self):
        self.assertEqual(self.outcome(""), (0, 1))


class TallyOfSteps(Folder):
    def step(self, name, *command, **named):
        step = steps.Step(name, *command, seconds=20, **named)
        step.log = self.folder / f"{name}.log"
        return step

    def test_a_skipped_step_says_why_and_counts_as_neither(self):
        tally = run_tests.Tally()
        with contextlib.redirect_stdout(io.StringIO()) as said:
            tally.run([self.step("other", "false", lacks=steps.lacks_program("no-such-program")),
                       self.step("usual", "echo", "2 passed, 0 failed", counts=steps.last_line)])
        self.assertEqual((tally.passed, tally.failed, tally.skipped), (2, 0, 1))
        self.assertIn("skipped other", said.getvalue())
        self.assertIn("no-such-program is not installed", said.getvalue())

    def test_what_needs_a_failed_step_is_not_run_and_failed(self):
        build, other = self.step("build", "false"), self.step("other", "true")
        test = self.step("test", "touch", self.folder / "ran", counts=steps.last_line)
        lacking = self.step("lacking", "false", lacks=steps.lacks_program("no-such-program"))
        needing = run_tests.needing([other, build], test, lacking)
        tally = run_tests.Tally()
        with contextlib.redirect_stdout(io.StringIO()) as said:
            tally.run([build, other, *needing])
        self.assertEqual((tally.passed, tally.failed, tally.skipped), (0, 2, 1))
        self.assertRegex(said.getvalue(), "FAILED test +not run, since build failed")
        self.assertFalse((self.folder / "ran").exists())

    def test_what_runs_is_told_meanwhile(self):
        tally = run_tests.Tally()
        step = self.step("slow", "sh", "-c", "echo '[57/128] a.cpp'; while [ ! -e told ]; do sleep 0.05; done",
                         folder=self.folder)
        said = io.StringIO()
        with mock.patch.object(run_tests, "HEARTBEAT", 0), contextlib.redirect_stdout(said), \
                tally.telling_what_runs([step]):
            worker = threading.Thread(target=tally.run, args=([step],))
            worker.start()
            end = time.monotonic() + 20
            while "slow 57/128" not in said.getvalue() and time.monotonic() < end:
                time.sleep(0.05)
            (self.folder / "told").touch()
            worker.join()
        self.assertIn("...    slow 57/128", said.getvalue())


class Outcome(unittest.TestCase):
    """What the whole of it comes to, with steps that do not run."""

    def not_run(self, failing):
        """The steps that are not run where one fails, on a machine that lacks no tool."""
        said = io.StringIO()
        with contextlib.ExitStack() as patches:
            for step in run_tests.ALL:
                outcome = (0, 1, "failed") if step.name == failing else (1, 0, "passed")
                patches.enter_context(mock.patch.multiple(step, run=lambda outcome=outcome: outcome, lacks=lambda: "",
                                                          what_failed=lambda: []))
            patches.enter_context(mock.patch.object(run_tests, "share_of_idle_time", lambda: 1))
            patches.enter_context(contextlib.redirect_stdout(said))
            run_tests.run_all(run_tests.Tally(), lambda some: some)
        return [line.split()[1] for line in said.getvalue().splitlines() if "not run" in line]

    def test_what_a_failed_build_keeps_from_running(self):
        self.assertEqual(self.not_run(None), [])
        self.assertEqual(self.not_run("configure-plain"), [])
        for build, expected in (
                ("build-programs", "program wine packages build-mingw-x86_64-release contract-win32 check-tests_built check-exe "
                 "check-packages program-32 program-32-over-64 program-64-over-32 wine-32 packages-32 contract-32"),
                ("build-mingw-x86_64-release", "contract-win32 check-tests_built"),
                ("build-linux", "rehearsals contract-linux linux check-deb check-tests_built"),
                ("build-linux-asan-clang", "tests contract-sim rehearsals-sanitized fuzz check-tests_built"),
                ("build-mingw-i686-release", "check-exe check-packages program-32 program-32-over-64 program-64-over-32 wine-32 "
                 "packages-32 contract-32")):
            with self.subTest(build):
                self.assertEqual(sorted(self.not_run(build)), sorted(expected.split()))

    def exit_status(self, *names, passed=0, failed=0):
        def run_all(tally, _):
            tally.add("step", passed, failed, "", 0)

        with mock.patch.multiple(run_tests, run_all=run_all, signal=mock.DEFAULT), contextlib.redirect_stdout(io.StringIO()), \
                mock.patch.object(sys, "argv", ["run_tests.py", *names]), self.assertRaises(SystemExit) as end:
            run_tests.main()
        return end.exception.code

    def test_the_exit_status(self):
        self.assertEqual(self.exit_status(passed=1), 0)
        self.assertEqual(self.exit_status(), 1)
        self.assertEqual(self.exit_status(passed=1, failed=1), 1)
        self.assertEqual(self.exit_status("build-programs"), 0)
        self.assertEqual(self.exit_status("build-programs", failed=1), 1)


class Fuzzers(Folder):
    def fuzz(self):
        run = subprocess.run([sys.executable, TOOLS / "run_fuzzers.py", self.folder, "1"], stdin=subprocess.DEVNULL,
                             stdout=subprocess.PIPE, text=True, timeout=600)
        return run.returncode, run.stdout.splitlines()[-1]

    def test_outcomes(self):
        self.assertEqual(self.fuzz(), (1, "0 passed, 0 failed"))
        self.program("good_fuzz", "echo stat::number_of_executed_units: 5")
        self.assertEqual(self.fuzz(), (0, "1 passed, 0 failed"))
        self.program("idle_fuzz", "true")
        self.assertEqual(self.fuzz(), (1, "1 passed, 1 failed"))
        self.program("bad_fuzz", "echo stat::number_of_executed_units: 5; exit 77")
        self.assertEqual(self.fuzz(), (1, "1 passed, 2 failed"))


if __name__ == "__main__":
    unittest.main()
