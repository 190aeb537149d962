"""linked_libraries.py LIBRARY PROGRAM MODULE: fails unless the module alone is linked with libsigrok and GLib."""
import re
import subprocess
import sys

FOREIGN = re.compile(r"lib(sigrok|glib|gobject|gio)\b")


def needed(path):
    dump = subprocess.run(["readelf", "-d", path], check=True, capture_output=True, text=True).stdout
    return re.findall(r"\(NEEDED\).*\[(.*)\]", dump)


def main():
    library, program, module = map(needed, sys.argv[1:4])
    print(f"library: {library}", f"program: {program}", f"module: {module}", sep="\n")
    clean = library and program and not any(FOREIGN.match(name) for name in [*library, *program])
    return 0 if clean and any(name.startswith("libsigrok.") for name in module) else 1


if __name__ == "__main__":
    sys.exit(main())
