"""The list of changes that may survive, each with its reason.

    # A comment.
    foundation/Utilities.cpp, UTL::formatIpAddress
        change: dropped: return text;
        reason: the parts of a hardware address have no leading zeros to lose

A change is named as reports name it, by its function and not by its line.
"""

from dataclasses import dataclass


class ReasonsError(Exception):
    """The list cannot be read."""


@dataclass(frozen=True)
class Reason:
    file: str
    function: str
    change: str
    reason: str

    def fits(self, change):
        return (self.file, self.function, self.change) == (
            change.file, change.function, change.text)

    def __str__(self):
        return f"{self.file}, {self.function}: {self.change}"


def read(text):
    entries = []
    place, change = None, None
    for number, line in enumerate(text.splitlines(), 1):
        words = line.strip()
        if not words or words.startswith("#"):
            continue
        if not line[0].isspace():
            place = [part.strip() for part in words.partition(",")[::2]]
            if change:
                raise ReasonsError(f"line {number}: the change before has no reason")
            if not all(place):
                raise ReasonsError(f"line {number}: not FILE, FUNCTION")
        elif words.startswith("change: ") and place:
            if change:
                raise ReasonsError(f"line {number}: the change before has no reason")
            change = words.removeprefix("change: ").strip()
        elif words.startswith("reason: ") and change:
            entries.append(Reason(*place, change, words.removeprefix("reason: ").strip()))
            change = None
        else:
            raise ReasonsError(f"line {number}: neither a change nor its reason")
    if change:
        raise ReasonsError("the last change has no reason")
    return entries
