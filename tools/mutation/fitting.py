"""Finds which edits of a source compile with switches. The others, as in constants, have to be compiled one at a
time."""
import hashlib
import json
import os
import re
import subprocess
import sys

from .edits import ROOT, blanked, edits_of_file
from .switching import LOGICAL, Overlap, switched_text

# A line in which a switch compiles at most by chance.
CONSTANT_LINE = re.compile(r"\bconstexpr\b|^\s*case\b|static_assert|\btemplate\b")
# The end of a line after which a statement starts.
STATEMENT_MAY_FOLLOW = re.compile(r"[;{})]\s*$|\b(?:else|do)\s*$|^\s*(?:case\b.*|\w+):\s*$|^#|^\s*$")
ERROR = re.compile(r"(.*?):(\d+):(?:\d+:)? (?:fatal )?error:")
EDIT_TYPE = re.compile(r"(?:Edit|Not|Increment)<(\d+)>|Of<.*?, (\d+)>")
WRITERS = ["tools/mutation/edits.py", "tools/mutation/fitting.py", "tools/mutation/switching.py"]
NEAR = 4  # lines, between an error in an expression and an operator of it


def may_be_switched(edit, lines):
    line, before = lines[edit["line"] - 1], lines[edit["line"] - 2]
    if edit["new"] == ";":
        return not CONSTANT_LINE.search(line) and line.lstrip()[0] not in "-." and STATEMENT_MAY_FOLLOW.search(before)
    if edit["old"] == "++" and not re.match(r"\w", line[edit["column"] + 2:]):
        return False
    return not CONSTANT_LINE.search(line)


class Fit:
    """Tries which edits of a source fit: the source, and the compiler, which is asked about them in the copy."""

    def __init__(self, copy, name, command, folder):
        self.copy, self.name, self.command, self.folder = copy, name, command, folder
        self.text = (ROOT / name).read_text(encoding="utf-8")

    def errors(self, edits):
        """Returns the lines that the compiler prints about the source with switches; none if it compiles."""
        try:
            self.copy.write(self.name, switched_text(self.name, self.text, edits).encode())
        except Overlap as overlap:
            return [str(overlap)]
        done = subprocess.run(self.command, cwd=self.folder, capture_output=True, text=True, errors="replace")
        return done.stderr.splitlines() if done.returncode else []

    def files_read(self):
        """Returns the names of the tree's files on which the fit depends."""
        rule = subprocess.run([*self.command, "-MM"], cwd=self.folder, check=True, capture_output=True, text=True)
        read = [os.path.relpath(os.path.join(self.folder, word), self.copy.tree)
                for word in rule.stdout.replace("\\\n", " ").split()[1:]]
        return [*WRITERS, *(name for name in read if (ROOT / name).is_file())]

    def fitting(self, edits):
        """Returns those of the edits that compile with switches together."""
        while errors := self.errors(edits):
            wrong = self.blamed(errors, edits)
            if not wrong:
                return self.fitting_halves(edits)
            edits = {number: edit for number, edit in edits.items() if number not in wrong}
        return edits

    def fitting_halves(self, edits):
        if errors := self.errors({}):
            sys.exit(f"mutate: {self.name} does not compile on its own\n" + "\n".join(errors[:9]))
        if len(edits) == 1:
            return {}
        entries = list(edits.items())
        first, second = (self.fitting(dict(half))
                         for half in (entries[:len(entries) // 2], entries[len(entries) // 2:]))
        return first if self.errors({**first, **second}) else {**first, **second}

    def blamed(self, errors, edits):
        """Returns the numbers of the edits to which the errors refer."""
        found = set()
        for at, line in enumerate(errors):
            if error := ERROR.match(line):
                if error[1].endswith(self.name):
                    found |= self.blamed_by(line, int(error[2]), edits)
                else:
                    found |= self.blamed_around(errors[max(0, at - 12):at + 25], edits)
        return found

    def blamed_by(self, line, number, edits):
        named = {int(one or other) for one, other in EDIT_TYPE.findall(line)} & edits.keys()
        return named or on_lines(edits, number, number) or on_lines(edits, number + 1, number + 1, {";"}) or \
            on_lines(edits, number - NEAR, number + NEAR, LOGICAL)

    def blamed_around(self, lines, edits):
        """Returns what the lines about an error in a header name: where it was used, or an edit's type."""
        for line in lines:
            used = re.search(rf"{re.escape(self.name)}:(\d+):", line)
            named = {int(one or other) for one, other in EDIT_TYPE.findall(line)} & edits.keys()
            named |= on_lines(edits, int(used[1]), int(used[1])) if used else set()
            if named:
                return named
        return set()


def on_lines(edits, first, last, kinds=None):
    return {number for number, edit in edits.items() if first <= edit["line"] <= last
            and (kinds is None or edit["old"] in kinds or edit["new"] in kinds)}


def digest(name):
    path = ROOT / name
    return hashlib.sha256(path.read_bytes()).hexdigest() if path.is_file() else ""


class Fits:
    """The edits that fit, by source, and the numbers of all edits, both kept in a file. A fit counts until a file
    changes that the compiler reads for it; the number of an edit stays, so that other sources are not built again."""

    def __init__(self, path):
        self.path = path
        kept = json.loads(path.read_text(encoding="utf-8")) if path.exists() else {"numbers": {}, "sources": {}}
        self.numbers, self.sources = kept["numbers"], kept["sources"]

    def add_numbers(self, edits):
        for edit in edits:
            self.numbers.setdefault(edit["key"], len(self.numbers) + 1)

    def number(self, edit):
        return self.numbers[edit["key"]]

    def is_switched(self, edit):
        return edit["key"] in self.sources[edit["file"]]["edits"]

    def is_known(self, name):
        """Returns whether it is known which edits of the source fit."""
        files = self.sources.get(name, {}).get("files", {"": "unknown"})
        return all(digest(file) == then for file, then in files.items())

    def switched_text(self, name):
        edits = {self.number(edit): edit for edit in edits_of_file(name) if self.is_switched(edit)}
        return switched_text(name, (ROOT / name).read_text(encoding="utf-8"), edits)

    def find(self, copy, name, command):
        """Finds out which edits of the source fit, and leaves the source with their switches in the copy. Returns the
        name with what has been found."""
        lines = blanked((ROOT / name).read_text(encoding="utf-8")).splitlines()
        possible = {self.number(edit): edit for edit in edits_of_file(name) if may_be_switched(edit, lines)}
        fit = Fit(copy, name, *command)
        found = fit.fitting(possible)
        fit.errors(found)
        return name, {"files": {file: digest(file) for file in fit.files_read()},
                      "edits": [edit["key"] for edit in found.values()]}

    def keep(self, name, found):
        self.sources[name] = found
        self.path.write_text(json.dumps({"numbers": self.numbers, "sources": self.sources}), encoding="utf-8")
