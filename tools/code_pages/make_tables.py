#!/usr/bin/env python3
"""Makes the tables of the code pages from the platform's answers: make_tables.py FOLDER_OF_ANSWERS FOLDER_OF_TABLES

The format of the answers is described in ask.cpp, that of the tables in the headers beside them.
"""
import pathlib
import struct
import sys

SINGLE_BYTE_PAGES = [*range(1250, 1259), 20866, 21866, *range(28591, 28600), 28605]
DOUBLE_BYTE_PAGES = [932, 936, 949, 950]

ORIGIN = """\
// Made by tools/code_page_tables from what WideCharToMultiByte and MultiByteToWideChar answer without flags; made anew
// rather than edited.
"""

SINGLE_BYTE_BLOCK = 256
DOUBLE_BYTE_BLOCK = 64
FIRST_TRAIL = 0x40


class Answers:
    def __init__(self, folder, page):
        data = (folder / f"{page}.answers").read_bytes()
        encoded = struct.unpack("<65536I", data[:0x40000])
        units = struct.unpack("<131072H", data[0x40000:])
        # The loops over the tables copy ASCII without a look-up.
        assert all(encoded[i] == i == units[i << 9] for i in range(0x80)), page
        self.encoded = encoded
        self.units = units
        self.single = [units[first << 9] for first in range(0x100)]
        self.leads = [first for first in range(0x80, 0x100) if self.takes_the_next(first)]

    def pair(self, first, second):
        begin = 2 * (first << 8 | second)
        return self.units[begin:begin + 2]

    def takes_the_next(self, first):
        taken = {self.pair(first, second)[1] == 0 for second in range(1, 0x100)}
        assert len(taken) == 1, first
        return taken.pop()


class Pool:
    """Blocks of one size, each kept once."""

    def __init__(self, size):
        self.size = size
        self.numbers = {}

    def split(self, values):
        """Where the blocks of the values begin."""
        blocks = (tuple(values[i:i + self.size]) for i in range(0, len(values), self.size))
        begins = [self.size * self.numbers.setdefault(block, len(self.numbers)) for block in blocks]
        assert max(begins) < 0x10000
        return begins

    def values(self):
        return [value for block in self.numbers for value in block]


def lines(values):
    text = ""
    for i in range(0, len(values), 20):
        text += ",".join(f"{value:#x}" if value > 9 else str(value) for value in values[i:i + 20]) + ",\n"
    return text


def single_byte_tables(folder):
    pool = Pool(SINGLE_BYTE_BLOCK)
    pages = ""
    for page in SINGLE_BYTE_PAGES:
        answers = Answers(folder, page)
        assert not answers.leads and max(answers.encoded) < 0x100, page
        block_of = pool.split(answers.encoded)
        pages += f"{{{page}, single_byte_blocks, {{\n{lines(block_of)}}}, {{\n{lines(answers.single)}}}}},\n"
    return (f"{ORIGIN}constexpr unsigned char single_byte_blocks[] = {{\n{lines(pool.values())}}};\n"
            f"constexpr single_byte_page single_byte_pages[] = {{\n{pages}}};\n")


def bytes_in_memory(encoded):
    return encoded if encoded < 0x100 else encoded >> 8 | (encoded & 0xFF) << 8


def trail_row(answers, lead):
    # With a second byte below the first trail byte, a lead byte gives what it gives at the end of a text, so that the row
    # begins at the first trail byte.
    default = answers.single[lead]
    assert all(answers.pair(lead, second) == (default, 0) for second in range(1, FIRST_TRAIL)), lead
    return [answers.pair(lead, second)[0] for second in range(FIRST_TRAIL, 0x100)]


def double_byte_table(folder, page):
    answers = Answers(folder, page)
    assert answers.leads and max(answers.encoded) < 0x10000
    pool = Pool(DOUBLE_BYTE_BLOCK)
    block_of = pool.split([bytes_in_memory(encoded) for encoded in answers.encoded])
    row_of = [answers.leads.index(first) + 1 if first in answers.leads else 0 for first in range(0x100)]
    rows = [unit for lead in answers.leads for unit in trail_row(answers, lead)]
    return (f"{ORIGIN}constexpr std::uint16_t blocks_of_{page}[] = {{\n{lines(pool.values())}}};\n"
            f"constexpr strings::code_unit16 rows_of_{page}[] = {{\n{lines(rows)}}};\n"
            f"constexpr double_byte_page page_{page} = {{{page}, blocks_of_{page}, rows_of_{page}, {{\n"
            f"{lines(block_of)}}}, {{\n{lines(answers.single)}}}, {{\n{lines(row_of)}}}}};\n")


def main():
    answers, tables = map(pathlib.Path, sys.argv[1:])
    (tables / "single_byte_pages.inc").write_text(single_byte_tables(answers))
    for page in DOUBLE_BYTE_PAGES:
        (tables / f"page_{page}.inc").write_text(double_byte_table(answers, page))


main()
