"""Start blocks: what many rehearsals print at their start stands in one golden text, and is one line in the others.

tests/rehearsals/starts/as-usual.json is a rehearsal like any other. What its golden text has between `> {"start":true}`
and the next step is a start block, which other golden texts fold into the line `(starts as usual)`. A transcript has no
such line: its lines begin with `>` or with the word for an effect, and texts in them have no line ends."""

import re

START = re.compile(r'^(> \{"start":true\}\n)((?:(?!> ).*\n)*)', re.MULTILINE)
FOLDED = re.compile(r"\(starts (.+)\)\n")


class StartBlocks:
    """Folds and unfolds golden texts; `blocks` has the lines of each block by its name, `as usual`."""

    def __init__(self, blocks):
        self.blocks = blocks
        self.names = {block: name for name, block in blocks.items()}

    @classmethod
    def read(cls, scripts):
        """From the golden texts of these scripts; those that do not start the program are left out."""
        goldens = [script.with_suffix(".txt") for script in scripts]
        starts = {golden.stem: START.search(golden.read_bytes().decode("utf-8")) for golden in goldens if golden.exists()}
        return cls({name.replace("-", " "): start[2] for name, start in starts.items() if start})

    def fold(self, transcript):
        """Raises ValueError when unfolding would not give the transcript back."""
        def folded(start):
            return f"{start[1]}(starts {self.names[start[2]]})\n" if start[2] in self.names else start[0]
        golden = START.sub(folded, transcript)
        if self.unfold(golden) != transcript:
            raise ValueError("the transcript has a line that stands for a start block")
        return golden

    def unfold(self, golden):
        """The transcript; raises ValueError when a start block does not exist."""
        def unfolded(start):
            mark = FOLDED.fullmatch(start[2])
            if mark and mark[1] not in self.blocks:
                raise ValueError(f"no start block is called '{mark[1]}'")
            return start[1] + self.blocks[mark[1]] if mark else start[0]
        return START.sub(unfolded, golden)
