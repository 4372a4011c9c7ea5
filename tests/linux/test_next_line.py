"""That a program which says nothing is not waited for without end."""

import os

import pytest

from desktop import next_line


@pytest.fixture(name="ends")
def make_ends():
    """Of a pipe: a file to read from, and the descriptor to write to."""
    reading, writing = os.pipe()
    with os.fdopen(reading, "rb") as pipe, os.fdopen(writing, "wb", buffering=0) as program:
        yield pipe, program


def test_lines_that_come_at_once_are_taken_one_by_one(ends):
    pipe, program = ends
    program.write(b"ready\n\nok\n")
    assert [next_line(pipe) for _ in range(3)] == [b"ready", b"", b"ok"]


def test_a_program_that_says_nothing_or_half_a_line(ends):
    pipe, program = ends
    for words in (b"", b"rea"):
        program.write(words)
        with pytest.raises(TimeoutError, match=f"only b'{words.decode()}'"):
            next_line(pipe, limit=0.1)


def test_a_program_that_ends(ends):
    pipe, program = ends
    program.write(b"rea")
    program.close()
    with pytest.raises(EOFError, match="rea"):
        next_line(pipe)
