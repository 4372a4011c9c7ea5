#!/usr/bin/env python3
"""Checks of names what clang-tidy has no rule for; tools/check_tidy.py has it check the others."""

import re

from checking import OWN_FOLDERS, arguments, report, sources, without_comments

ARTICLE = re.compile(r"\b(?:the|an?)[A-Z]\w*")
FIELD_OF_THE_FORM = re.compile(r"\bm(?:acc)?[A-Z]\w*")


def occurrences(root, folders, name):
    found = []
    for path in sources(root, folders):
        text = without_comments(path.read_text(encoding="utf-8"))
        found += [f"{path.relative_to(root)}:{text.count(chr(10), 0, match.start()) + 1}: {match.group()}"
                  for match in name.finditer(text)]
    return found


def main():
    root = arguments(__doc__).root
    report({"No name begins with an article.": occurrences(root, OWN_FOLDERS, ARTICLE),
            "Only the rooms' given names begin with m.":
            occurrences(root, ("platform", "win32", "linux", "sim", "wine", "x11"), FIELD_OF_THE_FORM)})


if __name__ == "__main__":
    main()
