"""The copy of the tree in which edits are made, and its build."""
import json
import os
import shlex
import shutil
import subprocess
import sys

from .edits import ROOT, edited_text


class Copy:
    """A copy in the folder. It is built as a preset says, without Qt if it is that of the component alone."""

    def __init__(self, folder, preset, jobs):
        self.tree, self.build_folder = folder / "tree", folder / "tree" / "build"
        self.preset, self.jobs = preset, jobs
        self.environment = {**os.environ, "CCACHE_BASEDIR": str(self.tree), "CCACHE_NOHASHDIR": "1"}

    def write(self, name, content):
        """Writes a file of the copy. One that is so already keeps its time and is not built again."""
        path = self.tree / name
        if not (path.is_file() and path.read_bytes() == content):
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_bytes(content)

    def update(self, switched):
        """Makes all files those of the tree, except for the switched ones, whose text is given by their names, and
        prepares the build."""
        listed = subprocess.run(["git", "ls-files", "-co", "--exclude-standard"], cwd=ROOT, check=True,
                                capture_output=True, text=True).stdout.splitlines()
        names = {name for name in listed if (ROOT / name).is_file()}
        for name in names:
            self.write(name, switched[name].encode() if name in switched else (ROOT / name).read_bytes())
        for path in [path for path in self.tree.rglob("*") if self.build_folder not in path.parents and path.is_file()]:
            if path.relative_to(self.tree).as_posix() not in names:
                path.unlink()
        if not (self.build_folder / "build.ninja").exists():
            self.configure()

    def configure(self):
        options = ["-DCMAKE_CXX_FLAGS_DEBUG=-O0", "-DCMAKE_UNITY_BUILD=OFF", "-DKO_WARNINGS_AS_ERRORS=OFF",
                   "-DKO_BENCH=OFF"]
        options += ["-DCMAKE_CXX_COMPILER_LAUNCHER=ccache"] if shutil.which("ccache") else []
        linker = next((name for name in ("mold", "lld") if shutil.which(f"ld.{name}")), "bfd")
        options += [f"-DCMAKE_{kind}_LINKER_FLAGS=-fuse-ld={linker}" for kind in ("EXE", "SHARED")]
        subprocess.run(["cmake", "--preset", self.preset, "-B", str(self.build_folder), *options], cwd=self.tree,
                       check=True, stdout=subprocess.DEVNULL)

    def commands(self):
        """Returns (command, folder) by which the compiler checks a source without output, by the sources' names."""
        found = {}
        for entry in json.loads((self.build_folder / "compile_commands.json").read_text(encoding="utf-8")):
            words = shlex.split(entry["command"])
            words = words[1:] if words[0].endswith("ccache") else words
            output = words.index("-o")
            del words[output:output + 2]
            found[os.path.relpath(entry["file"], self.tree)] = ([*words, "-fsyntax-only"], entry["directory"])
        return found

    def ninja(self, *arguments):
        return subprocess.run(["ninja", "-C", str(self.build_folder), *arguments], env=self.environment,
                              capture_output=True, text=True, errors="replace")

    def is_built(self):
        return "no work to do" in self.ninja("-n").stdout

    def build(self):
        """Builds everything. The sources must compile."""
        built = self.ninja("-j", str(self.jobs))
        if built.returncode != 0:
            sys.exit(f"mutate: the copy cannot be built\n{built.stdout[-4000:]}")

    def compiles_with(self, edit):
        """Builds all with an edit, without the switches of its source; returns whether that compiles."""
        self.write(edit["file"], edited_text(edit).encode())
        return self.ninja("-j", str(self.jobs)).returncode == 0
