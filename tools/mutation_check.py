#!/usr/bin/env python3
"""Makes small changes to the core, one at a time, and counts how many of them the native tests notice.

    tools/mutation_check.py [--count N | --full] [--seed N] [--headers] [--file PART] [--again] [ROOM...]

Every room unless some are named; N (100) changes of each, chosen by the seed, or all of them. A change is caught when the
rehearsals or pointalk_tests fail, crash, or run too long. What does not compile is not counted, nor what optimises to the
same code. Headers are left out unless asked for: each costs a build of nearly everything. All happens on a copy of the tree
in build/mutation; what survived is printed and kept there, and --again tries only that, after tests were added."""

import argparse
import collections
import dataclasses
import functools
import json
import os
import pathlib
import random
import resource
import shlex
import shutil
import signal
import subprocess
import sys
import xml.etree.ElementTree

from checking import ROOMS
from mutations import Mutation, mutations

ROOT = pathlib.Path(__file__).resolve().parent.parent
WORK = ROOT / "build" / "mutation"
TREE = WORK / "tree"
BUILD = WORK / "build"
SURVIVORS = WORK / "survivors.json"
TEST_SECONDS = 60  # of processor time, for each of the steps, which take a few: a busy machine does not use them up
WAIT_SECONDS = 3600  # for a build or a step that does nothing any more
SLOW_SECONDS = 0.1  # tests that take longer come last
MEMORY = 4 << 30  # bytes, for a change that takes ever more
GENERATED = "Written by tools/"


@functools.cache
def original(file):
    """A file of the copy as it was at first."""
    return (TREE / file).read_text(encoding="utf-8")


@dataclasses.dataclass(frozen=True)
class Mutant:
    room: str
    file: str
    mutation: Mutation

    def text(self):
        return self.mutation.apply(original(self.file))

    def words(self):
        text = original(self.file)
        line = text.count("\n", 0, self.mutation.start) + 1
        old = " ".join(text[self.mutation.start:self.mutation.end].split())
        return f"{self.file}:{line}: {old}  ->  {self.mutation.replacement or '(nothing)'}"


def limited():
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
    resource.setrlimit(resource.RLIMIT_CPU, (TEST_SECONDS, TEST_SECONDS))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def succeeds(*command, seconds, folder=BUILD, limits=None):
    """Whether it ends well in time; what it started ends with it."""
    process = subprocess.Popen([str(part) for part in command], cwd=folder, stdin=subprocess.DEVNULL,
                               stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, start_new_session=True,
                               preexec_fn=limits)
    try:
        return process.wait(seconds) == 0
    except subprocess.TimeoutExpired:
        return False
    finally:
        try:
            os.killpg(process.pid, signal.SIGKILL)
        except ProcessLookupError:
            pass
        process.wait()


class Tests:
    """The native tests of the copy, the quick ones first."""

    def __init__(self):
        self.slow = ""

    def learn_times(self):
        report = WORK / "times.xml"
        if not succeeds(BUILD / "pointalk_tests", f"--gtest_output=xml:{report}", seconds=WAIT_SECONDS):
            sys.exit("The tests fail without a change.")
        cases = xml.etree.ElementTree.parse(report).getroot().iter("testcase")
        slow = [f"{case.get('classname')}.{case.get('name')}" for case in cases
                if float(case.get("time")) > SLOW_SECONDS and "FaultSweep" not in case.get("classname")]
        self.slow = ":".join(["*FaultSweep*", *slow])

    def pass_all(self):
        tests = (BUILD / "pointalk_tests", "--gtest_brief=1", "--gtest_fail_fast", "--gtest_catch_exceptions=0")
        # Each rehearsal is a process of its own, so a change that ends nothing would use up the time of every one of them.
        return all(succeeds(*command, seconds=WAIT_SECONDS, limits=limited) for command in (
            (*tests, f"--gtest_filter=-{self.slow}"),
            (sys.executable, TREE / "tools" / "check_rehearsals.py", "--program", BUILD / "pointalk-rehearse"),
            (*tests, f"--gtest_filter={self.slow}")))


def build():
    return succeeds("ninja", "-j1", "pointalk_tests", "pointalk-rehearse", seconds=WAIT_SECONDS)


def copy_tree():
    """Makes the copy the same as the checkout, without touching what is the same already."""
    listed = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"], cwd=ROOT, check=True,
                            stdout=subprocess.PIPE, text=True).stdout
    files = {pathlib.Path(name) for name in listed.split("\0") if name and (ROOT / name).is_file()}
    for path in TREE.rglob("*"):
        if path.is_file() and path.relative_to(TREE) not in files:
            path.unlink()
    for file in files:
        source, target = ROOT / file, TREE / file
        if not target.exists() or target.read_bytes() != source.read_bytes():
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copyfile(source, target)


