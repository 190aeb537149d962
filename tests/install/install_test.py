"""install_test.py CMAKE BUILD SOURCE CONFIG COMPILER sanitize=SANITIZERS: the installed tree, used by another project and
by a user. The tree is moved after its installation, so that nothing can lean on where it was."""
import os
import shutil
import subprocess
import sys
import unittest
from pathlib import Path

CMAKE, BUILD, SOURCE, CONFIG, COMPILER = sys.argv[1:6]
SANITIZERS = sys.argv[6].removeprefix("sanitize=")
WORK = Path(BUILD) / "tests" / "install" / "work"
TREE = WORK / "moved"


def run(*command, status=0, **environment):
    done = subprocess.run([*map(str, command)], capture_output=True, text=True, timeout=240, cwd=WORK, check=False,
                          env={**os.environ, "LC_ALL": "C", "QT_QPA_PLATFORM": "offscreen", **environment})
    if done.returncode != status:
        raise AssertionError(f"{command}: {done.returncode}\n{done.stdout}{done.stderr}")
    return done.stdout


def build_project(folder, name):
    """The output of the only program of a project that is built against the installed tree."""
    run(CMAKE, "-S", folder, "-B", WORK / name, "-G", "Ninja", f"-DCMAKE_PREFIX_PATH={TREE}",
        f"-DCMAKE_BUILD_TYPE={CONFIG}", f"-DCMAKE_CXX_COMPILER={COMPILER}",
        "-DCMAKE_CXX_FLAGS=" + (f"-fsanitize={SANITIZERS}" if SANITIZERS else ""))
    run(CMAKE, "--build", WORK / name)
    return run(WORK / name / name)


def setUpModule():
    shutil.rmtree(WORK, ignore_errors=True)
    WORK.mkdir(parents=True)
    run(CMAKE, "--install", BUILD, "--config", CONFIG, "--prefix", WORK / "tree")
    (WORK / "tree").rename(TREE)


class InstalledComponent(unittest.TestCase):
    def test_a_host_of_twenty_lines_is_built_against_it(self):
        example = TREE / "share" / "doc" / "KoTimebaseEditor" / "examples" / "minimal-host"
        output = build_project(example, "minimal-host")
        self.assertEqual(output, "changed\nSpan 1953.125 Hz\nsample period 0.0002\n")

    def test_every_header_finds_what_it_includes(self):
        folder = WORK / "headers-source"
        folder.mkdir()
        include = TREE / "include" / "KoTimebaseEditor"
        headers = sorted(path.relative_to(include) for path in include.rglob("*.h"))
        self.assertIn(Path("document/ClassFactory.h"), headers)
        (folder / "main.cpp").write_text(
            "".join(f"#include <{header}>\n" for header in headers) + "int main() {}\n", encoding="utf-8")
        (folder / "CMakeLists.txt").write_text(
            "cmake_minimum_required(VERSION 3.25)\nproject(headers LANGUAGES CXX)\n"
            "find_package(KoTimebaseEditor 0.1 REQUIRED)\nadd_executable(headers main.cpp)\n"
            "target_link_libraries(headers PRIVATE KoTimebaseEditor::KoTimebaseEditor)\n", encoding="utf-8")
        build_project(folder, "headers")

    def test_its_package_files_name_no_folder_of_this_machine(self):
        files = list((TREE / "lib").rglob("*.cmake"))
        self.assertTrue(files)
        for path in files:
            text = path.read_text(encoding="utf-8")
            for folder in (BUILD, SOURCE, str(WORK)):
                self.assertNotIn(folder, text, path)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
