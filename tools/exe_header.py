"""What the header of a program for Windows tells."""

import collections
import struct

ExeHeader = collections.namedtuple("ExeHeader", "machine time")
MACHINES = {0x8664: "x86_64", 0x014C: "i686"}


def exe_header(data):
    """The machine that a program is for, and when it was built, in seconds; ValueError if it is none that we build."""
    if data[:2] == b"MZ" and len(data) >= 64:
        begin, = struct.unpack_from("<I", data, 60)
        if data[begin:begin + 4] == b"PE\0\0" and len(data) >= begin + 12:
            machine, _, time = struct.unpack_from("<HHI", data, begin + 4)
            if machine in MACHINES:
                return ExeHeader(MACHINES[machine], time)
    raise ValueError("not a program for Windows on x86-64 or i686")
