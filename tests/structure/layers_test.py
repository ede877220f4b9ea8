"""tools/layers against small trees: layers_test.py TOOL."""
import pathlib
import subprocess
import sys
import tempfile
import unittest

TOOL = sys.argv.pop(1)

GOOD = {
    "layers.txt": "# head\nlow low.hpp mixed/low.hpp\n\nleft left internal/left.hpp\nright right mixed\n\ntop top.hpp\n",
    "low.hpp": "",
    "mixed/low.hpp": '#include "orva/low.hpp"\n',
    "mixed/high.hpp": '#include "orva/mixed/low.hpp"\n',
    "left/a.hpp": '#include <vector>\n#include "orva/left/internal/b.hpp"\n#include "orva/internal/left.hpp"\n',
    "left/internal/b.hpp": "",
    "internal/left.hpp": "",
    "right/c.cpp": '#include "orva/low.hpp"\n',
    "top.hpp": '#include "orva/left/a.hpp"\n#include "orva/right/c.cpp"\n',
}


class layers(unittest.TestCase):
    def run_on(self, changes):
        with tempfile.TemporaryDirectory() as folder:
            for name, text in {**GOOD, **changes}.items():
                file = pathlib.Path(folder, name)
                file.parent.mkdir(parents=True, exist_ok=True)
                file.write_text(text)
            return subprocess.run([TOOL, folder], capture_output=True, text=True)

    def expect_fault(self, changes, words):
        result = self.run_on(changes)
        self.assertEqual(result.returncode, 1, result.stdout)
        self.assertIn(words, result.stdout + result.stderr)

    def test_good_tree_passes(self):
        result = self.run_on({})
        self.assertEqual(result.returncode, 0, result.stdout)
        self.assertIn("4 parts on 3 layers", result.stdout)

    def test_include_upwards(self):
        self.expect_fault({"low.hpp": '#include "orva/top.hpp"\n'}, "low.hpp:1: low includes top.hpp of top")

    def test_include_sideways(self):
        self.expect_fault({"right/c.cpp": '\n#include <orva/left/a.hpp>\n'}, "c.cpp:2: right includes left/a.hpp of left")

    def test_low_file_of_a_mixed_folder_includes_a_high_one(self):
        self.expect_fault({"mixed/low.hpp": '# include "orva/mixed/high.hpp"\n'}, "low includes mixed/high.hpp of right")

    def test_internal_header_of_another_area(self):
        self.expect_fault({"top.hpp": '#include "orva/left/internal/b.hpp"\n'}, "left/internal/b.hpp is internal to left")

    def test_file_in_no_part(self):
        self.expect_fault({"stray.hpp": ""}, "stray.hpp: is in no part")

    def test_include_of_what_is_not_there(self):
        self.expect_fault({"top.hpp": '#include "orva/left/gone.hpp"\n'}, "left/gone.hpp is in no part of layers.txt, or not there")

    def test_member_that_is_not_there(self):
        self.expect_fault({"layers.txt": GOOD["layers.txt"] + "gone gone.hpp\n"}, "there is no gone.hpp")

    def test_member_in_two_parts(self):
        self.expect_fault({"layers.txt": GOOD["layers.txt"] + "more low.hpp\n"}, "low.hpp is in two parts")


unittest.main()
