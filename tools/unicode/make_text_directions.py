"""Writes which languages and scripts run from right to left: make_text_directions.py COMMON OUTPUT

COMMON is the folder of that name in the Common Locale Data Repository.
"""

import sys
import xml.etree.ElementTree as xml
from pathlib import Path

from locale_data import heading


def right_to_left_scripts(file):
    """Field 6 of a script is YES if it has letters that run from right to left."""
    for line in file.read_text(encoding="utf-8").splitlines():
        fields = [field.strip() for field in line.partition("#")[0].split(";")]
        if len(fields) > 6 and fields[6] == "YES":
            yield fields[0].lower()


def languages(file, scripts):
    """Yields each language, and each with a region in which it has another direction, with whether that is from right to left."""
    likely = {entry.get("from"): entry.get("to").split("_")[1].lower() in scripts
              for entry in xml.parse(file).getroot().iter("likelySubtag")}
    for tag, is_right_to_left in likely.items():
        parts = tag.split("_")
        if parts[0] == "und" or any(len(part) == 4 for part in parts[1:]):
            continue
        if is_right_to_left != (len(parts) > 1 and likely.get(parts[0], False)):
            yield tag.lower(), is_right_to_left


def main(common, output):
    common = Path(common)
    scripts = sorted(right_to_left_scripts(common / "properties" / "scriptMetadata.txt"))
    lines = heading(common, "likelySubtags.xml and scriptMetadata.txt")
    lines += ["constexpr std::uint64_t right_to_left_scripts[] = {", *(f'    packed("{script}"),' for script in scripts), "};", ""]
    lines += ["constexpr language_direction language_directions[] = {"]
    lines += [f'    {{packed("{tag}"), {str(is_right_to_left).lower()}}},'
              for tag, is_right_to_left in sorted(languages(common / "supplemental" / "likelySubtags.xml", scripts))]
    Path(output).write_text("\n".join([*lines, "};", "// clang-format on"]) + "\n", encoding="utf-8")


main(*sys.argv[1:])
