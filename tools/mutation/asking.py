"""The tests of a build, which edits each of them reaches, and which test program notices an edit."""
import contextlib
import json
import os
import signal
import struct
import subprocess
import sys
import tempfile
import time
from concurrent.futures import ThreadPoolExecutor, as_completed
from pathlib import Path

LONGEST_TEST = 600  # seconds; far beyond any of them
# The variables that name folders where programs write.
OWN_FOLDERS = ["TMPDIR", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME"]
FILTER = "--gtest_filter="
REACHED, DOES_NOT_COMPILE = 1, 2  # as in Switched.h


def succeeds(command, folder, environment, limit):
    running = subprocess.Popen(command, cwd=folder, env=environment, stdin=subprocess.DEVNULL,
                               stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, start_new_session=True)
    try:
        return running.wait(limit) == 0
    except subprocess.TimeoutExpired:
        return False
    finally:
        # Whatever the edited program has started must end with it.
        with contextlib.suppress(ProcessLookupError):
            os.killpg(running.pid, signal.SIGKILL)
        running.wait()


class Place:
    """The file of the switches of one test program at a time, which gets new folders of its own for each run."""

    def __init__(self, switches, most):
        self.switches, self.most = switches, most

    def passes(self, command, test, number, limit):
        """Returns whether the command of a test succeeds with an edit switched on; a crash or a hang is a failure."""
        self.switches.write_bytes(struct.pack("i", number) + bytes(self.most + 1))
        with tempfile.TemporaryDirectory(prefix="mutate-", ignore_cleanup_errors=True) as folder:
            own = {name: os.path.join(folder, name) for name in OWN_FOLDERS}
            for path in own.values():
                os.mkdir(path, mode=0o700)
            environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen", **test["environment"], **own,
                           "KO_SWITCHES": str(self.switches)}
            return succeeds(command, test["folder"], environment, limit)

    def states(self):
        """Returns what became of the edits in the last run, by their numbers."""
        return self.switches.read_bytes()[struct.calcsize("i"):]


def tests_of(build_folder):
    """Returns the tests of ctest, except for those that only read the sources or what is built."""
    listed = subprocess.run(["ctest", "--show-only=json-v1", "-E", "^(structure|install)"], cwd=build_folder,
                            check=True, capture_output=True, text=True)
    found = []
    for test in json.loads(listed.stdout)["tests"]:
        properties = {entry["name"]: entry["value"] for entry in test["properties"]}
        if "command" not in test:
            sys.exit(f"mutate: {test['name']} has no program")
        found.append({"name": test["name"], "command": test["command"],
                      "folder": properties.get("WORKING_DIRECTORY", str(build_folder)),
                      "environment": dict(entry.split("=", 1) for entry in properties.get("ENVIRONMENT", []))})
    return found


def filter_of(test):
    """Returns the names of the cases of a test that is one case of a program, or None."""
    return next((word[len(FILTER):] for word in test["command"] if word.startswith(FILTER)), None)


def program_of(test):
    """Returns the name under which a test notices an edit."""
    command = test["command"]
    return Path(next((word for word in command if word.endswith(".py")), command[0])).stem


def together(tests):
    """Returns groups of the tests, each of which one command runs, the shortest group first."""
    groups = {}
    for test in tests:
        groups.setdefault((program_of(test), test["folder"]) if filter_of(test) else test["name"], []).append(test)
    return sorted(groups.values(), key=lambda group: sum(test["seconds"] for test in group))


def command_of(group):
    first = group[0]
    if not filter_of(first):
        return first["command"]
    cases = FILTER + ":".join(filter_of(test) for test in group)
    return [*(word for word in first["command"] if not word.startswith("--gtest_")), cases, "--gtest_fail_fast"]


def require(failing):
    """Ends the program if there are failing tests: what only they could notice would count as not noticed."""
    if failing:
        sys.exit("mutate: these tests do not pass without an edit:\n" + "\n".join(failing))


class Asked:
    """The tests of the copy's build, with what each of them reaches. So many run at once."""

    def __init__(self, folder, build_folder, jobs):
        self.folder, self.build_folder, self.jobs = folder, build_folder, jobs
        self.kept, self.most = folder / "reached.json", 0
        self.tests, self.wrong = [], set()

    def place(self, number):
        return Place(self.folder / f"switches.{number}", self.most)

    def at_once(self, function, items):
        """Calls the function with a place of its own and each item; yields the results as they come."""
        free = [self.place(number) for number in range(self.jobs)]

        def call(item):
            place = free.pop()
            try:
                return function(place, item)
            finally:
                free.append(place)

        with ThreadPoolExecutor(self.jobs) as pool:
            calls = [pool.submit(call, item) for item in items]
            try:
                yield from (done.result() for done in as_completed(calls))
            finally:
                pool.shutdown(wait=False, cancel_futures=True)

    def forget(self):
        """Makes find_reached run the tests again, for another build."""
        self.kept.unlink(missing_ok=True)

    def find_reached(self, most):
        """Runs all tests unless that is known for this build: they must pass, and tell which edits they reach. The
        highest number of an edit is given."""
        self.most = most
        if not self.kept.exists():
            tests = list(self.at_once(self.with_reached, tests_of(self.build_folder)))
            require([test["name"] for test in tests if not test["passes"]])
            programs = self.at_once(lambda place, group: self.noticed_by(place, group, 0), together(tests))
            require([program for program in programs if program != "nobody"])
            self.kept.write_text(json.dumps(tests), encoding="utf-8")
        self.tests = json.loads(self.kept.read_text(encoding="utf-8"))
        self.wrong = {number for test in self.tests for number in test["wrong"]}

    def with_reached(self, place, test):
        start = time.monotonic()
        passes = place.passes(test["command"], test, 0, LONGEST_TEST)
        seconds, states = time.monotonic() - start, place.states()
        return {**test, "passes": passes, "seconds": seconds,
                "reached": [number for number, state in enumerate(states) if state & REACHED],
                "wrong": [number for number, state in enumerate(states) if state & DOES_NOT_COMPILE]}

    def pass_together(self, place, group, number):
        return place.passes(command_of(group), group[0], number, 15 + 5 * sum(test["seconds"] for test in group))

    def noticed_by(self, place, tests, number):
        """Returns the program that notices the edit, which is switched on, or built in if the number is 0."""
        noticing = (group for group in together(tests) if not self.pass_together(place, group, number))
        return next((program_of(group[0]) for group in noticing), "nobody")

    def outcome(self, place, number):
        if number in self.wrong:
            return "compiler"
        tests = [test for test in self.tests if number in test["reached"]]
        return self.noticed_by(place, tests, number) if tests else "unreached"
