"""Checks that include_direction.py refuses forbidden includes and accepts all others."""
import tempfile
import unittest
from pathlib import Path

from include_direction import check

# A file, its contents, and a part of the expected complaint; None: no complaint.
CASES = [
    ("widgets/page/View.cpp", '#include "page/Page.h"\n#include <QWidget>', None),
    ("document/Editor.cpp", '#include "timebase/Editors.h"\n#include <string_view>', None),
    ("page/Page.cpp", '#include "widgets/page/View.h"', "may not know widgets/page"),
    ("timebase/Editors.cpp", '  #  include "schedule/Plan.h"', "may not know schedule"),
    ("platform/Control.cpp", '#include "../widgets/page/View.h"', "names no file"),
    ("platform/Control.cpp", '#include "Control.h"', "names no file"),
    ("platform/Control.cpp", '#include "platform/Missing.h"', "names no file"),
    ("platform/Control.cpp", '#include "platform/../widgets/page/View.h"', "names no file"),
    ("document/Editor.cpp", "#include <QString>", "no header of the standard library"),
    ("document/Editor.cpp", "#include <nlohmann/json.hpp>", "no header of the standard library"),
    ("support/Errors.cpp", "#include <unistd.h>", "no header of the standard library"),
    ("support/Errors.cpp", "#include ERRORS_HEADER", "not a plain include"),
    ("host/window/Frame.cpp", '#include "host/setup/File.h"\n#include "widgets/page/View.h"\n#include <QMenu>', None),
    ("host/setup/File.cpp", '#include "page/Page.h"\n#include <nlohmann/json.hpp>', None),
    ("host/setup/File.cpp", '#include "host/window/Frame.h"', "may not know host/window"),
    ("host/setup/File.cpp", '#include "widgets/page/View.h"', "may not know widgets/page"),
    ("host/setup/File.cpp", "#include <QString>", "a header of the toolkit"),
    ("host/setup/File.cpp", '#include "setup/File.h"', "names no file"),
    ("widgets/page/View.cpp", '#include "host/setup/File.h"', "may not know host/setup"),
    ("page/Page.cpp", '#include "host/setup/File.h"', "may not know host/setup"),
    ("modules/sigrok/Device.cpp", '#include "platform/Control.h"\n#include <libsigrok/libsigrok.h>', None),
    ("modules/sigrok/Device.cpp", '#include "page/Page.h"', "may not know page"),
    ("host/setup/File.cpp", '#include "modules/sigrok/Device.h"', "may not know modules/sigrok"),
    ("host/Loose.cpp", "#include <string>", "none of the known folders"),
    ("extras/More.cpp", "#include <string>", "none of the known folders"),
]
HEADERS = ["page/Page.h", "timebase/Editors.h", "schedule/Plan.h", "platform/Control.h", "widgets/page/View.h",
           "host/setup/File.h", "modules/sigrok/Device.h", "host/window/Frame.h"]


class IncludeDirection(unittest.TestCase):
    def complaints(self, files):
        with tempfile.TemporaryDirectory() as folder:
            for name, content in files.items():
                path = Path(folder, name if name.startswith(("host/", "modules/")) else f"src/{name}")
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_text(content, encoding="utf-8")
            return check(Path(folder))[0]

    def test_every_wrong_include_is_refused_and_no_right_one(self):
        for name, content, expected in CASES:
            with self.subTest(file=name, content=content):
                files = {header: "#include <string>\n" for header in HEADERS}
                found = self.complaints({**files, name: content})
                if expected is None:
                    self.assertEqual(found, [])
                else:
                    self.assertEqual(len(found), 1, found)
                    self.assertIn(expected, found[0])

    def test_a_tree_without_sources_is_refused(self):
        self.assertEqual(len(self.complaints({"page/notes.txt": "nothing to see"})), 1)

    def test_the_line_of_a_wrong_include_is_named(self):
        found = self.complaints({"page/Page.h": '#pragma once\n\n#include <Qt>\n'})
        self.assertTrue(found[0].startswith("page/Page.h:3:"), found)


if __name__ == "__main__":
    unittest.main()
