"""What the voice and the synthesizer were asked, as they write it down in the file that POINTALK_HEARD names."""

import json
import pathlib
import time

from .waiting import wait_until


def now():
    """Microseconds of the clock whose times the lines carry."""
    return time.clock_gettime_ns(time.CLOCK_MONOTONIC_RAW) // 1000


class Heard:
    def __init__(self, path):
        self.path = pathlib.Path(path)
        self._offset = 0
        self._rest = b""
        self._lines = []

    def lines(self, since=0):
        """All lines from that time on, in the order of their times."""
        if self.path.exists():
            with self.path.open("rb") as file:
                file.seek(self._offset)
                fresh = file.read()
            self._offset += len(fresh)
            *whole, self._rest = (self._rest + fresh).split(b"\n")
            self._lines += [json.loads(line) for line in whole]
            self._lines.sort(key=lambda line: line["t"])
        return [line for line in self._lines if line["t"] >= since]

    def wait(self, predicate, limit, since=0, what="something is heard"):
        """The first line from `since` on that the predicate holds for; AssertionError after `limit` seconds."""
        return wait_until(lambda: next((line for line in self.lines(since) if predicate(line)), None), limit,
                          lambda: f"{what}; heard {self.lines(since)[-12:]}")

    def wait_words(self, text, limit, since=0):
        """Waits for an utterance with just these words."""
        return self.wait(lambda line: is_speech(line) and line["text"] == text, limit, since, repr(text))

    def words(self, since=0):
        """The texts spoken, blank ones left out."""
        return [line["text"] for line in self.lines(since) if is_speech(line) and line["text"].strip()]

    def midi(self, since=0):
        """The short messages sent, as numbers."""
        return [int(line["value"], 16) for line in self.lines(since) if line["what"] == "midi"]

    def stays_silent(self, seconds):
        """The lines that came although nothing should have: empty when all is well."""
        start = now()
        time.sleep(seconds)
        return self.lines(start)


def is_speech(line):
    return line["what"] in ("sapi5 speak", "sapi4 speak")


def names_desktop(text):
    """Whether this is the name of the bare desktop: "Wine desktop" in Wine 8, "Wine Desktop" in Wine 10."""
    return "wine desktop" in text.lower()
