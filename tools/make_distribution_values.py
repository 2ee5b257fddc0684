#!/usr/bin/env python3
"""Prints tests/data/distributions.txt: values of distributions to 20 digits, for tests/distributions. Needs mpmath.

A line is: routine, three arguments as hexadecimal doubles, the value at exactly these arguments.
"""
import random

import mpmath as mp

mp.mp.dps = 50
random.seed(20261123)
DEGREES = [0.1, 0.5, 1, 2, 3, 4.7, 10, 33, 100, 1000, 1e4, 1e5]


def put(name, value, *arguments):
    if mp.mpf("1e-300") < abs(value) < mp.mpf("1e300"):
        words = [float(a).hex() for a in arguments] + ["0x0p+0"] * (3 - len(arguments))
        print(name, *words, mp.nstr(value, 20))


def gamma_tails(a, x):
    return mp.gammainc(a, 0, x, regularized=True), mp.gammainc(a, x, mp.inf, regularized=True)


def chi2(df):
    spread = (2 * df) ** 0.5
    for _ in range(6):
        x = max(1e-3, df + random.choice([random.uniform(-3, 3), random.uniform(-8, 12)]) * spread)
        x *= random.choice([1, 1, 1e-5 if df < 50 else 1])
        h, m = mp.mpf(df) / 2, mp.mpf(x)
        lower, upper = gamma_tails(h, m / 2)
        put("Chi2DistriDensity", mp.exp((h - 1) * mp.log(m / 2) - m / 2 - mp.loggamma(h)) / 2, x, df)
        put("chi2DistriIntegral", lower, x, df)
        put("chi2DistriUpperTail", upper, x, df)


def student(df):
    for _ in range(6):
        t = random.choice([random.uniform(-5, 5), random.uniform(-60, 60), -(10 ** random.uniform(0, 30))])
        n, m = mp.mpf(df), mp.mpf(t)
        density = mp.exp(mp.loggamma((n + 1) / 2) - mp.loggamma(n / 2) - (n + 1) / 2 * mp.log1p(m * m / n))
        put("tDistriDensity", density / mp.sqrt(n * mp.pi), t, df)
        if df <= 1000:
            tail = mp.betainc(n / 2, 0.5, 0, n / (n + m * m), regularized=True) / 2
            put("tDistriIntegral", tail if t < 0 else 1 - tail, t, df)


def fisher(df1, df2):
    x = 10 ** random.uniform(-2, 2)
    a, b, m = mp.mpf(df1) / 2, mp.mpf(df2) / 2, mp.mpf(x)
    r = m * a / b
    put("FDistriDensity", mp.exp(a * mp.log(r) - (a + b) * mp.log1p(r) - mp.log(mp.beta(a, b))) / m, x, df1, df2)
    put("FDistriIntegral", mp.betainc(a, b, 0, r / (1 + r), regularized=True), x, df1, df2)
    put("FDistriUpperTail", mp.betainc(b, a, 0, 1 / (1 + r), regularized=True), x, df1, df2)


def binomial(n, p):
    m = mp.mpf(p)
    for _ in range(3):
        k = min(n - 1, max(0, int(n * p + random.uniform(-4, 4) * (n * p * (1 - p)) ** 0.5)))
        terms = [(1 - m) ** n]
        for i in range(k):
            terms.append(terms[-1] * (n - i) / (i + 1) * m / (1 - m))
        put("BinomDistriDensity", terms[k], n, p, k)
        put("BinomDistriIntegral", sum(terms), n, p, k)
        put("BinomDistriUpperTail", 1 - sum(terms), n, p, k)


def frozen():
    for x in [1e-3, 0.5, 1.5, 2.5, 10, 171.5, 1e5]:
        put("LnGamma", mp.loggamma(mp.mpf(x)), x)
    for a in [0.1, 0.5, 1, 3, 10]:
        for x in [0.01, 0.5, 1, 2, 4, 11, 30]:
            put("IncompleteGamma", gamma_tails(mp.mpf(a), mp.mpf(x))[0], x, a)
    for a, b in [(0.5, 0.5), (1, 3), (4.5, 0.5), (20, 30), (300, 500)]:
        for x in [0.01, 0.3, 0.5, 0.9]:
            put("IncompleteBeta", mp.betainc(a, b, 0, mp.mpf(x), regularized=True), x, a, b)
    for x in [-2, -0.1, 0.01, 0.5, 1, 3, 6]:
        put("Erf", mp.erf(mp.mpf(x)), x)
        put("nDistriIntegral", mp.ncdf(mp.mpf(x)), x)
        put("nDistriDensity", mp.npdf(mp.mpf(x)), x)
    for x in [-8, -1, -0.1, 0.1, 1, 5, 8, 20, 37]:
        put("nDistriUpperTail", mp.erfc(mp.mpf(x) / mp.sqrt(2)) / 2, x)
    for p in [1e-12, 1e-100, 1e-300, 5e-324]:
        start = -mp.sqrt(-2 * mp.log(p)) + 0.1
        put("nDistriQuantile", mp.findroot(lambda z: mp.log(mp.erfc(-z / mp.sqrt(2)) / 2) - mp.log(mp.mpf(p)), start), p)


for degrees in DEGREES:
    chi2(degrees)
    student(degrees)
    if degrees <= 1000:
        for other in [0.7, 2, 5, 40, 1000]:
            fisher(degrees, other)
for trials, share in [(1, 0.3), (10, 0.5), (40, 0.01), (1000, 0.9), (20000, 0.25)]:
    binomial(trials, share)
frozen()
