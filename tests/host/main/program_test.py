"""program_test.py PROGRAM SOURCE: checks standard output, standard error and exit status of the reference host."""
import json
import os
import re
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

PROGRAM, SOURCE = (Path(argument).resolve() for argument in sys.argv[1:3])
DEMO = SOURCE / "demo"
SETUP = DEMO / "engine-bench-demo.json"


def full_disk(room):
    """Limits the size of files to `room` bytes."""
    return lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (room, room))


def run(*arguments, script="", cwd=None, preexec_fn=None, stdout=subprocess.PIPE, **environment):
    kept = {name: value for name, value in os.environ.items()
            if name not in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM")}
    return subprocess.run([PROGRAM, *map(str, arguments)], input=script, text=True, errors="surrogateescape",
                          stdout=stdout, stderr=subprocess.PIPE, timeout=60, env={**kept, **environment}, cwd=cwd,
                          check=False, preexec_fn=preexec_fn)


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
                                          ("setup\njump\n", 2, "korvell-host: standard input:2:")):
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

    def test_languages_are_found_from_any_folder_and_a_territory_stands_for_its_language(self):
        with tempfile.TemporaryDirectory() as folder:
            (Path(folder) / "own.txt").write_text('1112 "Tage"\n', encoding="utf-8")
            script = "setup\nshow\nexpect cmbInterval items "
            english, own = ('["seconds","minutes","hours",%s]' % day for day in ('"days"', '"Tage"'))
            for language, items, status in (("en", english, 0), ("en_AU", english, 0), ("own.txt", own, 0),
                                            ("own.txt", english, 1), ("xx", english, 2)):
                done = run("--headless", "--language", language, SETUP, cwd=folder,
                           script=script + json.dumps(items) + "\n")
                self.assertEqual(done.returncode, status, (language, done.stdout, done.stderr))

    def test_settings_are_set_read_and_saved_without_a_display_or_refused_as_a_whole(self):
        with tempfile.TemporaryDirectory() as folder:
            bench, saved = Path(folder) / "bench.json", Path(folder) / "saved.json"
            original = SETUP.read_bytes()
            bench.write_bytes(original)
            for arguments, status, out, complaint in (
                    (("--get", "sample-rate", "--get", "duration"), 0, "10000\n30\n", ""),
                    (("--set", "duration=5 min", "--set", "scan-period=1", "--save", saved, "--get", "duration"), 0,
                     "300\n", ""),
                    (("--set", "duration=60", "--set", "sample-rate=7", "--save", bench), 1, "", "not offered"),
                    (("--set", "duration=60", "--get", "start-time", "--save", bench), 1, "", "needs start=time"),
                    (("--set", "duration=60", "--set", "sample-rat=1", "--save", bench), 2, "", "sample-rate?"),
                    (("--set", "duration", "--save", bench), 2, "", "NAME=VALUE"),
                    (("--set", "duration=60", "--save", Path(folder) / "none" / "x"), 2, "", "cannot be saved"),
                    (("--list", "--headless"), 2, "", "excludes")):
                done = run(bench, *arguments, LC_ALL="de_DE.UTF-8")
                self.assertEqual((done.returncode, done.stdout), (status, out), (arguments, done.stderr))
                self.assertIn(complaint, done.stderr)
                self.assertEqual(bool(complaint), bool(done.stderr), done.stderr)
                self.assertEqual(bench.read_bytes(), original)
            self.assertEqual(run(saved, "--get", "scan-rate", "--get", "duration").stdout, "1\n300\n")
            self.assertEqual(run(saved, "--set", "duration=45", "--save", saved).returncode, 0)
            self.assertEqual(run(saved, "--get", "duration").stdout, "45\n")

    def test_a_recording_is_compared_with_what_the_page_promises(self):
        with tempfile.TemporaryDirectory() as folder:
            bench, out = Path(folder) / "bench.json", Path(folder) / "out.h5"
            bench.write_text(SETUP.read_text(encoding="utf-8").replace("{", '{"clock": "2026-11-21 09:30:00",', 1),
                             encoding="utf-8")
            for arguments, status, state in (((bench, "--set", "duration=2", "--record", out), 0, "complete"),
                                             ((out, "--compare", out), 0, "complete"),
                                             (("--new", "vibration", "--compare", out), 1, "complete"),
                                             ((bench, "--record", out, "--compare", out), 0, "complete")):
                done = run(*arguments)
                self.assertEqual(done.returncode, status, (arguments, done.stderr))
                self.assertRegex(done.stdout.splitlines()[-1], "state +complete +" + state)
                self.assertEqual(status, int("differs" in done.stdout), done.stdout)
            script, pipe = Path(folder) / "run.script", Path(folder) / "pipe"
            os.mkfifo(pipe)
            script.write_text("record bench.json\n", encoding="utf-8")
            for arguments, status, complaint in (
                    ((bench, "--compare", bench), 2, "is no recording"),
                    ((bench, "--record", bench), 2, "named as the set-up and as --record"),
                    ((bench, "--record", "/dev/null"), 2, "is no file"), ((bench, "--record", pipe), 2, "is no file"),
                    ((bench, "--compare", pipe), 2, "is no file"),
                    ((out, "--save", out), 2, "is a recording"),
                    ((bench, "--set", "start=time", "--set", "start-time=2026-11-20T09:30:00", "--record", out), 1,
                     "start time 2026-11-20T09:30:00 is past"),
                    ((bench, "--set", "start=time", "--set", "start-time=09:00:00", "--set", "stop=time", "--set",
                      "stop-time=2026-11-21T09:01:00", "--record", out), 1, "2026-11-21T09:00:00 is past"),
                    ((bench, "--headless", "--record", out), 2, "excludes"),
                    ((bench, "--modules", "--picture", out), 2, "excludes"),
                    ((bench, "--headless", script), 2, "run.script:1: " + str(bench) + ": is the set-up of the script")):
                done = run(*arguments)
                self.assertEqual((done.returncode, done.stdout), (status, ""), (arguments, done.stderr))
                self.assertIn(complaint, done.stderr)
            done = run(bench, "--record", out, preexec_fn=full_disk(1000000))
            self.assertEqual(done.returncode, 2)
            self.assertIn("File too large", done.stderr)

    def test_where_the_window_keeps_its_state_nothing_else_is_written_under_any_name(self):
        with tempfile.TemporaryDirectory() as folder:
            memory = Path(folder) / "Korvell" / "korvell-host" / "window.json"
            memory.parent.mkdir(parents=True)
            for content in (None, "the state"):
                if content:
                    memory.write_text(content, encoding="utf-8")
                for ending, script, *arguments in ((".json", "", "--save"), (".html", "", "--sheet"),
                                                   (".png", "", "--picture"), (".h5", "", "--record"),
                                                   (".scenario", "", "--capture"),
                                                   (".h5", "setup\nshow\nrecord link.h5\n", "--headless")):
                    link = Path(folder) / f"link{ending}"
                    link.unlink(missing_ok=True)
                    link.symlink_to(memory)
                    done = run(SETUP, *arguments, *([] if script else [link.name]), script=script, cwd=folder,
                               XDG_CONFIG_HOME=folder)
                    self.assertEqual(done.returncode, 2, arguments)
                    self.assertIn(f"{link.name}: is where the window keeps its state", done.stderr)
                    self.assertEqual(memory.read_text(encoding="utf-8") if memory.exists() else None, content)

    def test_an_interrupt_stops_a_recording_and_a_kill_leaves_it_readable(self):
        for number, state in ((signal.SIGINT, "stopped"), (signal.SIGTERM, "stopped"), (signal.SIGHUP, "stopped"),
                              (signal.SIGKILL, "recording")):
            with tempfile.TemporaryDirectory() as folder:
                out = Path(folder) / "out.h5"
                with subprocess.Popen([PROGRAM, SETUP, "--record", out], stdout=subprocess.DEVNULL,
                                      stderr=subprocess.PIPE) as recording:
                    recording.stderr.close()
                    while not out.exists():
                        time.sleep(0.02)
                    recording.send_signal(number)
                    self.assertEqual(recording.wait(), -9 if number == signal.SIGKILL else 1)
                done = run(SETUP, "--compare", out)
                self.assertEqual(done.returncode, 1)
                self.assertRegex(done.stdout.splitlines()[-1], "state +complete +" + state + " +differs")
                self.assertEqual(done.stderr.count("it is readable now"), int(number == signal.SIGKILL))

    def test_a_refusal_speaks_english_unless_another_language_is_asked_for(self):
        for language, speaks_english in (((), True), (("--language", "en"), True), (("--language", "de"), False)):
            done = run(SETUP, "--set", "duration=90 d", *language, LC_ALL="de_DE.UTF-8")
            self.assertEqual(done.returncode, 1)
            self.assertEqual(done.stderr.count("Reduce the duration"), int(speaks_english), done.stderr)

    def test_the_users_regional_settings_are_shown_and_read_back_and_otherwise_english_ones(self):
        script = ("setup\nshow\nclick optStartTime\ndialog SetDateTime\nclick optSpecifiedDay\ntext calDate 2026-05-07\n"
                  "text dtpTimeSelector 21:03:04\nclick btnOK\nend\nclick cmdStartTime\ndrivers\n"
                  "expect txtStartTime text \"{}\"\n")
        english = "5/7/2026 9:03:04 PM"
        for region, arguments, shown in (({"LC_ALL": "nb_NO.UTF-8"}, ("--locale", "system"), "07.05.2026 21:03:04"),
                                         ({"LC_ALL": "eu_ES"}, ("--locale", "system"), "2026/5/7 21:03:04"),
                                         ({"LC_ALL": "ar_EG.UTF-8"}, ("--locale", "system"), "7/5/2026 9:03:04 م"),
                                         ({"LC_ALL": "", "LANG": "C", "LC_TIME": "de_DE"}, ("--locale", "system"),
                                          "07.05.2026 21:03:04"),
                                         ({"LC_ALL": "C.UTF-8"}, ("--locale", "system"), english),
                                         ({"LC_ALL": "nb_NO.UTF-8"}, (), english)):
            done = run("--headless", SETUP, *arguments, script=script.format(shown), **region)
            self.assertEqual(done.returncode, 0, (region, done.stdout[-300:]))
            self.assertIn('"startTime":46149.87712962963', done.stdout.splitlines()[-1], region)

    def test_a_command_line_that_cannot_be_done_says_what_to_write(self):
        for arguments, status, complaint in (
                ((SETUP, "--choices", "span"), 1, "span: can only be read"),
                ((SETUP, "--choices", "duration"), 0, "note: duration: 0 or more; s, min, h, d"),
                ((SETUP, "--sheet", "x.pdf", "--paper", "A3"), 2, "--paper: use A4 or Letter; "),
                (("--modules", "--record", "x.h5"), 2, "give a set-up file"),
                ((SETUP, "--headless", "--language", "xx"), 2, "xx: unknown language; use en, de, fr, ja or a string file"),
                (("--list",), 2, "give a set-up file, e.g. korvell-host bench.json --list")):
            done = run(*arguments)
            self.assertEqual((done.returncode, done.stdout), (status, ""), arguments)
            self.assertTrue(done.stderr.startswith("korvell-host: " + complaint), done.stderr)

    def test_the_examples_of_the_help_work(self):
        examples = re.findall(r"^  (korvell-host .*?)(?:   .*)?$", run("--help").stdout, re.MULTILINE)
        examples.remove("korvell-host bench.json")  # waits in a window
        self.assertTrue(examples)
        with tempfile.TemporaryDirectory() as folder:
            shutil.copy(SETUP, Path(folder) / "bench.json")
            shutil.copy(DEMO / "demo.scenario", Path(folder) / "walk.scenario")
            for example in examples:
                subprocess.run(example, shell=True, check=True, capture_output=True, timeout=60, cwd=folder,
                               env={**os.environ, "PATH": f"{PROGRAM.parent}:{os.environ['PATH']}"})

    def test_help_man_page_and_readme_tell_the_same(self):
        text = run("--help").stdout
        man = (SOURCE / "packaging/korvell-host.1.in").read_text(encoding="utf-8").replace("\\-", "-")
        readme = (SOURCE / "README.md").read_text(encoding="utf-8")
        self.assertEqual(set(re.findall(r"--[a-z-]+", man)), set(re.findall(r"--[a-z-]+", text)))
        for setting in json.loads(run(SETUP, "--list", "--json").stdout):
            self.assertIn(setting["name"], man)
        statuses = re.findall(r"^  (\d)  (.+(?:\n     .+)*)", text, re.MULTILINE)
        self.assertEqual([status for status, _ in statuses], ["0", "1", "2"])
        for _, meaning in statuses:
            for other in (man, readme):
                self.assertIn(" ".join(meaning.split()), " ".join(other.lower().split()))

    def test_every_command_key_option_and_setting_is_documented(self):
        sources = "".join(path.read_text(encoding="utf-8") for path in (SOURCE / "host").rglob("*.cpp"))
        commands = re.findall(r'\{"([a-z-]+)", Giver::', sources)
        members = (SOURCE / "host/setup/SetupMembers.h").read_text(encoding="utf-8")
        numbers = (SOURCE / "src/page/Quantities.h").read_text(encoding="utf-8")
        keys = re.findall(r'visit\("(\w+)', members) + re.findall(r'TimebaseNumber \w+\{"(\w+)', numbers)
        options = re.findall(r"--[a-z-]+", run("--help").stdout)
        listed = run(SETUP, "--list", "--names").stdout.split()
        self.assertEqual([one["name"] for one in json.loads(run(SETUP, "--list", "--json").stdout)], listed)
        names = [name for name in listed if not name.startswith("trigger.")]
        for words, page in ((commands, "docs/SCENARIOS.md"), (keys, "help/en/setup-file.html"),
                            (options + names, "help/en/command-line.html")):
            text = (SOURCE / page).read_text(encoding="utf-8")
            self.assertGreater(len(words), 20)
            self.assertEqual([word for word in words if not re.search(rf"(?<![\w-]){word}(?![\w-])", text)], [], page)

    def test_a_sheet_is_written_whole_or_not_at_all(self):
        with tempfile.TemporaryDirectory() as folder:
            page, sheet = Path(folder) / "sheet.html", Path(folder) / "sheet.pdf"
            done = run(SETUP, "--set", "duration=90", "--sheet", page, "--language", "de")
            self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))
            text = page.read_text(encoding="utf-8")
            french = sheet.with_suffix(".fr.html")
            self.assertEqual(run(SETUP, "--disable", "Torque", "--sheet", french, "--language", "fr").returncode, 0)
            self.assertRegex(french.read_text(encoding="utf-8"), r"Fiche de configuration\u00a0: [\s\S]*non enregistrées")
            for part in ('lang="de"', "zeichnet 1,5 min auf", "Änderungen", "Torque", "Camshaft (0:3:2)"):
                self.assertIn(part, text)
            for paper, region, width in (((), "de_DE.UTF-8", "595"), ((), "en_US.UTF-8", "612"),
                                         (("--paper", "A4"), "en_US.UTF-8", "595")):
                self.assertEqual(run(SETUP, "--sheet", sheet, *paper, LC_ALL=region).returncode, 0)
                self.assertIn(b"/MediaBox [0 0 " + width.encode(), sheet.read_bytes())
            before = sheet.read_bytes()
            for arguments, complaint in ((("--sheet", Path(folder) / "sheet.txt"), ".pdf or a .html"),
                                         (("--sheet", Path(folder) / "none" / "sheet.pdf"), "cannot be saved"),
                                         (("--paper", "A4"), "--sheet"), (("--list", "--locale", "system"), "--sheet")):
                done = run(SETUP, *arguments)
                self.assertEqual((done.returncode, done.stdout), (2, ""), arguments)
                self.assertIn(complaint, done.stderr)
            self.assertEqual(sheet.read_bytes(), before)

    def test_on_a_full_disk_the_old_file_stays_and_the_status_says_so(self):
        for room in (0, 100, 4096):
            for option, name in (("--save", "x.json"), ("--sheet", "x.html"), ("--sheet", "x.pdf"),
                                 ("--picture", "x.png"), ("--capture", "x.scenario")):
                if (option, room) == ("--capture", 4096):
                    continue  # that much it begins with: the window would stay
                with tempfile.TemporaryDirectory() as folder:
                    file = Path(folder) / name
                    file.write_text("old")
                    done = run(SETUP, option, file, preexec_fn=full_disk(room), QT_QPA_PLATFORM="offscreen")
                    self.assertEqual((done.returncode, file.read_text()), (2, "old"), (option, room))
                    self.assertIn(f"korvell-host: {file}: cannot be saved: ", done.stderr)
                    self.assertEqual(len(os.listdir(folder)), 1)

    def test_a_set_up_is_made_from_a_template_and_its_instruments_are_changed_in_the_order_of_the_options(self):
        with tempfile.TemporaryDirectory() as folder:
            done = run("--new", "vibration", "--add", "counter", "--add", "counter", "--name", "Shaft", "--rename",
                       "Counter=Pump", "--disable", "Shaft/Speed", "--remove", "Signal Analyzer 2", "--set",
                       "duration=90", "--save", "made.json", cwd=folder)
            self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))
            made = json.loads((Path(folder) / "made.json").read_text(encoding="utf-8"))
            self.assertEqual([driver["name"] for driver in made["drivers"]], ["Signal Analyzer 1", "Pump", "Shaft"])
            self.assertEqual(made["drivers"][2]["groups"][0]["channels"][0]["enabled"], 0)
            self.assertEqual({driver["timebase"]["duration"] for driver in made["drivers"]}, {90})
            for arguments, complaint in ((("--new", "vibraton", "--save", "x.json"), "did you mean vibration?"),
                                         (("--new", "mixed"), "needs --save FILE"),
                                         (("--new", "mixed", "made.json", "--list"), "without a set-up file"),
                                         (("made.json", "--remove", "Pumpe", "--save", "x.json"), "did you mean Pump?"),
                                         (("made.json", "--name", "x", "--add", "counter"), "follows no --add")):
                done = run(*arguments, cwd=folder)
                self.assertEqual((done.returncode, done.stdout), (2, ""), arguments)
                self.assertIn(complaint, done.stderr)
            self.assertEqual(os.listdir(folder), ["made.json"])

    def test_output_that_cannot_be_written_is_a_failure(self):
        for arguments in (("--list",), ("--list", "--json"), ("--get", "span"), ("--choices", "sample-rate"),
                          ("--help",), ("--version",), ("--headless",)):
            with open("/dev/full", "w", encoding="utf-8") as full:
                done = run(SETUP, *arguments, stdout=full, script="setup\nshow\nexpect cmbInterval text weeks\n" * 99)
            self.assertEqual(done.returncode, 2, arguments)
            self.assertRegex(done.stderr, "^korvell-host: standard output cannot be written.*\n$")

    def test_hostile_texts_reach_no_terminal_and_fill_no_table(self):
        turning = "\u202e\u2066 drow A\u2069"
        for text in ('A word<img src="file:///dev/zero">%1%s & $(touch pwned)', "A word\nof\r\nlines\x1b]0;x\x07\0",
                     "A word" + turning, "A word" + "x" * 50000):
            channel = {"address": "0:1", "name": text, "unit": text, "triggerSource": True, "triggerParameters": [
                {"id": 2, "name": text, "type": "Enum", "choices": [text, "b"], "value": text}]}
            driver = {"name": text, "groups": [{"name": text, "channels": [channel]}],
                      "triggerLines": {"startMasterRank": 5},
                      "timebase": {"duration": 1, "startMode": 2, "samplePeriod": {"value": 0.01}}}
            with tempfile.TemporaryDirectory() as folder:
                bench = Path(folder) / "bench.json"
                bench.write_text(json.dumps({"title": text, "clock": "2026-11-21 09:30:00", "drivers": [driver]}),
                                 encoding="utf-8")
                for arguments, status in ((("--list",), 0), (("--list", "--names"), 0),
                                          (("--get", "trigger-channel"), 0), (("--choices", "trigger-channel"), 0),
                                          (("--set", "trigger-channel=x"), 1), (("--rename", "x=y", "--list"), 2),
                                          (("--record", "x.h5"), 0), (("--sheet", "x.html"), 0), (("--sheet", "x.pdf"), 0),
                                          (("--set", "duration=2", "--save", bench), 0), (("--compare", "x.h5"), 0)):
                    done = run(bench, *arguments, cwd=folder)
                    self.assertEqual(done.returncode, status, (text[:20], arguments, done.stderr[:300]))
                    printed = done.stdout + done.stderr
                    self.assertNotRegex(printed, "[\x00-\x09\x0b-\x1f\x7f\u202a-\u202e\u2066-\u2069]", arguments)
                    if "--names" not in arguments and arguments[0] not in ("--get", "--choices"):
                        self.assertLess(max(map(len, printed.split("\n"))), 3000, arguments)
                sheet = (Path(folder) / "x.html").read_text(encoding="utf-8")
                self.assertIn("A word", sheet)
                self.assertNotRegex(sheet, "<img|[\x00-\x08\x0b-\x1f\u202a-\u202e]")
                saved = json.loads(bench.read_text(encoding="utf-8"))
                self.assertEqual(saved["drivers"][0]["groups"][0]["channels"][0], channel)
                self.assertEqual(sorted(os.listdir(folder)), ["bench.json", "x.h5", "x.html", "x.pdf"])

    def test_values_that_are_empty_and_files_that_are_named_twice_are_refused_before_anything_is_done(self):
        options = ("save", "sheet", "choices", "get", "set", "language", "picture", "capture", "locale", "paper")
        with tempfile.TemporaryDirectory() as folder:
            bench, link = Path(folder) / "bench.html", Path(folder) / "link.html"
            shutil.copy(SETUP, bench)
            link.symlink_to(bench)
            cases = [*((f"--{option}", "") for option in options), *((f"--{option}=",) for option in options), ("",),
                     *((option, file) for option in ("--sheet", "--picture", "--capture") for file in (bench, link)),
                     ("--save", link, "--sheet", bench), ("--language", link, "--save", Path(folder) / "." / link.name),
                     ("--picture", "new.png", "--capture", "./new.png"), ("--unknown", "new")]
            for arguments in cases:
                done = run(bench, *arguments, cwd=folder, QT_QPA_PLATFORM="offscreen")
                self.assertEqual((done.returncode, done.stdout), (2, ""), arguments)
                self.assertRegex(done.stderr, "^korvell-host: .*\n$")
                self.assertEqual(bench.read_bytes(), SETUP.read_bytes())
                self.assertEqual(len(os.listdir(folder)), 2)

    def test_file_names_are_the_systems_bytes(self):
        with tempfile.TemporaryDirectory() as folder:
            bench, sheet, picture = (os.fsdecode(name) for name in (b"\xff\xe4.json", b"\xff.html", b"\xff.png"))
            shutil.copy(SETUP, Path(folder) / bench)
            for arguments in (("--set", "duration=45", "--save", bench, "--sheet", sheet), ("--picture", picture)):
                self.assertEqual(run(bench, *arguments, cwd=folder).returncode, 0)
            self.assertEqual(set(os.listdir(folder)), {bench, sheet, picture})
            self.assertTrue((Path(folder) / picture).read_bytes().startswith(b"\x89PNG"))
            self.assertEqual(run(bench, "--get", "duration", cwd=folder).stdout, "45\n")
            self.assertIn("\udcfe.json: cannot be opened: No such file", run("\udcfe.json", "--list").stderr)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
