"""Writes a source with each of many edits behind a switch of Switched.h, so that one build serves them all.

The lines of the source stay, so that the compiler's messages name the lines of the edits."""
import re
from typing import NamedTuple

from .edits import blanked

HEADER = "tools/mutation/Switched.h"
LOGICAL = {" && ", " || "}
# What bounds an expression of && and ||, besides the bracket around it: , ; ? a single : and a single =
BOUND = re.compile(r"[,;?]|(?<!:):(?!:)|(?<![=!<>])=(?!=)")
KEYWORD_BEFORE = re.compile(r"\b(?:return|else|do|throw|case)$")


class Overlap(ValueError):
    """Edits cannot have switches together."""


class Piece(NamedTuple):
    """A text with switches, which replaces so many characters at an offset."""
    offset: int
    order: int  # of the pieces at one offset
    length: int
    text: str


class Code:
    """The code of a source, without comments and literals, and its pairs of brackets."""

    def __init__(self, text):
        self.text = blanked(text)
        self.partner, opened = {}, []
        for at, char in enumerate(self.text):
            if char in "([{":
                opened.append(at)
            elif char in ")]}" and opened:
                start = opened.pop()
                self.partner[start], self.partner[at] = at, start

    def expression(self, at):
        """Returns (start, end) of the whole expression of && and || in which the offset is."""
        start, end = at, at
        while not self.starts_expression(start):
            start = self.partner.get(start - 1, start - 1) if self.text[start - 1] in ")]}" else start - 1
        while not (self.text[end] in ")]}" or (self.text[end] != "=" and BOUND.match(self.text, end))):
            end = self.partner.get(end, end) + 1
        return start, end

    def starts_expression(self, at):
        if self.text[at - 1] in "([{" or self.ends_block(at - 1) or BOUND.match(self.text, at - 1):
            return True
        return bool(KEYWORD_BEFORE.search(self.text[max(0, at - 8):at])) and not re.match(r"\w", self.text[at])

    def ends_block(self, at):
        """Returns whether a block ends at the offset; the braces of a value follow its type, as in Type{}."""
        return self.text[at] == "}" and not re.match(r"[\w>]", self.text[self.partner.get(at, at) - 1])

    def operands(self, start, end, operator):
        """Returns (start, end) of each operand between two offsets; the operators in brackets do not count."""
        found, first, at = [], start, start
        while at < end:
            if self.text.startswith(operator, at) and self.text[at - 1].isspace() and self.text[at + 2].isspace():
                found.append((first, at))
                first = at = at + 2
            else:
                at = (self.partner.get(at, at) if self.text[at] in "([{" else at) + 1
        return [*found, (first, end)]

    def trimmed(self, start, end):
        found = self.text[start:end]
        return start + len(found) - len(found.lstrip()), end - len(found) + len(found.rstrip())


def logical_pieces(code, edits):
    """Returns the pieces for the edits of && and ||, which are given by their numbers: the operands of one operator
    become functions that one call of all or any combines."""
    numbers = {edit["offset"] + 1: number for number, edit in edits.items()}
    chains = set()
    for at in numbers:
        start, end = code.expression(at)
        operator = code.text[at:at + 2]
        if operator == "&&":
            start, end = next(part for part in code.operands(start, end, "||") if part[0] <= at < part[1])
        chains.add((start, end, operator))
    return [piece for chain in sorted(chains) for piece in chain_pieces(code, numbers, *chain)]


def chain_pieces(code, numbers, start, end, operator):
    operators = [operand[0] - 2 for operand in code.operands(start, end, operator)[1:]]
    switches = ",".join(str(numbers.get(at, 0)) for at in operators)
    start, end = code.trimmed(start, end)
    # At one offset the chain of || is the outer one.
    name, order = ("all", 2) if operator == "&&" else ("any", 1)
    yield Piece(start, order, 0, f"ko_switched::{name}<{switches}>([&]() -> bool {{ return bool(")
    for at in operators:
        yield Piece(at, 0, 2, "); }, [&]() -> bool { return bool(")
    yield Piece(end, -order, 0, "); })")


def other_pieces(number, edit):
    """Returns the pieces for an edit that is not one of && or ||."""
    start, old, new = edit["offset"], edit["old"], edit["new"]
    if new == ";":
        return [Piece(start, 0, 0, f"{{ if (!ko_switched::isOn({number})) "), Piece(start + len(old), -9, 0, " }")]
    if old == "!":
        text = f"ko_switched::Not<{number}>{{}} ->* "
    elif old == "++":
        text = f"ko_switched::Increment<{number}>{{}} ->* "
    elif old[0].isalnum():
        text = f"(ko_switched::isOn({number}) ? {new} : {old})"
    else:
        text = f"{old}ko_switched::Edit<{number}>{{}}{old}"
    return [Piece(start, 9, len(old), text)]


def switched_text(name, text, edits):
    """Returns the text of the source with a switch for each of the edits, which are given by their numbers."""
    logical = {number: edit for number, edit in edits.items() if edit["old"] in LOGICAL}
    pieces = logical_pieces(Code(text), logical)
    for number, edit in edits.items():
        if number not in logical:
            pieces += other_pieces(number, edit)
    found, at = [f'#include "{"../" * name.count("/")}{HEADER}"\n#line 1\n'], 0
    for piece in sorted(pieces):
        if piece.offset < at:
            raise Overlap(f"edits of {name} overlap at offset {piece.offset}: {piece.text}")
        found += [text[at:piece.offset], piece.text]
        at = piece.offset + piece.length
    return "".join([*found, text[at:]])
