"""install_test.py CMAKE BUILD SOURCE CONFIG COMPILER sanitize=SANITIZERS: uses the installed tree as another project and
as a user. The tree is moved after the installation, so that nothing can depend on its first place."""
import json
import os
import re
import shutil
import subprocess
import sys
import unittest
from pathlib import Path

CMAKE, BUILD, SOURCE, CONFIG, COMPILER = sys.argv[1:6]
SANITIZERS = sys.argv[6].removeprefix("sanitize=")
WORK = Path(BUILD) / "tests" / "install" / "work"
TREE = WORK / "moved"
SHARE = TREE / "share"
DATA = SHARE / "KoTimebaseEditor"
PROGRAM = TREE / "bin" / "korvell-host"
SETUP = DATA / "demo" / "engine-bench-demo.json"
HAS_SIGROK = (Path(BUILD) / "modules" / "libkorvell-sigrok.so").exists()


def run(*command, status=0, warnings_allowed=True, **environment):
    done = subprocess.run([*map(str, command)], capture_output=True, text=True, timeout=240, cwd=WORK, check=False,
                          env={**os.environ, "LC_ALL": "C", "QT_QPA_PLATFORM": "offscreen", **environment})
    if done.returncode != status or (done.stderr and not warnings_allowed):
        raise AssertionError(f"{command}: {done.returncode}\n{done.stdout}{done.stderr}")
    return done.stdout


def build(folder, name):
    """Builds a project against the installed tree."""
    run(CMAKE, "-S", folder, "-B", WORK / name, "-G", "Ninja", f"-DCMAKE_PREFIX_PATH={TREE}",
        f"-DCMAKE_BUILD_TYPE={CONFIG}", f"-DCMAKE_CXX_COMPILER={COMPILER}",
        "-DCMAKE_CXX_FLAGS=" + (f"-fsanitize={SANITIZERS}" if SANITIZERS else ""))
    run(CMAKE, "--build", WORK / name)


def build_project(folder, name):
    """The same; returns the output of its only program."""
    build(folder, name)
    return run(WORK / name / name)


def setUpModule():
    shutil.rmtree(WORK, ignore_errors=True)
    WORK.mkdir(parents=True)
    run(CMAKE, "--install", BUILD, "--config", CONFIG, "--prefix", WORK / "tree")
    (WORK / "tree").rename(TREE)


class InstalledComponent(unittest.TestCase):
    def test_a_host_of_twenty_lines_is_built_against_it(self):
        example = SHARE / "doc" / "KoTimebaseEditor" / "examples" / "minimal-host"
        output = build_project(example, "minimal-host")
        self.assertEqual(output, "changed\nSpan 1953.125 Hz\nsample period 0.0002\n")

    def test_every_header_finds_what_it_includes(self):
        folder = WORK / "headers-source"
        folder.mkdir()
        include = TREE / "include" / "KoTimebaseEditor"
        headers = sorted(path.relative_to(include) for path in include.rglob("*.h"))
        self.assertIn(Path("document/ClassFactory.h"), headers)
        module = Path("host/modules/InstrumentModule.h")
        kit = ""
        if module in headers:
            kit = "find_package(Qt6 REQUIRED COMPONENTS Core)\ntarget_link_libraries(headers PRIVATE Qt6::Core)\n"
        (folder / "main.cpp").write_text(
            "".join(f"#include <{header}>\n" for header in headers) + "int main() {}\n", encoding="utf-8")
        (folder / "CMakeLists.txt").write_text(
            "cmake_minimum_required(VERSION 3.25)\nproject(headers LANGUAGES CXX)\n"
            "find_package(KoTimebaseEditor 0.2 REQUIRED)\nadd_executable(headers main.cpp)\n"
            "target_link_libraries(headers PRIVATE KoTimebaseEditor::KoTimebaseEditor)\n" + kit, encoding="utf-8")
        build_project(folder, "headers")

    def test_its_package_files_name_no_folder_of_this_machine(self):
        files = list((TREE / "lib").rglob("*.cmake"))
        self.assertTrue(files)
        for path in files:
            text = path.read_text(encoding="utf-8")
            for folder in (BUILD, SOURCE, str(WORK)):
                self.assertNotIn(folder, text, path)


