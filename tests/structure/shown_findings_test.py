"""The findings that headers and pages show against the sentences of their codes.

Usage: shown_findings_test.py SOURCE_DIR
"""
import pathlib
import re
import sys
import unittest

ROOT = pathlib.Path(sys.argv.pop(1))

LEVEL = r"(?:error|warning|note): "
CODE = re.compile(r"\[([a-z_]+\.[a-z0-9_]+)\]")


def sentences(source):
    """The English sentence of each code, from the table of the library."""
    entry = re.compile(r'\{"([a-z_]+\.[a-z0-9_]+)",\s*((?:"(?:[^"\\]|\\.)*"\s*)+)\}')
    for code, literals in entry.findall(source):
        text = "".join(re.findall(r'"((?:[^"\\]|\\.)*)"', literals))
        yield code, re.sub(r"\\(.)", r"\1", text)


def shown_findings(text):
    """(line, code, sentence) for each "error: Sentence. [area.code]", which may take several lines."""
    lines = [re.sub(r"^\s*///?\s*", "", line).strip() for line in text.split("\n")]
    for number, line in enumerate(lines):
        for found in CODE.finditer(line):
            shown = line[:found.start()]
            for before in reversed(lines[max(0, number - 3):number]):
                if re.search(LEVEL, shown):
                    break
                shown = before + " " + shown
            sentence = re.search(LEVEL + r"(?!.*" + LEVEL + r")(.*)$", " ".join(shown.split()))
            if sentence:
                yield number + 1, found[1], sentence[1]


def is_filled(pattern, sentence):
    parts = re.split(r"\{[a-z0-9_]+\}", pattern)
    return re.fullmatch(".*".join(map(re.escape, parts)), sentence) is not None


class ShownFindings(unittest.TestCase):
    def test_finding_over_two_lines_is_read(self):
        text = "/// a\n///   =>  b.xml:4:3: error: The tag\n///       x is wrong.\n///       [xml.tag]\n"
        self.assertEqual(list(shown_findings(text)), [(4, "xml.tag", "The tag x is wrong.")])
        self.assertTrue(is_filled("The tag {name} is wrong.", "The tag x is wrong."))
        self.assertFalse(is_filled("The tag {name} is wrong.", "The tag x is wrong"))

    def test_shown_findings_have_the_sentences_of_their_codes(self):
        known = dict(sentences((ROOT / "orva/diagnostics/codes.cpp").read_text()))
        self.assertGreater(len(known), 100)
        areas = {code.split(".")[0] for code in known}
        compared = 0
        files = sorted((ROOT / "orva").rglob("*.hpp")) + sorted((ROOT / "docs").glob("*.md"))
        for file in files:
            for line, code, sentence in shown_findings(file.read_text()):
                is_of_a_program = code.split(".")[0] not in areas
                if is_of_a_program or sentence == "...":  # which leaves it out
                    continue
                compared += 1
                with self.subTest(file=str(file.relative_to(ROOT)), line=line):
                    self.assertIn(code, known)
                    self.assertTrue(is_filled(known[code], sentence), f"{sentence!r} is not {known[code]!r}")
        self.assertGreater(compared, 50)


unittest.main()
