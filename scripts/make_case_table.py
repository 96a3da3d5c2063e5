#!/usr/bin/env python3
"""Writes src/platform/base/case_table.inc: case mapping and accent folding of Unicode characters.

Usage: scripts/make_case_table.py > src/platform/base/case_table.inc

Source: the Unicode Character Database of Python's unicodedata module. Only mappings of one character
to one character are taken (the database's simple mappings). Folding takes the accents off Latin,
Greek and Cyrillic letters and spells ligatures out; other scripts keep their marks, which there make
other letters.
"""
import unicodedata

SPELLED_OUT = {
    "\u00c6": "AE", "\u00e6": "ae", "\u00d0": "D", "\u00f0": "d", "\u00d8": "O", "\u00f8": "o",
    "\u00de": "TH", "\u00fe": "th", "\u00df": "ss", "\u1e9e": "SS", "\u0110": "D", "\u0111": "d",
    "\u0126": "H", "\u0127": "h", "\u0131": "i", "\u0141": "L", "\u0142": "l", "\u0152": "OE",
    "\u0153": "oe", "\u0166": "T", "\u0167": "t", "\u0132": "IJ", "\u0133": "ij", "\u017f": "s",
    "\ufb00": "ff", "\ufb01": "fi", "\ufb02": "fl",
}
FOLDED = [(0x00C0, 0x0530), (0x1E00, 0x2000), (0xFB00, 0xFB03)]


def characters():
    return (c for c in range(0x80, 0x1E944) if not 0xD800 <= c < 0xE000)


def case_pairs(convert):
    for code in characters():
        mapped = convert(chr(code))
        if code == 0x130 and convert is str.lower:
            mapped = "i"  # the simple mapping; the full one is i and a dot above
        if len(mapped) > 1 and convert is str.upper:
            mapped = chr(code).title()  # Greek letters with iota: one capital, spelled out in full case
        if len(mapped) == 1 and ord(mapped) != code and ord(mapped) >= 0x41:
            yield code, ord(mapped)


def as_ranges(pairs):
    """Runs of characters that are mapped by the same distance, every one or every other one."""
    runs = []
    for code, mapped in pairs:
        delta = mapped - code
        if runs:
            first, last, step, run_delta = runs[-1]
            gap = code - last
            if delta == run_delta and (gap == step or (first == last and gap <= 2)):
                runs[-1] = (first, code, gap, delta)
                continue
        runs.append((code, code, 1, delta))
    return runs


def folds():
    for low, high in FOLDED:
        for code in range(low, high):
            char = chr(code)
            base = SPELLED_OUT.get(char)
            if base is None:
                parts = unicodedata.normalize("NFD", char)
                base = "".join(p for p in parts if unicodedata.category(p) != "Mn")
                base = SPELLED_OUT.get(base, base)
                if len(parts) == 1 and base == char:
                    continue
            if base and base != char:
                assert len(base) <= 2
                yield code, ord(base[0]), ord(base[1]) if len(base) == 2 else 0


def table(kind, name, rows, per_line):
    print(f"constexpr {kind} {name}[] = {{")
    texts = ["{" + ", ".join(hex(v) if i != 2 or kind == "TFold" else str(v)
                             for i, v in enumerate(row)) + "}" for row in rows]
    for i in range(0, len(texts), per_line):
        print("    " + ", ".join(texts[i:i + per_line]) + ",")
    print("};")


print("// case_table.inc - written by scripts/make_case_table.py; do not edit.")
print(f"// Unicode {unicodedata.unidata_version}.")
print("// SPDX-License-Identifier: MIT")
print("// clang-format off")
table("TCaseRange", "LowerRanges", as_ranges(case_pairs(str.lower)), 4)
table("TCaseRange", "UpperRanges", as_ranges(case_pairs(str.upper)), 4)
table("TFold", "Folds", list(folds()), 5)
