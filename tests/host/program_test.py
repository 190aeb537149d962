"""The reference host as a program: what it prints where, and its exit status. Arguments: the program, demo folder."""
import json
import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

PROGRAM, DEMO = sys.argv[1], Path(sys.argv[2])
SETUP = DEMO / "engine-bench-demo.json"


def run(*arguments, script="", **environment):
    kept = {name: value for name, value in os.environ.items()
            if name not in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM")}
    return subprocess.run([PROGRAM, *map(str, arguments)], input=script, text=True, capture_output=True, timeout=60,
                          env={**kept, **environment}, check=False)


class Program(unittest.TestCase):
    def test_the_demo_scenario_runs_to_its_end_and_prints_one_object_a_line(self):
        done = run("--headless", SETUP, DEMO / "demo.scenario")
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        events = [json.loads(line) for line in done.stdout.splitlines()]
        self.assertTrue(all("line" in event and "event" in event for event in events))
        self.assertEqual(events[-1]["event"], "drivers")

    def test_a_script_on_standard_input_decides_the_exit_status(self):
        for script, status, complaint in (("setup\nshow\nexpect cmbInterval text seconds\n", 0, ""),
                                          ("setup\nshow\nexpect cmbInterval text weeks\nhide\n", 1, ""),
                                          ("setup\njump\n", 2, "standard input:2:")):
            done = run("--headless", SETUP, script=script)
            self.assertEqual(done.returncode, status, script)
            self.assertTrue(done.stderr.startswith(complaint), done.stderr)
            self.assertEqual(done.stderr.count("\n"), 1 if complaint else 0)

    def test_without_a_display_the_setup_is_checked_and_the_reason_said(self):
        self.assertIn("no display", run(SETUP).stderr)
        for arguments, environment in (((), {}), ((), {"QT_QPA_PLATFORM": "offscreen"}), (("--headless",), {})):
            done = run(*arguments, "nowhere.json", **environment)
            self.assertEqual(done.returncode, 2)
            self.assertIn("nowhere.json", done.stderr)

    def test_a_picture_needs_no_display(self):
        with tempfile.TemporaryDirectory() as folder:
            picture = Path(folder) / "page.png"
            self.assertEqual(run("--picture", picture, SETUP).returncode, 0)
            self.assertTrue(picture.read_bytes().startswith(b"\x89PNG"))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
