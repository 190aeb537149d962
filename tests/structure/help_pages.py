"""help_pages.py FOLDER STRINGS: fails unless the help has the same pages in each language, without broken links, and
everything in bold (menus and captions) is a text of the program in that language."""
import re
import sys
from html.parser import HTMLParser
from pathlib import Path

UNCLOSED = {"meta", "img", "br"}


class Page(HTMLParser):
    """Collects the links, the structure and the errors of a page."""

    def __init__(self, path):
        super().__init__()
        self.refers, self.elements, self.wrong, self.open, self.bold = [], [], [], [], []
        self.feed(path.read_text(encoding="utf-8"))
        self.wrong += [f"<{tag}> is left open" for tag in self.open]

    def handle_starttag(self, tag, attrs):
        attrs = dict(attrs)
        self.elements.append(tag)
        self.refers += [attrs[name] for name in ("href", "src") if name in attrs]
        if tag == "img" and not attrs.get("alt"):
            self.wrong.append(f"{attrs.get('src')} has no alternative text")
        if tag not in UNCLOSED:
            self.open.append(tag)

    def handle_endtag(self, tag):
        if not self.open or self.open.pop() != tag:
            self.wrong.append(f"</{tag}> closes nothing")

    def handle_data(self, data):
        if self.open and self.open[-1] == "b":
            self.bold += re.split(", |、", " ".join(data.split()))


def plain(text):
    """Returns a text of the program as the help quotes it: without mnemonic, dots and colon."""
    return " ".join(re.sub(r"\(&\w\)|&", "", text).split()).rstrip(" .:")


def quoted_wrong(page, texts):
    return [text for text in page.bold if re.search(r"\w", text) and plain(text) not in texts]


def complaints(folder, strings):
    pages = {path.relative_to(folder): Page(path) for path in sorted(folder.glob("*/*.html"))}
    for name, page in pages.items():
        english = pages.get(Path("en", name.name))
        if not english:
            yield f"{name}: there is no English page"
        elif page.elements != english.elements:
            yield f"{name}: is not built as the English page"
        yield from (f"{name}: {what}" for what in page.wrong)
        yield from (f"{name}: {to} is missing" for to in page.refers if not (folder / name.parent / to).exists())
    for language in {name.parent for name in pages}:
        entries = (strings / f"{language}.txt").read_text(encoding="utf-8")
        texts = {plain(text) for text in re.findall(r'^\d+ "(.*)"$', entries, re.MULTILINE)}
        yield from (f"{name}: the program has no text {text!r}" for name, page in pages.items()
                    if name.parent == language for text in quoted_wrong(page, texts))
        yield from (f"{language / name.name}: is missing" for name in pages if not (folder / language / name.name).exists())
    if not pages:
        yield f"{folder}: no page"


if __name__ == "__main__":
    found = list(complaints(Path(sys.argv[1]), Path(sys.argv[2])))
    print(*found, sep="\n")
    sys.exit(1 if found else 0)
