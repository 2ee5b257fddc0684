#!/usr/bin/env python3
"""Writes zor/base/ln_factorial.cpp: ln(n!) for n = 0 to 1000, each correctly rounded.

The logarithms are taken of the exact integer n! with 60 digits, far more than the 17 that decide the rounding.
Usage: tools/make_ln_factorial.py > zor/base/ln_factorial.cpp
"""

import sys
from decimal import Decimal, getcontext

HIGHEST = 1000
getcontext().prec = 60


def entries():
    factorial = 1
    for n in range(HIGHEST + 1):
        factorial *= max(n, 1)
        yield float((+Decimal(factorial)).ln()) if factorial > 1 else 0.0


rows, line = [], "   "
for value in entries():
    cell = f" {value!r},"
    if len(line) + len(cell) > 119:
        rows.append(line)
        line = "   "
    line += cell
rows.append(line)
sys.stdout.write("""#include "zor/base/ZOR_univconst.h"

// Written by tools/make_ln_factorial.py.

namespace ZOR_univconst {

// clang-format off
const std::array<ZOR_runtime::Double, kMaxLnFactorial + 1> uc_LnFactorial = {
""" + "\n".join(rows) + """
};
// clang-format on

}  // namespace ZOR_univconst
""")
