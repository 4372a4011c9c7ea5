"""A place that the pointer visits until what is there is named."""

import itertools

from .heard import now
from .waiting import wait_until


def visit(hand, heard, place, wanted, what, limit, since=None):
    """Moves the pointer there and waits for a text for which wanted holds, since that move or an earlier time; returns that time. A
    place that did not answer in time, as on a very busy machine, is asked again by a move of a pixel."""
    looks = itertools.count()
    begin = now() if since is None else since

    def said():
        look = next(looks)
        if look % 100 == 0:
            hand.move(place[0] + look // 100 % 2, place[1])
        return any(wanted(text) for text in heard.words(begin))

    wait_until(said, limit, lambda: f"{what!r}; heard {heard.lines(begin)[-12:]}")
    return begin
