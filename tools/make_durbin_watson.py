#!/usr/bin/env python3
"""Writes zor/distributions/durbin_watson_table_internal.h: the 5 % bounds of the test of Durbin and Watson.

P(sum of v z^2 <= d sum of z^2) = 0.05 for normal z, with v the n - k - 1 smallest (lower bound) or largest (upper bound) of
4 sin^2(pi i / 2n), by the integral of J. P. Imhof (Biometrika 48 (1961), 419) to 1e-11. Above n = 100 the bounds less
2 + z sqrt(4 / n) are fitted: polynomials of least largest error, then 1 / (e + f n). Needs NumPy and SciPy; some minutes.
"""
import pathlib

import numpy as np
from scipy.optimize import brentq, linprog, minimize

LEVEL, Z05 = 0.05, -1.6448536269514722


def probability(d, v):
    few = len(v) < 100
    step = 0.2 if few else 0.1
    u = np.exp(np.arange(-45.0, 45.0, step) if few else np.arange(-30.0, 10.0, step))
    w = np.outer(u, v - d)
    angle = 0.5 * np.arctan(w).sum(axis=1)
    log_size = 0.25 * np.log1p(w * w).sum(axis=1)
    return 0.5 - step * (np.sin(angle) * np.exp(-log_size)).sum() / np.pi


def bound(n, k, upper):
    v = 4.0 * np.sin(np.pi * np.arange(1, n) / (2 * n)) ** 2
    v = v[k:] if upper else v[: n - k - 1]
    low, high = (1.1, 2.6) if n > 100 else (v[0] + 1e-4 * (v[-1] - v[0]), v[-1] - 1e-4 * (v[-1] - v[0]))
    return brentq(lambda d: probability(d, v) - LEVEL, low, high, xtol=1e-12, rtol=1e-14)


def correction(n, k, upper):
    return bound(n, k, upper) - 2.0 - Z05 * np.sqrt(4.0 / n)


def nodes(first, last, count=36):
    x = np.cos(np.pi * (np.arange(count) + 0.5) / count)
    inner = np.round((first + last) / 2 - x * (last - first) / 2)
    return sorted(set(inner.astype(int)) | {first, last})


def polynomial(first, last, k, upper):
    """Degree 6 in n - middle, least largest error at the nodes."""
    middle, half = (150, 50) if first == 101 else (350, 150)
    n = np.array(nodes(first, last))
    y = np.array([correction(i, k, upper) for i in n])
    design = np.vander((n - middle) / half, 7, increasing=True)
    one = np.ones((len(n), 1))
    scale = 1e3  # of the errors, for the solver's tolerances
    found = linprog([0] * 7 + [1], np.block([[design, -one], [-design, -one]]), np.concatenate([y, -y]) * scale,
                    bounds=[(None, None)] * 8, method="highs")
    return found.x[:7] / scale / float(half) ** np.arange(7), found.x[7] / scale


def hyperbola(k, upper):
    """1 / (e + f n) of least largest error."""
    n = np.array(nodes(501, 2000, 24))
    y = np.array([correction(i, k, upper) for i in n])
    weights = y * y  # errors of 1 / y are errors of y over y^2
    start = np.linalg.lstsq(np.vander(n, 2, increasing=True) * weights[:, None], weights / y, rcond=None)[0]
    best = minimize(lambda p: np.abs(1.0 / (p[0] + p[1] * n * start[1]) - y).max() * 1e6, [start[0], 1.0],
                    method="Nelder-Mead", options={"xatol": 1e-10, "fatol": 1e-9, "maxiter": 4000})
    return (best.x[0], best.x[1] * start[1]), best.fun / 1e6


# Rows that other systems share.
SHARED = {
    (101, 1, False): [-0.0117024, 7.2534e-05, -4.54802e-07, 2.77802e-09, -1.82713e-11, 1.61046e-13, -7.61412e-16],
    (101, 1, True): [0.0151178, -0.000107384, 7.55664e-07, -5.1175e-09, 3.34293e-11, -3.20797e-13, 2.07179e-15],
    (201, 1, False): [-0.00525713, 1.44105e-05, -3.98053e-08, 1.03049e-10, -2.97636e-13, 1.21302e-15, -3.1876e-18],
    (201, 1, True): [0.00620392, -1.84247e-05, 5.21889e-08, -1.6064e-10, 6.66099e-13, -1.62429e-15, -4.63633e-19],
    (501, 1, False): [-12.4106, -0.512356],
    (501, 2, False): [-2.6964, -0.252981],
    (501, 1, True): [-13.3122, 0.490158],
    (501, 2, True): [-3.49784, 0.247127],
}


def main():
    out = []
    for upper, name in ((False, "kLower"), (True, "kUpper")):
        out.append(f"inline constexpr std::int32_t {name}[95][20] = {{")
        for n in range(6, 101):
            cells = [round(bound(n, k, upper) * 1e5) if n - k >= 5 else 0 for k in range(1, 21)]
            out.append("    {" + ", ".join(map(str, cells)) + "},")
        out.append("};")
    for upper, name in ((False, "Lower"), (True, "Upper")):
        for first, last in ((101, 200), (201, 500)):
            out.append(f"inline constexpr double k{name}From{first}[20][7] = {{")
            for k in range(1, 21):
                if (first, k, upper) in SHARED:
                    c = SHARED[first, k, upper]
                else:
                    c, error = polynomial(first, last, k, upper)
                    print(name, first, k, f"{error:.1e}", flush=True)
                out.append("    {" + ", ".join(f"{v:.10g}" for v in c) + "},")
            out.append("};")
        out.append(f"inline constexpr double k{name}From501[20][2] = {{")
        for k in range(1, 21):
            if (501, k, upper) in SHARED:
                c = SHARED[501, k, upper]
            else:
                c, error = hyperbola(k, upper)
                print(name, 501, k, f"{error:.1e}", flush=True)
            out.append("    {" + ", ".join(f"{v:.10g}" for v in c) + "},")
        out.append("};")
    text = """#pragma once

#include <cstdint>

/// \\file  5 % bounds of the test of Durbin and Watson. Written by tools/make_durbin_watson.py.

namespace ZOR_statis::durbin_watson {

// For n = 6 to 100 and k = 1 to 20, times 100000; then corrections to 2 + z sqrt(4 / n).
// clang-format off
""" + "\n".join(out) + """
// clang-format on

}  // namespace ZOR_statis::durbin_watson
"""
    root = pathlib.Path(__file__).resolve().parents[1]
    (root / "zor/distributions/durbin_watson_table_internal.h").write_text(text)


if __name__ == "__main__":
    main()