@unittest.skipUnless((Path(BUILD) / "host" / "main" / "korvell-host").exists(), "built without the program")
class InstalledProgram(unittest.TestCase):
    def test_it_lists_runs_the_demo_and_speaks_german_with_what_is_installed_beside_it(self):
        self.assertRegex(run(PROGRAM, "--version"), r"^korvell-host \d+\.\d+\.\d+\n$")
        english = run(PROGRAM, SETUP, "--list", "--json")
        self.assertIn("sample-rate", english)
        self.assertNotEqual(run(PROGRAM, SETUP, "--list", "--json", "--language", "de_AT"), english)
        run(PROGRAM, "--headless", SETUP, DATA / "demo" / "demo.scenario")

    def test_a_driver_module_is_built_against_it_checked_played_and_recorded(self):
        example = SHARE / "doc" / "KoTimebaseEditor" / "examples" / "minimal-module"
        build(example, "minimal-module")
        plugin = WORK / "minimal-module" / "libminimal-module.so"
        modules = ("--module-folder", WORK / "minimal-module")
        self.assertRegex(run(PROGRAM, "--check-module", plugin, warnings_allowed=False), r"^\d+ calls, 0 findings\n$")
        self.assertIn(f"{plugin}\n  machine  This machine\n", run(PROGRAM, *modules, "--modules"))
        played = run(PROGRAM, *modules, "--headless", example / "load.json", example / "load.scenario")
        self.assertNotIn('"report"', played)
        recorded = run(PROGRAM, *modules, example / "load.json", "--set", "duration=0.1", "--record", WORK / "load.h5")
        self.assertRegex(recorded, r"Load +samples +10 +10\n")
        # The guide's commands are those of the example's description.
        guide = (SHARE / "doc" / "KoTimebaseEditor" / "driver-in-an-hour.md").read_text(encoding="utf-8")
        for line in (example / "README.md").read_text(encoding="utf-8").splitlines():
            if line.startswith("    korvell-host "):
                self.assertIn(line.strip(), guide)

    def test_it_uses_no_file_of_the_source_tree_or_the_build(self):
        library = re.search(r"libKoTimebaseEditor\S* => (\S+)", run("ldd", PROGRAM))[1]
        self.assertTrue(Path(library).resolve().is_relative_to(TREE), library)
        # Data missing from the installed tree must not be found in the source tree.
        (DATA / "strings").rename(DATA / "hidden")
        try:
            run(PROGRAM, SETUP, "--list", "--language", "de", status=2)
        finally:
            (DATA / "hidden").rename(DATA / "strings")

    @unittest.skipUnless(HAS_SIGROK, "built without the driver module for libsigrok")
    def test_it_records_with_the_driver_module_installed_beside_it(self):
        self.assertRegex(run(PROGRAM, "--modules"), rf"(?m)^sigrok  libsigrok .*{TREE}(.|\n)*^  demo  Demo device$")
        setup, recording = WORK / "device.json", WORK / "device.h5"
        setup.write_text(json.dumps({"title": "Device", "drivers": [
            {"name": "Device", "module": "sigrok", "device": "demo", "measurementMode": 1, "samplingMode": 1, "groups": [],
             "timebase": {"duration": 0.1, "blockSize": {"value": 10}}}]}), encoding="utf-8")
        self.assertIn("complete", run(PROGRAM, setup, "--record", recording))

    def test_a_window_follows_the_systems_language(self):
        pictures = {}
        for language in ("C", "en_GB.UTF-8", "de_AT.UTF-8", "xx_YY.UTF-8"):
            picture = WORK / f"{language}.png"
            run(PROGRAM, "--picture", picture, SETUP, LC_ALL="", LC_MESSAGES="", LANG=language)
            pictures[language] = picture.read_bytes()
        self.assertEqual(len(set(pictures.values())), 2)
        self.assertNotEqual(pictures["C"], pictures["de_AT.UTF-8"])
        run(PROGRAM, "--picture", WORK / "first.png", SETUP, LC_ALL="de_AT.UTF-8", LC_MESSAGES="C", LANG="C")
        self.assertEqual((WORK / "first.png").read_bytes(), pictures["de_AT.UTF-8"])

    def test_the_desktop_and_the_shells_find_what_they_look_for(self):
        for name in ("icons/hicolor/scalable/apps/org.korvell.Host.svg", "icons/hicolor/128x128/apps/org.korvell.Host.png",
                     "bash-completion/completions/korvell-host", "zsh/site-functions/_korvell-host",
                     "doc/KoTimebaseEditor/LICENSE", "doc/KoTimebaseEditor/CHANGELOG.md",
                     "KoTimebaseEditor/help/en/index.html", "KoTimebaseEditor/help/ja/index.html"):
            self.assertTrue((SHARE / name).is_file(), name)

    def test_desktop_entry_appstream_data_and_man_page_are_valid(self):
        run("desktop-file-validate", SHARE / "applications/org.korvell.Host.desktop")
        run("appstreamcli", "validate", "--no-net", SHARE / "metainfo/org.korvell.Host.metainfo.xml")
        run("groff", "-ww", "-man", "-z", "-Tutf8", SHARE / "man/man1/korvell-host.1", warnings_allowed=False)

    def test_the_debian_packages_hold_a_program_that_runs_and_depend_on_each_other(self):
        packages, root = WORK / "packages", WORK / "root"
        run(Path(CMAKE).with_name("cpack"), "-G", "DEB", "-C", CONFIG, "--config", Path(BUILD) / "CPackConfig.cmake",
            "-B", packages)
        dependencies = {}
        for package in packages.glob("*.deb"):
            run("dpkg-deb", "-x", package, root)
            name, version, dependencies[name] = run("dpkg-deb", "-W", "--showformat=${Package}\\n${Version}\\n${Depends}",
                                                    package).split("\n")
        library = f"libkotimebaseeditor0.2 (= {version})"
        self.assertEqual(set(dependencies), {"korvell-host", "libkotimebaseeditor-dev", "libkotimebaseeditor0.2"}
                         | ({"korvell-host-sigrok"} if HAS_SIGROK else set()))
        self.assertEqual(dependencies["libkotimebaseeditor-dev"], library)
        self.assertIn(library, dependencies["korvell-host"])
        self.assertRegex(dependencies["korvell-host"], "libqt6widgets6")
        self.assertNotIn("sigrok", dependencies["korvell-host"])
        if HAS_SIGROK:
            self.assertRegex(dependencies["korvell-host-sigrok"], rf"korvell-host \(= {version}\).*libsigrok4")
        run(root / "usr/bin/korvell-host", root / "usr/share/KoTimebaseEditor/demo/engine-bench-demo.json",
            "--language", "ja", "--list")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
