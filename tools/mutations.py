"""The small changes that tools/mutation_check.py makes: which, and where in a source they can be made.

They are found by the layout that clang-format gives: a binary operator stands between blanks, the brackets of a template
do not."""

import dataclasses
import re

from checking import COMMENT_OR_LITERAL


@dataclasses.dataclass(frozen=True)
class Mutation:
    start: int  # offsets into the text
    end: int
    replacement: str

    def apply(self, text):
        return text[:self.start] + self.replacement + text[self.end:]


OPERATORS = {
    "==": "!=", "!=": "==", "<": "<=", "<=": "<", ">": ">=", ">=": ">", "&&": "||", "||": "&&",
    "+": "-", "-": "+", "*": "/", "/": "*", "%": "*", "+=": "-=", "-=": "+=", "*=": "/=", "/=": "*=",
    "&": "|", "|": "&", "<<": ">>", ">>": "<<",
}
BINARY = re.compile(r"(?<= )(" + "|".join(re.escape(sign) for sign in sorted(OPERATORS, key=len, reverse=True)) + r")(?=\s)")
STEP = re.compile(r"\+\+|--")
NOT = re.compile(r"!(?=[\w(])")
TRUTH = re.compile(r"\b(?:true|false)\b")
INTEGER = re.compile(r"(?<![\w.])(?:0x[0-9a-fA-F]+|\d[\d_]*)(?![\w.])")
DECIMAL = re.compile(r"(?<![\w.])\d+\.\d+(?:e-?\d+)?(?!\w)")
CHOICE = re.compile(r"(?<= )\?(?= )")
HEAD = re.compile(r"\b(?:if|while) (?=\()")
SIMPLE = re.compile(r"![\w(][^&|]*|[^&|]* [!=]= [^&|]*")  # one of the swaps turns it around already
JUMP = r"return|break|continue"
CALL = r"(?:std::ignore =\s+)?[\w.:]+(?:->[\w.]+)*\(.*\)(?:[.]\w+\(.*\))*"
ASSIGNMENT = r"[\w.]+(?:->[\w.]+)*(?:\[[^=]*\])* (?:[-+*/|&]|<<|>>)?=\s.*"
STATEMENT = re.compile(rf"(?:{JUMP}|{CALL}|{ASSIGNMENT}|[\w.\[\]]+(?:\+\+|--)|(?:\+\+|--)[\w.\[\]]+)", re.S)
NO_STATEMENT = re.compile(r"(?:return|else|case|using|throw|static_assert|explicit|constexpr|delete|new)\b")


def masked(text):
    """The text, offsets unchanged, with blanks for comments, literals and lines of the preprocessor, and `_` between the
    digits of long numbers."""
    def blank(match):
        return re.sub(r"[^\n]", " ", match.group())

    def keep_ends(match):
        found = match.group()
        return blank(match) if found.startswith(("//", "/*")) else '"' + " " * (len(found) - 2) + '"'
    text = re.sub(r"(?<=[0-9a-fA-F])'(?=[0-9a-fA-F])", "_", text)
    text = COMMENT_OR_LITERAL.sub(keep_ends, text)
    return re.sub(r"^#.*$|\bstatic_assert\([^;]*;|\btemplate <[^>]*>", blank, text, flags=re.M)


def closing(text, opening):
    """Where the bracket that opens there is closed."""
    depth = 0
    for at in range(opening, len(text)):
        depth += {"(": 1, ")": -1}.get(text[at], 0)
        if depth == 0:
            return at
    raise ValueError(f"nothing closes the bracket at {opening}")


def swapped_operators(text):
    for match in BINARY.finditer(text):
        yield Mutation(*match.span(), OPERATORS[match.group()])
    for match in STEP.finditer(text):
        yield Mutation(*match.span(), "--" if match.group() == "++" else "++")


def turned_conditions(text):
    for match in NOT.finditer(text):
        yield Mutation(*match.span(), "")
    for match in TRUTH.finditer(text):
        yield Mutation(*match.span(), "false" if match.group() == "true" else "true")
    for match in CHOICE.finditer(text):
        yield Mutation(*match.span(), "|| true ?")
        yield Mutation(*match.span(), "&& false ?")
    for match in HEAD.finditer(text):
        end = closing(text, match.end())
        start = max(match.end(), text.rfind("; ", match.end(), end) + 1) + 1
        if not SIMPLE.fullmatch(text, start, end):
            yield Mutation(start, end, None)  # negated below, where the text is at hand


def moved_numbers(text):
    for match in INTEGER.finditer(text):
        number = int(match.group().replace("_", ""), 0)
        yield Mutation(*match.span(), str(number + 1))
        yield Mutation(*match.span(), str(number - 1))
    for match in DECIMAL.finditer(text):
        yield Mutation(*match.span(), repr(float(match.group()) + 1))


def statements(text):
    """The spans of the simple statements, without their semicolons."""
    start = depth = 0
    for at, sign in enumerate(text):
        if sign in "()":
            depth += 1 if sign == "(" else -1
        elif depth == 0 and sign in "{}:" and text[at - 1:at + 1] != "::" and text[at:at + 2] != "::":
            start = at + 1
        elif depth == 0 and sign == ";":
            head = re.compile(r"\s*(?:else )?(?:(?:if|while|for) (?=\()|else\b|)")
            begin = start
            while (match := head.match(text, begin)) and match.group().strip():
                begin = match.end()
                if text[begin] == "(":
                    begin = closing(text, begin) + 1
            begin += len(text[begin:at]) - len(text[begin:at].lstrip())
            yield begin, at
            start = at + 1


def removed_statements(text):
    for start, end in statements(text):
        words = text[start:end]
        if STATEMENT.fullmatch(words) and (words in JUMP.split("|") or not NO_STATEMENT.match(words)):
            yield Mutation(start, end, "")


def mutations(text):
    """All of them, in a stable order."""
    mask = masked(text)
    found = []
    for rule in (swapped_operators, turned_conditions, moved_numbers, removed_statements):
        for change in rule(mask):
            if change.replacement is None:
                change = Mutation(change.start, change.end, f"!({text[change.start:change.end]})")
            found.append(change)
    return sorted(found, key=lambda change: (change.start, change.end, change.replacement))
