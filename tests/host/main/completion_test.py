"""completion_test.py COMPLETION PROGRAM DEMO: calls the completion function as bash does and checks its replies."""
import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

COMPLETION, PROGRAM, DEMO = (Path(argument).resolve() for argument in sys.argv[1:4])
SETUP = DEMO / "engine-bench-demo.json"
# Bash splits words at = and : before it calls the function.
ASK = r"""
source "$1"; shift
COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1))
_korvell_host
printf '%s\n' "${COMPREPLY[@]}"
"""


def offered(*words, cwd=DEMO):
    path = f"{PROGRAM.parent}:{os.environ['PATH']}"
    done = subprocess.run(["bash", "-c", ASK, "bash", COMPLETION, PROGRAM.name, *map(str, words)], capture_output=True,
                          text=True, timeout=60, cwd=cwd, env={**os.environ, "PATH": path}, check=True)
    return [line for line in done.stdout.split("\n") if line]


class Completion(unittest.TestCase):
    def test_settings_and_their_choices_are_those_of_the_set_up(self):
        for words, expected in (
                ((SETUP, "--set", "sample-"), ["sample-rate=", "sample-period="]),
                ((SETUP, "--set", "sample-rate", "=", "50"), ["5000"]),
                ((SETUP, "--set", "sample-rate", "="), ["10000", "5000", "2000", "1000"]),
                ((SETUP, "--set", "start", "=", "tr"), ["trigger"]),
                ((SETUP, "--set", "stop-t"), []),
                ((SETUP, "--get", "stop-t"), ["stop-time"]),
                ((SETUP, "--choices", "scan-"), ["scan-rate", "scan-period"]),
                ((SETUP, "--set", "sample-rate", "=", "5000", "--get", "span"), ["span"]),
                (("--save", SETUP, "--get", "span"), []),
                (("nowhere.json", "--get", "span"), [])):
            self.assertEqual(offered(*words), expected, words)

    def test_words_are_quoted_and_broken_as_the_shell_does_it(self):
        with tempfile.TemporaryDirectory() as folder:
            bench = Path(folder) / "a bench.json"
            subprocess.run([PROGRAM, SETUP, "--set", "start=trigger", "--set", "trigger-channel=Crank", "--save", bench],
                           check=True, timeout=60)
            self.assertEqual(offered(bench, "--set", "trigger.L"), [r"trigger.Level\ \(V\)="])
            self.assertEqual(offered(bench, "--set", r"trigger.Level\ \(V"), [r"trigger.Level\ \(V\)="])
            self.assertEqual(offered(bench, "--set", "trigger-channel", "=", "Cyl"), [r"Cylinder\ 1\ pressure"])
            self.assertEqual(offered(bench, "--set", "trigger-channel", "=", "0", ":", "3", ":"), ["9"])
            self.assertEqual(offered(r"a\ bench.json", "--get", "trigger.S", cwd=folder), ["trigger.Slope"])
            self.assertEqual(offered("a", cwd=folder), [r"a\ bench.json"])
            bench.write_text(bench.read_text(encoding="utf-8").replace("Level (V)", "$(touch pwned) `touch pwned`;"),
                             encoding="utf-8")
            named = r"trigger.\$\(touch\ pwned\)\ \`touch\ pwned\`\;="
            self.assertEqual(offered(bench, "--set", "trigger.", cwd=folder)[0], named)
            self.assertEqual(offered(bench, "--set", named[:-3], cwd=folder), [named])
            self.assertEqual(os.listdir(folder), ["a bench.json"])

    def test_options_files_and_languages(self):
        self.assertTrue({"--get", "--set", "--list", "--headless", "--module-folder", "--check-module"} <= set(offered("--")))
        self.assertEqual(offered("eng"), ["engine-bench-demo.json"])
        self.assertEqual(offered("--headless", SETUP, "de"), ["demo.scenario"])
        self.assertEqual(offered("--language", "d"), ["de"])
        self.assertEqual(offered("--locale", ""), ["system"])
        self.assertEqual(offered("--module-folder", "sc", cwd=DEMO.parent / "host"), ["scenario"])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
