"""include_direction.py SRC: fails when an include points the wrong way between the folders of SRC."""
import re
import sys
from pathlib import Path

# A folder may include itself and the folders of the ranks above its own; those of one rank do not know each other.
RANKS = [["interfaces"], ["platform"], ["support"], ["page"], ["timebase", "schedule", "triggering"], ["document"],
         ["widgets"], ["host"]]
RANK_OF = {folder: rank for rank, folders in enumerate(RANKS) for folder in folders}
# These also include other libraries; every other folder is on the standard library alone.
OPEN_FOLDERS = {"widgets", "host"}

# Made by the build.
GENERATED = {"support/TextNumbers.h"}

DIRECTIVE = re.compile(r"^\s*#\s*(?:include|import|include_next)\b\s*(.*)", re.MULTILINE)
TARGET = re.compile(r'^(?:<(?P<system>[^>]+)>|"(?P<own>[^"]+)")')
STANDARD = re.compile(r"[a-z_]+[a-z_0-9]*")


def complaint(src, folder, text):
    """What is wrong with an include of this text in this folder, or None."""
    target = TARGET.match(text)
    if not target:
        return "is not a plain include"
    if target["system"]:
        if folder in OPEN_FOLDERS or STANDARD.fullmatch(target["system"]):
            return None
        return "is no header of the standard library"
    own = target["own"]
    if own.endswith(".moc") and "/" not in own and folder in OPEN_FOLDERS:
        return None
    other = own.split("/")[0]
    if other not in RANK_OF or ".." in own or not ((src / own).is_file() or own in GENERATED):
        return "names no file from the source folder on"
    if other != folder and RANK_OF[other] >= RANK_OF[folder]:
        return f"points the wrong way: {folder} may not know {other}"
    return None


def check(src):
    """All complaints about the sources below `src`, and the number of includes that were looked at."""
    complaints, includes = [], 0
    for path in sorted(p for p in src.rglob("*") if p.suffix in {".h", ".cpp", ".hpp", ".inl"}):
        relative = path.relative_to(src)
        folder = relative.parts[0]
        if folder not in RANK_OF:
            complaints.append(f"{relative}: lies in none of the known folders")
            continue
        for include in DIRECTIVE.finditer(path.read_text(encoding="utf-8")):
            includes += 1
            if what := complaint(src, folder, include[1]):
                line = path.read_text(encoding="utf-8").count("\n", 0, include.start(1)) + 1
                complaints.append(f"{relative}:{line}: {include[1].strip()} {what}")
    if includes == 0:
        complaints.append(f"{src}: no include found at all")
    return complaints, includes


def main():
    complaints, includes = check(Path(sys.argv[1]))
    print(*complaints, f"{includes} includes looked at, {len(complaints)} complaints", sep="\n")
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
