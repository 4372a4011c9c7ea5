#!/usr/bin/env python3
"""Runs the unittest files of a folder (test_*.py) and ends with the line `N passed, N failed`.

    tools/run_unittests.py FOLDER [FILE...]

Where files are named, as in test_exe_lists, no others run. A skipped test counts as neither; an error outside any test, and a
folder without a test, count as failed. The tests that took longest are named before that line, with their seconds."""

import pathlib
import sys
import time
import unittest

NAMED = 15  # of the slowest tests


class TimedResult(unittest.TextTestResult):
    def __init__(self, *arguments, **named):
        super().__init__(*arguments, **named)
        self.times = []
        self._began = 0

    def startTest(self, test):
        self._began = time.monotonic()
        super().startTest(test)

    def stopTest(self, test):
        self.times.append((time.monotonic() - self._began, test.id()))
        super().stopTest(test)


def main():
    folder = pathlib.Path(sys.argv[1]).resolve()
    sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
    loader, names = unittest.defaultTestLoader, sys.argv[2:]
    if names:
        sys.path.insert(0, str(folder))
        suite = loader.loadTestsFromNames(names)
    else:
        suite = loader.discover(str(folder), top_level_dir=str(folder))
    result = unittest.TextTestRunner(stream=sys.stdout, verbosity=2, resultclass=TimedResult).run(suite)
    for seconds, name in sorted(result.times, reverse=True)[:NAMED]:
        print(f"{seconds:6.1f} s  {name}")
    ended_badly = [test for test, _ in result.failures + result.errors] + result.unexpectedSuccesses
    owners = {getattr(test, "test_case", test) for test in ended_badly}  # a subtest counts for its test
    broken = sum(1 for test in owners if isinstance(test, unittest.TestCase))
    skipped = sum(1 for test, _ in result.skipped if isinstance(test, unittest.TestCase))
    passed = result.testsRun - broken - skipped
    failed = len(owners) or int(passed == 0)
    print(f"{passed} passed, {failed} failed")
    sys.exit(1 if failed else 0)


if __name__ == "__main__":
    main()
