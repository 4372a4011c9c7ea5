#!/usr/bin/env python3
"""Runs the unittest files of a folder (test_*.py) and ends with the line `N passed, N failed`.

    tools/run_unittests.py FOLDER

A skipped test counts as neither; an error outside any test, and a folder without a test, count as failed."""

import pathlib
import sys
import unittest


def main():
    folder = pathlib.Path(sys.argv[1]).resolve()
    sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
    suite = unittest.defaultTestLoader.discover(str(folder), top_level_dir=str(folder))
    result = unittest.TextTestRunner(stream=sys.stdout, verbosity=2).run(suite)
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