def prepare():
    """The copy as the checkout is now; only what changed since the last time is built."""
    copy_tree()
    subprocess.run(["cmake", "-S", TREE, "-B", BUILD, "-G", "Ninja", "-DCMAKE_CXX_COMPILER=clang++", "-DCMAKE_BUILD_TYPE=None",
                    "-DCMAKE_CXX_FLAGS=-O0", "-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=gold", "-DPOINTALK_WERROR=OFF",
                    "-DPOINTALK_TESTS=ON", "-DPOINTALK_BENCH=OFF", "-DPOINTALK_PROGRAM=OFF"], check=True,
                   stdout=subprocess.DEVNULL)
    if not build():
        sys.exit(f"The copy does not build: ninja -C {BUILD}")


def optimised(file):
    """The object code of a file of the copy as an optimising compiler makes it."""
    entries = json.loads((BUILD / "compile_commands.json").read_text())
    command = shlex.split(next(entry["command"] for entry in entries if entry["file"] == str(TREE / file)))
    target = WORK / "optimised.o"
    command[command.index("-o") + 1] = str(target)
    subprocess.run([*command, "-O2"], cwd=BUILD, check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    return target.read_bytes()


def verdict(mutant, tests):
    """`caught`, `survived`, `same` or `uncompilable`."""
    file = TREE / mutant.file
    file.write_text(mutant.text(), encoding="utf-8")
    try:
        if not build():
            return "uncompilable"
        if not tests.pass_all():
            return "caught"
        if file.suffix == ".h":
            return "survived"
        changed = optimised(mutant.file)
        file.write_text(original(mutant.file), encoding="utf-8")
        return "same" if changed == optimised(mutant.file) else "survived"
    finally:
        file.write_text(original(mutant.file), encoding="utf-8")


def all_mutants(room, suffixes, part):
    for path in sorted((TREE / room).iterdir()):
        name = path.relative_to(TREE).as_posix()
        if path.suffix in suffixes and part in path.name and GENERATED not in original(name):
            for mutation in mutations(original(name)):
                yield Mutant(room, name, mutation)


def chosen(options):
    """The mutants of each room, in the order of their places."""
    if options.again:
        kept = [Mutant(room, file, Mutation(*mutation)) for room, file, mutation in json.loads(SURVIVORS.read_text())]
        return {room: [mutant for mutant in kept if mutant.room == room] for room in options.rooms}
    suffixes = (".cpp", ".h") if options.headers else (".cpp",)
    result = {}
    for room in options.rooms:
        found = list(all_mutants(room, suffixes, options.file))
        if not options.full and len(found) > options.count:
            picked = random.Random(f"{options.seed} {room}").sample(range(len(found)), options.count)
            found = [found[at] for at in sorted(picked)]
        result[room] = found
    return result


def arguments():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--count", type=int, default=100)
    parser.add_argument("--full", action="store_true")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--headers", action="store_true")
    parser.add_argument("--file", default="", help="only files whose names have this in them")
    parser.add_argument("--again", action="store_true")
    parser.add_argument("rooms", nargs="*", metavar="ROOM")
    options = parser.parse_args()
    unknown = set(options.rooms) - set(ROOMS)
    if unknown:
        parser.error(f"no such room: {', '.join(sorted(unknown))}")
    options.rooms = options.rooms or list(ROOMS)
    return options


def main():
    options = arguments()
    prepare()
    tests = Tests()
    tests.learn_times()
    if not tests.pass_all():
        sys.exit("The rehearsals fail without a change.")
    survivors = []
    for room, mutants in chosen(options).items():
        counts = collections.Counter()
        for mutant in mutants:
            outcome = verdict(mutant, tests)
            counts[outcome] += 1
            if outcome == "survived":
                survivors.append((mutant.room, mutant.file, dataclasses.astuple(mutant.mutation)))
                print(f"survived: {mutant.words()}", flush=True)
        counted = counts["caught"] + counts["survived"]
        share = 100 * counts["caught"] / max(counted, 1)
        print(f"{room}: {counts['caught']} of {counted} caught ({share:.1f} %), {counts['uncompilable']} did not compile, "
              f"{counts['same']} were the same code", flush=True)
        SURVIVORS.write_text(json.dumps(survivors))


if __name__ == "__main__":
    main()
