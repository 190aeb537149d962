"""include_direction.py ROOT: fails when an include of the sources in ROOT points the wrong way between their folders."""
import re
import sys
from pathlib import Path

# A folder may include itself and the folders of the ranks above its own; those of one rank do not know each other. The
# component's own come first; the toolkit's page and the host's rooms follow, each named by its path.
COMPONENT = [["interfaces"], ["platform"], ["support"], ["page"], ["timebase", "schedule", "triggering"], ["document"]]
# What the host does without a window: it knows the component, and no toolkit.
HEADLESS = [["host/support"], ["host/instruments"], ["host/setup"], ["host/scenario"], ["host/settings"]]
TOOLKIT = [["widgets/support"], ["widgets/bindings"], ["widgets/dialogs"], ["widgets/services", "widgets/page"],
           ["host/sheet"], ["host/window"], ["host/main"]]
RANKS = [*COMPONENT, *HEADLESS, *TOOLKIT]
RANK_OF = {folder: rank for rank, folders in enumerate(RANKS) for folder in folders}
CLOSED_FOLDERS = {folder for folders in COMPONENT for folder in folders}
HEADLESS_FOLDERS = {folder for folders in HEADLESS for folder in folders}
PAGE_FOLDERS = {"widgets/support", "widgets/bindings", "widgets/dialogs", "widgets/services", "widgets/page"}
# What `src/` is left out of in the names of includes.
TREES = {"src": "", "host": "host/"}

# Made by the build.
GENERATED = {"support/TextNumbers.h"}

DIRECTIVE = re.compile(r"^\s*#\s*(?:include|import|include_next)\b\s*(.*)", re.MULTILINE)
TARGET = re.compile(r'^(?:<(?P<system>[^>]+)>|"(?P<own>[^"]+)")')
STANDARD = re.compile(r"[a-z_]+[a-z_0-9]*")


def folder_of(name):
    """The folder of a source or an include, by its path as includes write it."""
    parts = name.split("/")[:-1]
    return "/".join(parts[:2] if parts and parts[0] in {"widgets", "host"} else parts[:1])


def is_file(root, name):
    return (root / "src" / name).is_file() or (name.startswith("host/") and (root / name).is_file())


def complaint(root, folder, text):
    """What is wrong with an include of this text in this folder, or None."""
    target = TARGET.match(text)
    if not target:
        return "is not a plain include"
    if target["system"]:
        if folder in CLOSED_FOLDERS and not STANDARD.fullmatch(target["system"]):
            return "is no header of the standard library"
        if folder in HEADLESS_FOLDERS and target["system"].startswith("Q"):
            return "is a header of the toolkit"
        return None
    own = target["own"]
    other = folder_of(own)
    if other not in RANK_OF or ".." in own or not (is_file(root, own) or own in GENERATED):
        return "names no file from the source folder on"
    if other != folder and (RANK_OF[other] >= RANK_OF[folder] or
                            (folder in PAGE_FOLDERS and other in HEADLESS_FOLDERS)):
        return f"points the wrong way: {folder} may not know {other}"
    return None


def sources(root):
    """Each source below `root` with its name as includes write it."""
    for tree, prefix in TREES.items():
        for path in sorted((root / tree).rglob("*")):
            if path.suffix in {".h", ".cpp", ".hpp", ".inl"}:
                yield path, prefix + path.relative_to(root / tree).as_posix()


def check(root):
    """All complaints about the sources in `root`, and the number of includes that were looked at."""
    complaints, includes = [], 0
    for path, name in sources(root):
        folder = folder_of(name)
        if folder not in RANK_OF:
            complaints.append(f"{name}: lies in none of the known folders")
            continue
        text = path.read_text(encoding="utf-8")
        for include in DIRECTIVE.finditer(text):
            includes += 1
            if what := complaint(root, folder, include[1]):
                line = text.count("\n", 0, include.start(1)) + 1
                complaints.append(f"{name}:{line}: {include[1].strip()} {what}")
    if includes == 0:
        complaints.append(f"{root}: no include found at all")
    return complaints, includes


def main():
    complaints, includes = check(Path(sys.argv[1]))
    print(*complaints, f"{includes} includes looked at, {len(complaints)} complaints", sep="\n")
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
