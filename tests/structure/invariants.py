"""invariants.py ARCHITECTURE TESTS: fails unless each invariant in ARCHITECTURE names tests that the sources in TESTS have."""
import re
import sys
from pathlib import Path


def main(architecture, tests):
    sources = "\n".join(path.read_text(encoding="utf-8") for path in sorted(tests.rglob("*.cpp")))
    known = {f"{suite}.{name}" for suite, name in
             re.findall(r"^(?:TEST(?:_[FP])?|RC_GTEST_(?:FIXTURE_)?PROP)\((\w+),\s*(\w+)", sources, re.MULTILINE)}
    section = re.search(r"^## Invariants$(.*?)^## ", architecture.read_text(encoding="utf-8"), re.MULTILINE | re.DOTALL)
    invariants = re.split(r"^- ", section[1], flags=re.MULTILINE)[1:] if section else []
    wrong = [] if invariants else ["no invariants"]
    for invariant in invariants:
        named = re.findall(r"`(\w+\.[A-Z]\w+)`", invariant)
        if not named:
            wrong.append(f"no test: {invariant.splitlines()[0]}")
        wrong += [f"no such test: {name}" for name in named if name not in known]
    print("\n".join(wrong))
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main(Path(sys.argv[1]), Path(sys.argv[2])))
