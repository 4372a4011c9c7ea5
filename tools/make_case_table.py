#!/usr/bin/env python3
"""Writes text/case_table.h from the Unicode character database: make_case_table.py UnicodeData.txt > text/case_table.h

Only characters up to U+FFFF and their simple mappings count: one character becomes one character.
UnicodeData.txt is in Debian's package unicode-data.
"""
import sys


def mappings(path, column):
    """Pairs (character, mapped character) of one column of the database, in order."""
    pairs = []
    for line in open(path, encoding="ascii"):
        fields = line.rstrip("\n").split(";")
        source = int(fields[0], 16)
        if source <= 0xFFFF and fields[column]:
            target = int(fields[column], 16)
            if target <= 0xFFFF and target != source:
                pairs.append((source, target))
    return pairs


def ranges(pairs):
    """Runs of characters, every one or every second, that are mapped by the same distance."""
    runs = []
    for source, target in pairs:
        distance = target - source
        if runs and runs[-1][3] == distance:
            first, last, step, _ = runs[-1]
            gap = source - last
            if gap == step or (first == last and gap == 2):
                runs[-1] = (first, source, gap, distance)
                continue
        runs.append((source, source, 1, distance))
    return runs


def main():
    print("// Simple case mappings of the characters up to U+FFFF, as runs of characters that move by the same distance.")
    print("// Written by tools/make_case_table.py.")
    print("#pragma once\n\n#include <cstdint>\n\nnamespace pointalk {\n")
    print("struct CaseRun {")
    print("  char16_t first;")
    print("  char16_t last;")
    print("  std::int32_t step;      // 1: every character of the run, 2: every second one")
    print("  std::int32_t distance;  // added to the character")
    print("};\n")
    for name, column in (("kToUpper", 12), ("kToLower", 13)):
        print(f"inline constexpr CaseRun {name}[] = {{")
        for first, last, step, distance in ranges(mappings(sys.argv[1], column)):
            print(f"    {{0x{first:04x}, 0x{last:04x}, {step}, {distance}}},")
        print("};\n")
    print("}  // namespace pointalk")


main()
