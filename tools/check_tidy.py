#!/usr/bin/env python3
"""Has clang-tidy 14 judge the targets of the build folders that it is given.

    tools/check_tidy.py BUILD...        each configured so that every target is compiled as one file

The release is the one that .clang-tidy is written for; where it is not installed the check is left out, and says so. A target
whose sources an earlier folder had is judged there. Most of the time goes into what all of them include, so the targets for
one system are judged as one file, but for what needs Xlib, whose macros are other headers' names, and what stands in x11/,
which has names of other libraries of its own. What was found clean is judged again only when its sources, what they include of
ours, its flags, .clang-tidy or clang-tidy change: BUILD/clean.json remembers that."""

import argparse
import concurrent.futures
import hashlib
import json
import os
import pathlib
import re
import shlex
import shutil
import subprocess

from checking import report

PROGRAM = "clang-tidy-14"
RULE = "clang-tidy finds no fault in {}."
# Objects of COM are ended by Release alone, and handles are numbers.
NOT_FOR_WINDOWS = "-cppcoreguidelines-virtual-class-destructor,-performance-no-int-to-ptr"
INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*"([^"\n]+)"', re.M)
XLIB = re.compile(rb"^[ \t]*#[ \t]*include[ \t]*<X11/", re.M)
# Each program has one of the first, each library that COM loads the others.
ENTRY_POINTS = re.compile(r"^[^#/\n]*\b(w?main|w?WinMain|DllMain|DllGetClassObject|DllCanUnloadNow)\(", re.M)


def output_of(*command):
    return subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                          check=True).stdout


def include_folders(compiler):
    """A cross compiler's own folders of the C++ library, which clang does not find, by its name for the machine."""
    machine = re.fullmatch(r"(.*-w64-mingw32)-.*", pathlib.Path(compiler).name)
    if not machine:
        return []
    listed = output_of(compiler, "-E", "-v", "-x", "c++", os.devnull)
    folders = re.findall(r"^ (/.*/c\+\+.*)$", listed, re.M)
    return [f"--target={machine[1]}", *(word for folder in folders for word in ("-isystem", folder))]


