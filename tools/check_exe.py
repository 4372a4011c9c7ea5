#!/usr/bin/env python3
"""Checks a release Pointalk.exe: one small file that needs nothing but the system and is the same from every build.

    tools/check_exe.py EXE..."""

import pathlib
import re
import subprocess
import sys

from checking import arguments, report
from exe_header import exe_header

LARGEST = 1024 * 1024
SYSTEM_LIBRARIES = set("""
advapi32.dll comctl32.dll gdi32.dll kernel32.dll msvcrt.dll ole32.dll oleacc.dll oleaut32.dll shell32.dll user32.dll
winmm.dll
""".split())
# What the resources must hold, in the encoding in which they stand there.
RESOURCES = {
    "per-monitor DPI awareness": b"PerMonitorV2",
    "common controls": b"Microsoft.Windows.Common-Controls",
    "asInvoker": b'level="asInvoker"',
    "a version": "VS_VERSION_INFO".encode("utf-16-le"),
    "an icon": b"\x28\0\0\0\x30\0\0\0\x60\0\0\0\x01\0\x20\0",  # the header of its image of 48 pixels
}
# What Windows is told to do for it: load it at an address that nobody knows before, and never run data.
PROTECTIONS = ("DYNAMIC_BASE", "NX_COMPAT")
PROTECTIONS_OF_64_BITS = ("HIGH_ENTROPY_VA",)
# Calls that halt or redirect threads. Beside a mouse hook and memory in other programs, which Pointalk needs, they are what
# scanners know injected code by. The compiler's library for POSIX threads would bring them in.
SUSPICIOUS_CALLS = ("SuspendThread", "ResumeThread", "GetThreadContext", "SetThreadContext", "AddVectoredExceptionHandler",
                    "RemoveVectoredExceptionHandler", "CreateRemoteThread")
# Up to Windows 8 these count as the program under the pointer does, which Windows may enlarge. The calls with "Physical" in their
# names count in the screen's pixels on every system.
CALLS_OF_OTHER_PIXELS = ("GetCursorPos", "WindowFromPoint")
# Addresses of 2 GB and more look negative to what other programs of 32 bits do with them.
LARGE_ADDRESSES = "large address aware"


def headers(path):
    return subprocess.run(["x86_64-w64-mingw32-objdump", "-p", path], check=True, stdout=subprocess.PIPE, text=True).stdout


def main():
    given = arguments(__doc__, exes="release programs")
    exes = [pathlib.Path(name) for name in given.exes]
    if not exes:
        sys.exit("name the programs")
    rules = {rule: [] for rule in ("At most 1 MB.", "No DLL but the system's.", "A program with windows.",
                                   "Its resources.", "Its protection.", "No call that halts threads.", "Places in the screen's pixels.",
                                   "In 32 bits, addresses below 2 GB.", "The same from every build.")}
    for exe in exes:
        if not exe.is_file():
            for breaches in rules.values():
                breaches.append(f"{exe}: is not there")
            continue
        data, text = exe.read_bytes(), headers(exe)
        if len(data) > LARGEST:
            rules["At most 1 MB."].append(f"{exe}: {len(data)} bytes")
        foreign = {name.lower() for name in re.findall(r"DLL Name: (\S+)", text)} - SYSTEM_LIBRARIES
        rules["No DLL but the system's."] += [f"{exe}: needs {name}" for name in sorted(foreign)]
        if "(Windows GUI)" not in text:
            rules["A program with windows."].append(f"{exe}: opens a console")
        rules["Its resources."] += [f"{exe}: lacks {what}" for what, sign in RESOURCES.items() if sign not in data]
        header = exe_header(data)
        wanted = PROTECTIONS + (PROTECTIONS_OF_64_BITS if header.machine == "x86_64" else ())
        rules["Its protection."] += [f"{exe}: lacks {flag}" for flag in wanted if flag not in text]
        calls = {line.split()[-1] for line in text.splitlines() if line.strip()}
        rules["No call that halts threads."] += [f"{exe}: imports {call}" for call in SUSPICIOUS_CALLS if call in calls]
        rules["Places in the screen's pixels."] += [f"{exe}: imports {call}" for call in CALLS_OF_OTHER_PIXELS if call in calls]
        if header.machine == "i686" and LARGE_ADDRESSES in text:
            rules["In 32 bits, addresses below 2 GB."].append(f"{exe}: is large address aware")
        if header.time:
            rules["The same from every build."].append(f"{exe}: tells when it was built")
        if str(given.root).encode() in data:
            rules["The same from every build."].append(f"{exe}: tells where it was built")
    report(rules)


if __name__ == "__main__":
    main()
