"""Writes the ranges of characters that take two columns of a terminal, or none: make_display_width.py DATABASE OUTPUT"""

import sys
from pathlib import Path

from database import Database, write_ranges, write_table


def main():
    database, output = Database(sys.argv[1]), Path(sys.argv[2])
    marks = database.characters_with("extracted/DerivedGeneralCategory.txt", {"Mn", "Me", "Cf"})
    syllable_ends = database.characters_with("HangulSyllableType.txt", {"V", "T"})
    soft_hyphen = 0x00AD
    none = (marks | syllable_ends) - {soft_hyphen}
    two = database.characters_with("EastAsianWidth.txt", {"W", "F"}) - none
    write_table(output, database, ["EastAsianWidth.txt", "DerivedGeneralCategory.txt", "HangulSyllableType.txt"],
                write_ranges("no_columns", none) + write_ranges("two_columns", two))


main()