class Unit:
    """The sources of a target, or of several, as one file, with the flags that clang needs of those that they are compiled with."""

    def __init__(self, root, build, entry):
        self.root = root
        self.build = build
        self.path = pathlib.Path(entry["directory"], entry["file"])
        words = shlex.split(entry["command"])
        self.name = re.search(r"([\w-]+)\.dir/", words[words.index("-o") + 1])[1].removeprefix("pointalk_")
        self.flags = [word for word in words if re.match(r"-[DI]|-std=", word)]
        self.flags += [word for at, word in enumerate(words) if "-isystem" in (word, words[at - 1])]
        self.flags += include_folders(next(word for word in words if re.search(r"\+\+[\w.-]*$", word)))
        self.files = self.with_includes()

    def join(self, others):
        """Takes in the sources and the flags of others, each once."""
        units = (self, *others)
        self.name = ", ".join(unit.name for unit in units)
        sources = dict.fromkeys(path for unit in units for path in sorted(unit.sources()))
        self.flags = [word for flag in dict.fromkeys(flag for unit in units for flag in unit.whole_flags()) for word in flag]
        self.path = self.build / f"{self.path.parents[1].stem}_and_others.cxx"
        self.path.write_text("".join(included(*source) for source in enumerate(sources)), "utf-8")
        self.files = self.with_includes()

    def whole_flags(self):
        """The flags, those of two words as two."""
        words = iter(self.flags)
        return [(word, next(words)) if word == "-isystem" else (word,) for word in words]

    def kind(self):
        """Equal for those that can be judged as one file."""
        machine = next((flag for flag in self.flags if flag.startswith("--target")), "native")
        return machine, any(path.parent.name == "x11" or XLIB.search(content) for path, content in self.files.items())

    def with_includes(self):
        """The file, and what it includes in quotes, directly or not."""
        folders = [pathlib.Path(flag[2:]) for flag in self.flags if flag.startswith("-I")]
        found, left = {}, [self.path]
        while left:
            path = left.pop()
            if path in found:
                continue
            found[path] = path.read_bytes()
            for name in INCLUDE.findall(found[path].decode("utf-8")):
                places = [folder / name for folder in (path.parent, *folders)]
                left += [place for place in places if place.is_file()][:1]
        return found

    def sources(self):
        """Those of our own; the others, as GoogleTest's, are not judged."""
        return {path for path in self.files if path.suffix == ".cpp" and path.is_relative_to(self.root)
                and not path.is_relative_to(self.build)}

    def print_of(self, settings):
        """Another one when anything changed that its verdict depends on."""
        content = hashlib.sha256(settings)
        content.update(repr(self.flags).encode())
        for path in sorted(self.files):
            content.update(f"\0{path}\0".encode() + self.files[path])
        return content.hexdigest()

    def faults(self):
        checks = [f"--checks={NOT_FOR_WINDOWS}"] if any(flag.startswith("--target") for flag in self.flags) else []
        run = subprocess.run([PROGRAM, "--quiet", *checks, self.path, "--", *self.flags], cwd=self.root,
                             stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        found = re.findall(r"^.*:\d+:\d+: (?:error|warning): .*$", run.stdout, re.M)
        if run.returncode and not found:
            found = [run.stdout + run.stderr]
        return [fault.removeprefix(f"{self.root}/") for fault in found]


def included(number, source):
    """The text that takes in a source. Its entry points are called by its number, since there is another one's of that name."""
    names = sorted({match[1] for match in ENTRY_POINTS.finditer(source.read_text("utf-8"))})
    given = "".join(f"#define {name} {name[0].upper()}{name[1:]}{number}  // NOLINT\n" for name in names)
    return f'{given}#include "{source}"\n' + "".join(f"#undef {name}\n" for name in names)


def units(root, builds):
    seen, found = set(), []
    for build in builds:
        for entry in json.loads((build / "compile_commands.json").read_text("utf-8")):
            unit = Unit(root, build, entry) if entry["file"].endswith((".cpp", ".cxx")) else None
            if unit and unit.sources() - seen:
                seen |= unit.sources()
                found.append(unit)
    groups = {}
    for unit in found:
        groups.setdefault(unit.kind(), []).append(unit)
    for first, *others in groups.values():
        if others:
            first.join(others)
    return [first for first, *_ in groups.values()]


def judge(found, remembered, settings):
    """The faults of each unit; what is clean is taken up into what is remembered."""
    prints = {unit: unit.print_of(settings) for unit in found}
    left = [unit for unit in found if remembered.get(unit.name) != prints[unit]]
    print(f"{len(left)} of {len(found)} files changed", flush=True)
    left.sort(key=lambda unit: -len(unit.files))
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        verdicts = dict(zip(left, pool.map(Unit.faults, left)))
    for unit in left:
        remembered.pop(unit.name, None)
        if not verdicts[unit]:
            remembered[unit.name] = prints[unit]
    return {RULE.format(unit.name): verdicts.get(unit, []) for unit in found}


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--root", type=pathlib.Path, default=pathlib.Path(__file__).resolve().parent.parent)
    parser.add_argument("builds", type=pathlib.Path, nargs="+")
    options = parser.parse_args()
    if not shutil.which(PROGRAM):
        print(f"left out: {RULE.format('the sources')} {PROGRAM} is not installed")
        return report({})
    memory = options.builds[0] / "clean.json"
    remembered = json.loads(memory.read_text("utf-8")) if memory.exists() else {}
    settings = (options.root / ".clang-tidy").read_bytes() + output_of(PROGRAM, "--version").encode()
    rules = judge(units(options.root, [build.resolve() for build in options.builds]), remembered, settings)
    memory.write_text(json.dumps(remembered, indent=1), "utf-8")
    return report(rules)


if __name__ == "__main__":
    main()
