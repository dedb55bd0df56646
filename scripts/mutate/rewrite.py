"""Changes as text: a source file in which every change stands behind its switch.

A change is a set of wraps. A wrap puts text before and after a range of the source and leaves the
range itself to the changes within it, so that the text grows with the number of changes and not
with their nesting: what stands in the wrap is the source as it was. Offsets are bytes; sources are
handled as latin-1 text, in which a byte is a character.
"""

import re
from dataclasses import dataclass, field

# Stands in a wrap for the question whether its change is the one that holds.
SWITCH = "\x01"

_PIECES = re.compile(
    r"""(?P<comment>//[^\n]*|/\*.*?\*/)
      |(?P<text>"(?:\\.|[^"\\\n])*"|'(?:\\.|[^'\\\n])*')
      |(?P<space>\s+)""",
    re.VERBOSE | re.DOTALL,
)


@dataclass(frozen=True)
class Wrap:
    start: int
    end: int
    before: str
    after: str


@dataclass
class Change:
    """`function` and `text` name a change in reports and in the list of reasons."""

    file: str
    line: int
    function: str
    text: str
    wraps: list = field(repr=False)
    number: int = -1

    def key(self):
        return f"{self.file}:{self.number}"


def flat(source):
    """The text on one line, without its comments."""

    def piece(match):
        return match.group() if match.lastgroup == "text" else " "

    return re.sub(r" {2,}", " ", _PIECES.sub(piece, source)).strip()


def shown(source, limit=110):
    """The text as reports show it."""
    text = flat(source).encode("latin-1").decode("utf-8", "replace")
    return text if len(text) <= limit else text[: limit - 4] + " ..."


def number_changes(changes):
    """Numbers the changes of one file, and tells equal ones of a function apart."""
    seen = {}
    for number, change in enumerate(changes):
        change.number = number
        name = (change.function, change.text)
        seen[name] = seen.get(name, 0) + 1
        if seen[name] > 1:
            change.text += f" (#{seen[name]})"


def wrapped(source, changes):
    """The source with the wraps of these changes, line for line the lines of the source."""
    wraps = []
    for change in changes:
        switch = f"orvixMutant({change.number})"
        for wrap in change.wraps:
            before = wrap.before.replace(SWITCH, switch)
            after = wrap.after.replace(SWITCH, switch)
            wraps.append((wrap.start, -wrap.end, len(wraps), before, after))
    wraps.sort()

    result = []
    at = 0
    is_open = []

    def close_until(offset):
        nonlocal at
        while is_open and is_open[-1][0] <= offset:
            end, after = is_open.pop()
            result.extend((source[at:end], after))
            at = end

    for start, end, _, before, after in wraps:
        close_until(start)
        if is_open and is_open[-1][0] < -end:
            raise ValueError(f"changes cross at offset {start}")
        result.extend((source[at:start], before))
        at = start
        is_open.append((-end, after))
    close_until(len(source))
    result.append(source[at:])
    return "".join(result)


def instrumented(source, file, changes, switch_text):
    """The whole file as it is compiled: the switch, then the lines under their own numbers."""
    if not changes:
        return source
    count = 1 + max(change.number for change in changes)
    names = f'#define ORVIX_FILE "{file}"\n#define ORVIX_COUNT {count}\n'
    return f"{names}{switch_text}#line 1\n{wrapped(source, changes)}"
