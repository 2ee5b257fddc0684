#!/usr/bin/env python3
"""Writes zor/runtime/case_ranges_internal.h: the simple case mappings of the Unicode Character Database as ranges.

Usage: tools/make_case_ranges.py > zor/runtime/case_ranges_internal.h
"""

import sys
import unicodedata


def simple_lower(c):
    mapped = c.lower()
    return mapped if len(mapped) == 1 else mapped[0]  # U+0130 alone: "i" and a combining dot


def simple_upper(c):
    for mapped in (c.upper(), c.title()):  # the title form is the simple mapping of iota subscripts
        if len(mapped) == 1:
            return mapped
    return c


def ranges(mapping):
    """Runs (first, last, step, delta) of code points, step 1 or 2, that move by the same delta."""
    runs = []
    for code in range(0x110000):
        if 0xD800 <= code < 0xE000:
            continue
        delta = ord(mapping(chr(code))) - code
        if delta == 0:
            continue
        if runs:
            first, last, step, run_delta = runs[-1]
            gap = code - last
            if delta == run_delta and (gap == step or (first == last and gap == 2)):
                runs[-1] = (first, code, gap, delta)
                continue
        runs.append((code, code, 1, delta))
    return runs


def table(name, comment, mapping):
    cells = [f"{{0x{f:X}, 0x{l:X}, {s}, {d}}}" for f, l, s, d in ranges(mapping)]
    lines, line = [], "   "
    for cell in cells:
        if len(line) + len(cell) + 2 > 119:
            lines.append(line)
            line = "   "
        line += " " + cell + ","
    lines.append(line)
    return f"/// {comment}\ninline constexpr CaseRange {name}[] = {{\n" + "\n".join(lines) + "\n};\n"


sys.stdout.write(f"""#pragma once

#include <cstdint>

/// \\file  Simple case mappings of Unicode {unicodedata.unidata_version}, written by tools/make_case_ranges.py.

namespace zor::detail {{

/// Every step-th code point from first to last maps to itself plus delta.
struct CaseRange {{
  char32_t first, last;
  std::uint32_t step;
  std::int32_t delta;
}};

// clang-format off
{table("kToLower", "To lower case, in rising order.", simple_lower)}
{table("kToUpper", "To upper case, in rising order.", simple_upper)}// clang-format on

}}  // namespace zor::detail
""")
