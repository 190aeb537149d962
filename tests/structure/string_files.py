"""string_files.py FOLDER NAMES SOURCES...: fails unless every translation in FOLDER has exactly the entries of en.txt, each
with the same place holders and marks, NAMES names texts of en.txt once each, and the SOURCES folders use the names."""
import re
import sys
from pathlib import Path

# Groups of texts whose mnemonics must differ.
TOGETHER = {
    "page and menu bar": [1105, 1106, 1107, 1108, 1126, 3101, 3105, 3110, 3112],
    "date dialog": [1207, 1208],
    "menu File": [3102, 3103, 3104, 3130, 3132, 3133, 3134, 3200, 3356, 3465, 3466, 3479, 3572, 3712, 3730],
    "menu New": [3480, 3481, 3482, 3483, 3484],
    "box of a changed file": [3126, 3127, 3133], "box of unsaved changes": [3718, 3719, 3720],
    "menu View": [3111, 3139, 3140, 3141, 3564], "dialog of faults": [3174, 3175],
    "menu Edit": [3106, 3107, 3108, 3109, 3562, 3563], "menu Help": [3113, 3114, 3122],
    "help window": [3113, 3221, 3222, 3223],
}
# Fixed English texts that share a mnemonic.
GIVEN = {(1107, 1126)}
# Numbers in the sources that are not numbers of texts: dots per inch.
NO_TEXTS = {("QtPrinters.cpp", "1200")}


def entries(path):
    """Returns the texts of a string file by number."""
    texts = {}
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        if not line or line.startswith("#"):
            continue
        entry = re.fullmatch(r'([1-9]\d*) "(.*)"', line)
        if not entry:
            sys.exit(f"{path}:{number}: no entry")
        if int(entry[1]) in texts:
            sys.exit(f"{path}:{number}: a second {entry[1]}")
        texts[int(entry[1])] = entry[2]
    return texts


def shape(text):
    """Returns what a translation must preserve: blanks at the ends, place holders, the presence of a mnemonic, dots."""
    return {
        "leading blanks": len(text) - len(text.lstrip()),
        "trailing blanks": len(text) - len(text.rstrip()),
        "place holders": sorted(re.findall(r"%\w", text)),
        "mnemonics": len(re.findall(r"&[^&\s]", text)),
        "dots at the end": text.endswith("..."),
        "emptiness": not text.strip(),
    }


def unlike(name, english, texts):
    for number in sorted(english.keys() | texts.keys()):
        if number not in texts:
            yield f"{name}: {number} is missing: {english[number]}"
        elif number not in english:
            yield f"{name}: {number} is not in en.txt"
        else:
            for what, expected in shape(english[number]).items():
                if shape(texts[number])[what] != expected:
                    yield f"{name}: {number}: {what}: {texts[number]!r} for {english[number]!r}"


def ambiguous(name, texts, given):
    for place, numbers in TOGETHER.items():
        keys = {}
        for number in numbers:
            for key in re.findall(r"&([^&\s])", texts.get(number, "")):
                other = keys.setdefault(key.lower(), number)
                if other != number and (other, number) not in given:
                    yield f"{name}: {place}: {other} and {number} share the mnemonic {key}"


def misnamed(path, english):
    named = set()
    for line in path.read_text(encoding="utf-8").splitlines():
        if entry := re.fullmatch(r"(\d+) (\w+)", line):
            if int(entry[1]) not in english:
                yield f"{path.name}: {line}: en.txt has no such text"
            if int(entry[1]) in named:
                yield f"{path.name}: {line}: a second name"
            named.add(int(entry[1]))


def code(path):
    """Returns the lines of a source without comments and string literals."""
    return [re.sub(r"//.*", "", re.sub(r'"(\\.|[^"\\])*"', '""', line)) for line in path.read_text().splitlines()]


def unnamed(folders, english):
    """Yields numbers of texts in the sources that should be names."""
    for path in sorted(path for folder in folders for path in folder.rglob("*") if path.suffix in (".h", ".cpp")):
        for number, line in enumerate(code(path), 1):
            for literal in re.findall(r"(?<![\w.'])\d{4}(?![\w.'])", line):
                if int(literal) in english and (path.name, literal) not in NO_TEXTS:
                    yield f"{path}:{number}: {literal} is a text's number; it has a name in TextNames.txt or gets one"


def main(folder, names, *sources):
    files = {path.stem: entries(path) for path in sorted(folder.glob("*.txt"))}
    english = files.pop("en")
    if not files:
        sys.exit(f"{folder}: no translation")
    wrong = [*ambiguous("en", english, GIVEN), *misnamed(names, english), *unnamed(sources, english)]
    for name, texts in files.items():
        wrong += [*unlike(name, english, texts), *ambiguous(name, texts, set())]
    print("\n".join(wrong))
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main(*map(Path, sys.argv[1:])))
