"""Waiting for something, with a limit."""

import time


def wait_until(question, limit, what, pause=0.01):
    """Asks until the answer is true and returns it; raises AssertionError after `limit` seconds."""
    end = time.monotonic() + limit
    while True:
        answer = question()
        if answer:
            return answer
        if time.monotonic() >= end:
            raise AssertionError(f"not within {limit} s: {what() if callable(what) else what}")
        time.sleep(pause)
