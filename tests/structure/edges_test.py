"""docs/edges.md against the sources: edges_test.py SOURCE_DIR."""
import pathlib
import re
import sys
import unittest

ROOT = pathlib.Path(sys.argv.pop(1))

AREAS = ["strings", "numbers", "values", "core", "messages", "xml", "configuration", "serialization", "dates",
         "files", "lengths", "platforms"]
WIDTH = 110

TEST = re.compile(r"\b(?:TYPED_)?TEST(?:_F|_P)?\(\s*(\w+),\s*(\w+)\s*\)")
INSTANCE = re.compile(r"\bINSTANTIATE_TEST_SUITE_P\(\s*(\w+),\s*(\w+)\s*,")
TYPED_SUITE = re.compile(r"\bTYPED_TEST_SUITE\(\s*(\w+)\s*,")


def tests_of_the_sources():
    """Names as "suite.test", and as "instance/suite.test" or "suite/0.test" where a suite is instantiated."""
    tests, instances = set(), set()
    for source in sorted((ROOT / "tests").rglob("*.cpp")):
        text = source.read_text()
        tests.update(TEST.findall(text))
        instances.update((suite, f"{name}/{suite}") for name, suite in INSTANCE.findall(text))
        instances.update((suite, f"{suite}/0") for suite in TYPED_SUITE.findall(text))
    instances.update((suite, suite) for suite, _ in tests)
    return {f"{name}.{test}" for suite, name in instances for own, test in tests if own == suite}


def areas_of(page, pattern):
    """(area, match of the pattern) for each match, blanks and line ends made one blank."""
    for area, text in re.findall(r"(?ms)^## (\S+)$(.*?)(?=^## |\Z)", page):
        for found in re.findall(pattern, text):
            yield area, " ".join(found.split())


def entries(page):
    return list(areas_of(page, r"(?ms)^- (.*?)(?=^- |^#|\n\n|\Z)"))


def headers(page):
    for area, line in areas_of(page, r"(?ms)^Headers?: (.*?)(?=\n\n)"):
        for header in re.findall(r"`([^`]+)`", line):
            yield area, header


class edges(unittest.TestCase):
    def setUp(self):
        self.page = (ROOT / "docs" / "edges.md").read_text()

    def test_areas_are_headings_in_their_order(self):
        self.assertEqual(re.findall(r"(?m)^## (.*)$", self.page), AREAS)

    def test_each_entry_names_a_test(self):
        self.assertGreater(len(entries(self.page)), 200)
        for _, entry in entries(self.page):
            self.assertIn(" - Test: `", entry)

    def test_each_named_test_exists(self):
        known = tests_of_the_sources()
        for _, entry in entries(self.page):
            for name in re.findall(r"`([^`]+)`", entry.split(" - Test: ")[-1]):
                self.assertTrue(name in known, f"there is no test {name}")

    def test_each_named_header_links_its_area(self):
        found = list(headers(self.page))
        self.assertEqual({area for area, _ in found}, set(AREAS))
        for area, header in found:
            self.assertTrue((ROOT / header).is_file(), f"there is no {header}")
            self.assertIn(f"docs/edges.md#{area}", (ROOT / header).read_text(), header)

    def test_lines_fit(self):
        for number, line in enumerate(self.page.split("\n"), 1):
            self.assertLessEqual(len(line), WIDTH, f"edges.md:{number}")


unittest.main()
