#!/usr/bin/env python3
"""Writes src/text/UpperCaseTable.cpp: the upper case of every UTF-16 unit, in pages of 256.

Usage: scripts/make-upper-case-table.py > src/text/UpperCaseTable.cpp
"""


def upper(unit):
    if 0xD800 <= unit <= 0xDFFF or unit == 0xB5:
        return unit
    text = chr(unit).upper()
    # A letter whose upper case takes several letters, lies outside the basic plane or is an
    # ASCII letter keeps its own place: file systems do not join such names either.
    if len(text) != 1 or ord(text) > 0xFFFF or (unit >= 0x80 and ord(text) < 0x80):
        return unit
    return ord(text)


def main():
    pages, index = [], []
    plain = tuple([0] * 256)
    for page in range(256):
        deltas = tuple((upper(page * 256 + i) - (page * 256 + i)) & 0xFFFF for i in range(256))
        if deltas == plain:
            index.append(0)
            continue
        pages.append(deltas)
        index.append(len(pages))
    print("// Written by scripts/make-upper-case-table.py; change that program, not this file.")
    print('#include "text/UpperCaseTable.h"\n\n#include <array>\n#include <cstdint>\n')
    print("namespace norvo {\nnamespace {\n")
    print("// clang-format off")
    print("// Page number of each block of 256 units; 0 says that no unit of the block changes.")
    print("constexpr std::array<std::uint8_t, 256> kPageOf = {")
    for row in range(0, 256, 32):
        print("    " + ", ".join(str(i) for i in index[row:row + 32]) + ",")
    print("};\n")
    print("// What to add to a unit, modulo 65536.")
    print("constexpr std::array<std::array<std::uint16_t, 256>, %d> kPages = {{" % len(pages))
    for page in pages:
        print("    {{")
        for row in range(0, 256, 16):
            print("        " + ", ".join(str(d) for d in page[row:row + 16]) + ",")
        print("    }},")
    print("}};\n// clang-format on\n")
    print("}  // namespace\n")
    print("char16_t UpperCaseFromTable(char16_t unit) noexcept {")
    print("  const std::uint8_t page = kPageOf[unit >> 8];")
    print("  if (page == 0) return unit;")
    print("  return static_cast<char16_t>(unit + kPages[page - 1u][unit & 0xFFu]);")
    print("}\n\n}  // namespace norvo")


main()
