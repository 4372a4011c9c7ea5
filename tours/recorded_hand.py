"""A hand that remembers when it moved the pointer where."""

from harness import Hand, now


class RecordedHand(Hand):
    def __init__(self, environment):
        super().__init__(environment)
        self.moves = []  # (time just before it in microseconds, x, y)

    def move(self, x, y):
        self.moves.append((now(), x, y))
        super().move(x, y)

    def position(self):
        return self.moves[-1][1:]
