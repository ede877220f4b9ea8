"""Writes the sample numbers of all plural rules for a test: make_plural_samples.py COMMON OUTPUT

COMMON is the folder of that name in the Common Locale Data Repository. A line is: languages, cardinal or ordinal, category,
and its numbers and ranges of numbers, as they are in the repository.
"""

import re
import sys
import xml.etree.ElementTree as xml
from pathlib import Path


def lines_of(kind, file):
    for rules in xml.parse(file).getroot().iter("pluralRules"):
        for rule in rules.iter("pluralRule"):
            samples = re.sub(r"@(integer|decimal)|…", "", (rule.text or "").partition("@")[2])
            numbers = re.sub(r"\b(integer|decimal)\b", "", samples).replace(",", " ").split()
            yield f'{rules.get("locales")} | {kind} | {rule.get("count")} | {" ".join(numbers)}'


def main(common, output):
    folder = Path(common) / "supplemental"
    lines = [*lines_of("cardinal", folder / "plurals.xml"), *lines_of("ordinal", folder / "ordinals.xml")]
    Path(output).write_text("\n".join(lines) + "\n", encoding="utf-8")


main(*sys.argv[1:])
