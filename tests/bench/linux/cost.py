"""What a program costs: processor, memory, and whom it writes to."""

import os
import pathlib
import re
import signal
import subprocess
import time

TICKS = os.sysconf("SC_CLK_TCK")
WRITES = "write,writev,send,sendto,sendmsg,sendmmsg,connect"
STRACE_START = 2  # seconds until it has stopped every thread once


class Processor:
    """The share of a core that a program uses while it is measured."""

    def __init__(self, pid, processes="/proc", clock=time.monotonic):
        self._file = pathlib.Path(processes) / str(pid) / "stat"
        self._clock = clock
        self._began, self._used = clock(), self._seconds()

    def _seconds(self):
        fields = self._file.read_text("ascii", "replace").rpartition(")")[2].split()
        return (int(fields[11]) + int(fields[12])) / TICKS

    def percent(self):
        return 100 * (self._seconds() - self._used) / (self._clock() - self._began)


def memory(pid):
    """(resident, proportional) in MiB; the second counts what programs share by the number of those."""
    text = pathlib.Path(f"/proc/{pid}/smaps_rollup").read_text("ascii")
    return tuple(int(re.search(rf"^{name}:\s+(\d+)", text, re.M)[1]) / 1024 for name in ("Rss", "Pss"))


def written(pid, seconds):
    """How often a program wrote to the sockets of others in that time, by what the others listen on."""
    tracer = subprocess.Popen(["strace", "-f", "-qq", "-yy", "-e", f"trace={WRITES}", "-p", str(pid)],
                              stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)
    time.sleep(STRACE_START + seconds)
    tracer.send_signal(signal.SIGINT)
    told = tracer.communicate(timeout=60)[1]
    if "attach" in told:
        raise RuntimeError(told)
    listening = _listening()
    counts = {}
    for other in re.findall(r"\(\d+<UNIX[-A-Z]*:\[\d+->(\d+)", told):
        name = listening.get(other, "a socket without a name")
        counts[name] = counts.get(name, 0) + 1
    return counts


def _listening():
    """The path of each socket that has one, by its number."""
    rows = [line.split() for line in pathlib.Path("/proc/net/unix").read_text("utf-8").splitlines()[1:]]
    return {row[6]: row[7] for row in rows if len(row) > 7}
