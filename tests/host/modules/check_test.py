"""check_test.py PROGRAM PLUGIN LIBRARY: runs --check-module and --modules on modules that are good, broken, and none."""
import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

PROGRAM, PLUGIN, LIBRARY = (Path(argument).resolve() for argument in sys.argv[1:4])


def run(*arguments, throws=""):
    done = subprocess.run([PROGRAM, *map(str, arguments)], capture_output=True, text=True, timeout=120, check=False,
                          env={**os.environ, "KO_TEST_THROWS": throws})
    return done.returncode, done.stdout, done.stderr


class CheckModule(unittest.TestCase):
    def test_the_exit_status_says_whether_the_module_keeps_the_contract(self):
        status, output, errors = run("--check-module", PLUGIN)
        self.assertEqual((status, errors), (0, ""))
        self.assertRegex(output, r"^\d{4,} calls, 0 findings\n$")
        for throws, finding in (("about", "module: about: fails: about throws"),
                                ("open", 'a: open("a"): fails: open throws'),
                                ("held", "b: held: fails: held throws")):
            status, output, errors = run("--check-module", PLUGIN, throws=throws)
            self.assertEqual((status, errors), (1, ""))
            self.assertIn(finding, output.splitlines())
            self.assertRegex(output.splitlines()[-1], r"^\d+ calls, [1-9]\d* findings$")

    def test_a_call_that_crashes_is_named(self):
        status, output, _ = run("--check-module", PLUGIN, throws="crash")
        self.assertEqual((status, output.splitlines()[-1]), (1, "module: devices: crashes the program"))

    def test_a_file_that_is_no_module_is_an_input_error(self):
        for file in (LIBRARY, Path("nowhere.so"), Path(__file__)):
            status, output, errors = run("--check-module", file)
            self.assertEqual((status, output, errors), (2, "", f"korvell-host: {file}: is no driver module\n"))

    def test_modules_are_listed_with_their_devices(self):
        with tempfile.TemporaryDirectory() as folder:
            (Path(folder) / "module.so").symlink_to(PLUGIN)
            (Path(folder) / "text.so").write_text("text", encoding="utf-8")
            status, output, errors = run("--module-folder", folder, "--modules")
            self.assertEqual(status, 0)
            self.assertIn(f"scripted  a test  {folder}/module.so\n  a  Device a\n  b  Device b\n", output)
            self.assertIn(f"note: {folder}/text.so: is no driver module", errors)
        self.assertEqual(run("--module-folder", PLUGIN, "--modules")[0], 2)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
