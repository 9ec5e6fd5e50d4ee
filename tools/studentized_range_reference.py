#!/usr/bin/env python3
"""Upper points of the studentized range by brute force, to check published
tables and the library's quadrature against an independent method.

Plain composite Simpson rules on the untransformed double integral:
P(Q < q) = int_0^inf f_df(s) W(q s) ds, with W(w) = k int phi(x) (Phi(x) -
Phi(x - w))^(k-1) dx the range distribution of k standard normals (not
Hartley's form) and f_df the density of s = sqrt(chi2_df / df); the point by
bisection. Standard library only; slow (seconds per point), five decimals.

    studentized_range_reference.py ALPHA,K,DF [...]     (DF may be inf)
"""
import math
import sys


def simpson(f, a, b, n):
    n += n % 2
    h = (b - a) / n
    return h / 3 * sum((1 if i in (0, n) else 4 if i % 2 else 2) * f(a + i * h) for i in range(n + 1))


def Phi(x):
    return 0.5 * math.erfc(-x / math.sqrt(2))


def range_cdf(w, k):
    if w <= 0:
        return 0.0
    phi = lambda x: math.exp(-0.5 * x * x) / math.sqrt(2 * math.pi)
    f = lambda x: phi(x) * max(0.0, Phi(x) - Phi(x - w)) ** (k - 1)
    return min(1.0, k * simpson(f, -9.0, 9.0 + w, int((18 + w) / 0.01)))


def cdf(q, k, df):
    if df == math.inf:
        return range_cdf(q, k)
    log_c = math.log(2) + (df / 2) * math.log(df / 2) - math.lgamma(df / 2)
    f = lambda s: math.exp(log_c + (df - 1) * math.log(s) - df * s * s / 2) * range_cdf(q * s, k) if s > 0 else 0.0
    sd = 1 / math.sqrt(2 * df)
    lo, hi = (max(0.0, 1 - 12 * sd), 1 + 12 * sd) if df > 50 else (0.0, 9.0)
    return simpson(f, lo, hi, 400)


def upper_point(alpha, k, df):
    lo, hi = 0.5, 300.0
    while hi - lo > 5e-6:
        mid = 0.5 * (lo + hi)
        lo, hi = (mid, hi) if cdf(mid, k, df) < 1 - alpha else (lo, mid)
    return 0.5 * (lo + hi)


if __name__ == "__main__":
    for arg in sys.argv[1:]:
        alpha, k, df = arg.split(",")
        print(arg, "%.5f" % upper_point(float(alpha), int(k), math.inf if df == "inf" else float(df)), flush=True)
