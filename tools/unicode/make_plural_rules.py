"""Writes the plural rules of all languages as C++: make_plural_rules.py COMMON OUTPUT

COMMON is the folder of that name in the Common Locale Data Repository. Each set of rules becomes a function, and each
language an entry with its functions. The syntax of rules is that of UTS #35, part 3, "Plural rules syntax".
"""

import re
import sys
import xml.etree.ElementTree as xml
from pathlib import Path

from locale_data import heading

CATEGORIES = ["zero", "one", "two", "few", "many", "other"]


def ranges_of(text):
    """3..4,9 as [(3, 4), (9, 9)]."""
    for part in text.split(","):
        first, _, last = part.partition("..")
        yield int(first), int(last or first)


def membership(value, ranges):
    """A C++ condition: the value is in one of the ranges."""
    parts = [f"{value} == {first}" if first == last else f"is_in({value}, {first}, {last})" for first, last in ranges]
    return parts[0] if len(parts) == 1 else f"({' || '.join(parts)})"


def relation(text):
    """A C++ condition for a relation such as n % 10 = 3..4,9."""
    match = re.fullmatch(r"([nivwfte])(?: % (\d+))? (!?=) ([\d.,]+)", text)
    if not match:
        raise SystemExit(f"unknown relation: {text}")
    operand, modulus, operator, ranges = match.groups()
    # A range has whole numbers only, so a number with a fraction is in none.
    value = "n.i" if operand == "n" else f"n.{operand}"
    if modulus:
        value += f" % {modulus}"
    condition = membership(value, list(ranges_of(ranges)))
    if operand == "n":
        condition = f"(n.t == 0 && {condition})"
    if operator == "=":
        return condition
    return "!" + (condition if condition.startswith("(") else f"({condition})")


def condition_of(rule):
    """A C++ condition for a whole rule."""
    alternatives = []
    for alternative in rule.split(" or "):
        relations = [relation(part) for part in alternative.split(" and ")]
        joined = " && ".join(relations)
        alternatives.append(f"({joined})" if len(relations) > 1 and " or " in rule else joined)
    return " || ".join(alternatives)


def rule_sets(file):
    """Yields the languages of each set, and its rules by category, without samples and without `other`."""
    for rules in xml.parse(file).getroot().iter("pluralRules"):
        by_category = {rule.get("count"): (rule.text or "").split("@")[0].strip() for rule in rules.iter("pluralRule")}
        by_category.pop("other")
        yield rules.get("locales").lower().split(), by_category


def write_set(kind, number, rules):
    name = f"{kind}_{number}"
    lines = [f"plural_category {name}([[maybe_unused]] const operands& n) {{"]
    for category in CATEGORIES:
        if category in rules:
            lines.append(f"  if ({condition_of(rules[category])}) {{")
            lines += [f"    return plural_category::{category};", "  }"]
    lines += ["  return plural_category::other;", "}", ""]
    mask = sum(1 << CATEGORIES.index(category) for category in [*rules, "other"])
    return lines, f"{{{name}, {mask}}}"


def write_kind(kind, file):
    lines, languages = [], {}
    for number, (locales, rules) in enumerate(rule_sets(file), 1):
        function, entry = write_set(kind, number, rules)
        lines += function
        languages.update((locale, entry) for locale in locales if locale != "root")
    lines.append(f"constexpr language_rules {kind}_rules[] = {{")
    lines += [f'    {{packed("{language}"), {languages[language]}}},' for language in sorted(languages)]
    return [*lines, "};", ""]


def main(common, output):
    common = Path(common)
    folder = common / "supplemental"
    lines = [
        *heading(common, "plurals.xml and ordinals.xml"),
        *write_kind("cardinal", folder / "plurals.xml"),
        *write_kind("ordinal", folder / "ordinals.xml"),
        "// clang-format on",
    ]
    Path(output).write_text("\n".join(lines) + "\n", encoding="utf-8")


main(*sys.argv[1:])
