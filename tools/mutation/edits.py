"""The small edits that can be made in a source: how they are found, applied and described."""
import re
from collections import Counter
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
FOLDERS = ["src", "host"]

OPERATORS = [(" < ", " <= "), (" <= ", " < "), (" > ", " >= "), (" >= ", " > "), (" == ", " != "), (" != ", " == "),
             (" + ", " - "), (" - ", " + "), (" * ", " / "), (" / ", " * "), (" && ", " || "), (" || ", " && "),
             (" += ", " -= "), (" -= ", " += "), ("++", "--")]
NEGATION = re.compile(r"!(?=[\w(])")
TRUTH = re.compile(r"\b(?:true|false)\b")
NUMBER = re.compile(r"(?<![\w.\"])(\d+)(\.\d+)?(?![\w.'])")
# A call or an assignment on a single line.
STATEMENT = re.compile(r"^\s+(?!return\b|throw\b|delete\b|goto\b)[\w:.\[\]>*-]+(?:\(.*\)|(?:\(\))?[\w.>-]* [-+|&]?= .*);$")
# Comments and string literals.
NO_CODE = re.compile(r'//[^\n]*|/\*.*?\*/|R"\((?:.*?)\)"|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])+\'', re.DOTALL)


def blanked(text):
    """Returns the text with comments and string literals replaced by blanks, so that columns are kept."""
    return NO_CODE.sub(lambda found: re.sub(r"[^\n]", "_" if found[0][0] in "\"'R" else " ", found[0]), text)


def edits_of_line(line):
    """Yields (column, old, new) of each possible edit of the line."""
    if re.match(r"\s*(#|namespace|using|template|static_assert|\}|$)", line):
        return
    for old, new in OPERATORS:
        for found in re.finditer(re.escape(old), line):
            yield found.start(), old, new
    for found in NEGATION.finditer(line):
        yield found.start(), "!", ""
    for found in TRUTH.finditer(line):
        yield found.start(), found[0], "false" if found[0] == "true" else "true"
    for found in NUMBER.finditer(line):
        whole = 0 if found[1] == "1" else int(found[1]) + 1
        yield found.start(), found[0], f"{whole}{found[2] or ''}"
    if STATEMENT.match(line) and line.count("(") == line.count(")"):
        start = len(line) - len(line.lstrip())
        yield start, None, ";"


def edits_of_file(name):
    """Yields the edits of a source. Their keys stay the same when other lines of the source change."""
    text = (ROOT / name).read_text(encoding="utf-8")
    seen, line_start = Counter(), 0
    for number, (line, code) in enumerate(zip(text.splitlines(), blanked(text).splitlines()), 1):
        for column, old, new in edits_of_line(code):
            old = line[column:] if old is None else old
            key = f"{name}|{line.strip()}|{column}|{old}|{new}"
            seen[key] += 1
            yield {"key": f"{key}|{seen[key]}", "file": name, "line": number, "column": column,
                   "offset": line_start + column, "old": old, "new": new}
        line_start += len(line) + 1


def all_edits():
    """Returns the edits of all sources."""
    paths = [path for folder in FOLDERS for path in sorted((ROOT / folder).rglob("*.cpp"))]
    return [edit for path in paths for edit in edits_of_file(path.relative_to(ROOT).as_posix())]


def edited_text(edit):
    """Returns the text of the edit's source with the edit made."""
    text, start = (ROOT / edit["file"]).read_text(encoding="utf-8"), edit["offset"]
    return text[:start] + edit["new"] + text[start + len(edit["old"]):]


def described(edit):
    change = f"without  {edit['old']}" if edit["new"] == ";" else f"{edit['old'].strip()}  ->  {edit['new'].strip()}"
    line = (ROOT / edit["file"]).read_text(encoding="utf-8").splitlines()[edit["line"] - 1].strip()
    return f"{edit['file']}:{edit['line']}:{edit['column'] + 1}: {change}\n        {line}"
