"""no_qt.py BUILD: fails if any input or output of the core-only build refers to Qt."""
import re
import subprocess
import sys
from pathlib import Path

# Mangled names of Qt's classes, and of its functions that begin with a lower-case q.
SYMBOL = re.compile(r"\d(?:Q[A-Z]\w|q[A-Z]\w+Private)|\b_Z(?:N\d*)?\d+q(?:t_|Register|Flag|Version|App)")
HEADER = re.compile(r"/qt6/|/Qt(?:Core|Gui|Widgets)/")


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def complaints_about(file):
    symbols = sorted(set(line for line in output_of("nm", "-A", str(file)).splitlines() if SYMBOL.search(line)))
    libraries = [] if file.suffix in {".o", ".a"} else [
        line for line in output_of("readelf", "-d", str(file)).splitlines() if "NEEDED" in line and "libQt" in line]
    return symbols + [f"{file}: {line.strip()}" for line in libraries]


def is_binary(path):
    if not path.is_file() or path.is_symlink() or "CompilerId" in str(path):
        return False
    with path.open("rb") as file:
        return file.read(8).startswith((b"\x7fELF", b"!<arch>"))


def main():
    build = Path(sys.argv[1])
    files = [path for path in build.rglob("*") if is_binary(path)]
    complaints = [what for file in files for what in complaints_about(file)]
    complaints += [line for line in output_of("ninja", "-C", str(build), "-t", "deps").splitlines()
                   if HEADER.search(line)]
    complaints += [line for line in (build / "CMakeCache.txt").read_text(encoding="utf-8").splitlines()
                   if re.match(r"Qt\d\w*_DIR:.*=/", line)]
    if not any(file.suffix == ".o" for file in files):
        complaints.append(f"{build}: no object file found at all")
    print(*complaints[:50], f"{len(files)} files looked at, {len(complaints)} complaints", sep="\n")
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
