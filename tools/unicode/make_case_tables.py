"""Writes the tables of case mapping and case folding: make_case_tables.py DATABASE OUTPUT"""

import sys
from pathlib import Path

from database import Database, write_ranges, write_table

BLOCK = 64
SPECIAL = 255


def code_points(field):
    return [int(point, 16) for point in field.split()]


def mappings(database):
    """The mappings of each character that changes: a list of code points by character, for lower, upper and folded."""
    lower, upper, folded = {}, {}, {}
    for row in database.rows("UnicodeData.txt"):
        character = int(row[0], 16)
        if row[12]:
            upper[character] = code_points(row[12])
        if row[13]:
            lower[character] = code_points(row[13])
    for row in database.rows("SpecialCasing.txt"):
        # Rows with a fifth field depend on a language or a context, and are in the code.
        if row[4]:
            continue
        character = int(row[0], 16)
        for table, field in ((lower, row[1]), (upper, row[3])):
            table[character] = code_points(field)
    for character, status, mapping, *_ in database.rows("CaseFolding.txt"):
        if status in "CF":
            folded[int(character, 16)] = code_points(mapping)
    return {name: {c: to for c, to in table.items() if to != [c]} for name, table in
            (("lower", lower), ("upper", upper), ("folded", folded))}


def write_array(declaration, values):
    """An array with as many values in a line as fit."""
    lines, line = [], "   "
    for value in values:
        if len(line) + len(f" {value},") > 110:
            lines.append(line)
            line = "   "
        line += f" {value},"
    return [declaration + " = {", *lines, line, "};"]


def write_mapping(name, mapping, deltas):
    """Two stages: a block for every 64 characters, and in it for each character the index of what is added to it."""
    last = max(mapping)
    # The first block is the one in which nothing changes.
    blocks, first_stage = [[0] * BLOCK], []
    for begin in range(0, last + 1, BLOCK):
        block = []
        for character in range(begin, begin + BLOCK):
            to = mapping.get(character, [character])
            block.append(SPECIAL if len(to) > 1 else deltas.setdefault(to[0] - character, len(deltas)))
        if block not in blocks:
            blocks.append(block)
        first_stage.append(blocks.index(block))
    specials = sorted((character, to) for character, to in mapping.items() if len(to) > 1)
    lines = [f"    {{0x{character:04X}, {{{', '.join(f'0x{point:04X}' for point in to)}}}}}," for character, to in specials]
    return (write_array(f"inline constexpr std::uint8_t {name}_blocks[]", first_stage)
            + write_array(f"inline constexpr std::uint8_t {name}_deltas[]", sum(blocks, []))
            + [f"inline constexpr special_mapping {name}_specials[] = {{", *lines, "};"])


def main():
    database, output = Database(sys.argv[1]), Path(sys.argv[2])
    deltas = {0: 0}
    tables = sum((write_mapping(name, mapping, deltas) for name, mapping in mappings(database).items()), [])
    assert len(deltas) < SPECIAL
    core = "DerivedCoreProperties.txt"
    combining = "extracted/DerivedCombiningClass.txt"
    above = database.characters_with(combining, {"230"})
    attached = database.characters_with(combining, {str(value) for value in range(1, 255)}) - above
    lines = (write_array("inline constexpr std::int32_t deltas[]", deltas) + tables
             + write_ranges("cased", database.characters_with(core, {"Cased"}))
             + write_ranges("case_ignorable", database.characters_with(core, {"Case_Ignorable"}))
             + write_ranges("soft_dotted", database.characters_with("PropList.txt", {"Soft_Dotted"}))
             + write_ranges("marks_above", above)
             + write_ranges("other_marks", attached))
    write_table(output, database, ["UnicodeData.txt", "SpecialCasing.txt", "CaseFolding.txt", core, "PropList.txt",
                                   "DerivedCombiningClass.txt"], lines)


main()
