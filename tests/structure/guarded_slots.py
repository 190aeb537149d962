"""guarded_slots.py FOLDER...: fails unless in the Qt code every slot is guarded, every label, box and tip is plain text, and
every text is filled in by one call, so that inserted text is not taken for a place holder."""
import re
import sys
from pathlib import Path

# Forbidden pattern, its replacement, and the file that may contain it.
RULES = [
    (r"(?<!\w)connect\s*\(", "onSignal", "Guarded.h"),
    (r"\bnew QLabel\b|\bQLabel\s+\w+[{(;]", "PlainLabel", "PlainText.cpp"),
    (r"\bQMessageBox\s*\(|\bQMessageBox \w+[({]|\bQMessageBox::(about|warning|information|question|critical)\b",
     "PlainBox", "PlainText.cpp"),
    (r"\bset(?:ToolTip|WhatsThis)\((?!plainTip\(|action->toolTip\(\))", "plainTip", ""),
    (r"\.arg\((?:[^()]|\((?:[^()]|\([^()]*\))*\))*\)\s*\.arg\(", "one arg with all arguments", ""),
]


def main():
    files = [path for folder in sys.argv[1:] for path in Path(folder).rglob("*.[ch]*")]
    complaints = [f"{path}:{text.count(chr(10), 0, hit.start()) + 1}: {hit[0]!r}; use {instead}"
                  for path in files for text in [path.read_text(encoding="utf-8")]
                  for pattern, instead, home in RULES if path.name != home for hit in re.finditer(pattern, text)]
    if len(files) < 100:
        complaints.append(f"only {len(files)} files found")
    print(*complaints, sep="\n")
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
