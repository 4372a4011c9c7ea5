"""What the checks of this folder share: finding sources, and reporting rule by rule.

A check prints every breach as `FILE:LINE: what is wrong` and ends with the line `N passed, N failed`, where one
rule is one count. Its exit status is 0 only when nothing failed.
"""

import argparse
import pathlib
import re
import sys

# The rooms, from the ground up, with the rooms that each may see.
TABLE = {
    "text": (),
    "input": ("text",),
    "speech": ("text", "input"),
    "tones": ("text",),
    "settings": ("text", "input", "speech", "tones"),
    "crash": ("text", "input", "speech", "tones"),
    "registry": ("text", "input", "speech"),
    "reader": ("text", "input", "speech", "tones", "crash"),
    "app": ("text", "input", "speech", "tones", "settings", "crash", "registry", "reader"),
}
ROOMS = tuple(TABLE)
OWN_FOLDERS = ROOMS + ("platform", "win32", "linux", "sim", "wine", "x11", "tests")

COMMENT_OR_LITERAL = re.compile(
    r'//[^\n]*|/\*.*?\*/|R"(?P<mark>[^\s()\\]*)\(.*?\)(?P=mark)"|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])+\'', re.S)


def arguments(description, **extra):
    """Parses `--root DIR` and the given positional arguments (name=help)."""
    parser = argparse.ArgumentParser(description=description)
    parser.add_argument("--root", type=pathlib.Path, default=pathlib.Path(__file__).resolve().parent.parent)
    for name, text in extra.items():
        parser.add_argument(name, nargs="*", help=text)
    return parser.parse_args()


def sources(root, folders, suffixes=(".h", ".cpp")):
    """The C++ files in the folders, in a stable order."""
    return sorted(path for folder in folders for path in (root / folder).rglob("*")
                  if path.suffix in suffixes and path.is_file())


def without_comments(text, keep_literals=False):
    """The text with comments blanked, and literals too, line numbers unchanged."""
    def blank(match):
        if keep_literals and not match.group().startswith(("//", "/*")):
            return match.group()
        return "\n" * match.group().count("\n") or " "
    return COMMENT_OR_LITERAL.sub(blank, text)


def report(rules):
    """`rules` maps a rule to its breaches; prints them and ends the check."""
    for rule, breaches in rules.items():
        for breach in breaches:
            print(breach)
        print(f"{'FAILED' if breaches else 'ok'}: {rule}")
    failed = sum(1 for breaches in rules.values() if breaches)
    print(f"{len(rules) - failed} passed, {failed} failed")
    sys.exit(1 if failed else 0)
