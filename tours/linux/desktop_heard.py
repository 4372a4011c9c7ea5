"""What the recorders of a desktop wrote down, as lines of the form that the records are made of."""

import json
import time

from harness import Heard, now

STATUS = {"noteon": 0x90, "noteoff": 0x80, "program": 0xC0}
TO_THE_END = 2  # each text is waited for where the end of one is


class Tail:
    """The whole lines that came to a file since it was last read."""

    def __init__(self, path):
        self._path = path
        self._offset = 0
        self._rest = ""

    def read(self):
        if not self._path.exists():
            return []
        with self._path.open(encoding="utf-8") as file:
            file.seek(self._offset)
            text = self._rest + file.read()
            self._offset = file.tell()
        *lines, self._rest = text.split("\n")
        return lines


class DesktopHeard(Heard):
    def __init__(self, desktop):
        super().__init__(desktop.speech_log)
        self._speech, self._notes = Tail(desktop.speech_log), Tail(desktop.notes_log)

    def lines(self, since=0):
        self._lines += [line for text in self._speech.read() for line in _spoken(json.loads(text))]
        self._lines += [line for text in self._notes.read() for line in _played(text.split())]
        self._lines.sort(key=lambda line: line["t"])
        return [line for line in self._lines if line["t"] >= since]


def _time(seconds):
    """The recorders' clock is the one that the system sets right little by little."""
    return round(seconds * 1e6) + now() - time.clock_gettime_ns(time.CLOCK_MONOTONIC) // 1000


def _spoken(line):
    at = _time(line["time"])
    if "say" in line:
        yield {"t": at, "what": "ssip speak", "text": line["say"], "utterance": line["message"], "flags": TO_THE_END}
    elif line.get("event") == "sounding":
        yield {"t": at, "what": "sounding", "utterance": line["message"], "part": 1, "wave": line["wave"],
               "length": round(line["length"] * 1e6)}
    elif line.get("event") in ("spoken", "cut"):
        yield {"t": at, "what": line["event"], "utterance": line["message"]}
        yield {"t": at, "what": "ssip speak over", "utterance": line["message"]}


def _played(words):
    seconds, function, channel, first, second = words
    if function in STATUS:
        value = STATUS[function] | int(channel) | int(first) << 8 | int(second) << 16
        yield {"t": _time(float(seconds)), "what": "midi", "value": hex(value), "result": 0}
