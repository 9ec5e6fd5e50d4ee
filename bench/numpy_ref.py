#!/usr/bin/env python3
"""The same work as three analyses, done the way an analyst would script it
with numpy and scipy: the outside reference of bench/ratios.sh.

usage: numpy_ref.py interval|batch|correlogram FILE   (8-byte records)
"""
import sys

import numpy as np
from scipy import stats


def first_replication(path):
    raw = open(path, "rb").read()
    start = raw.index(b"\x1a") + 1
    recs = np.frombuffer(raw, dtype="<f8", offset=start, count=(len(raw) - start) // 16 * 2).reshape(-1, 2)
    markers = np.flatnonzero((recs[:, 0] < 0) & (recs[:, 1] != -2.0))
    end = markers[0] if len(markers) else len(recs)
    rep = recs[:end]
    return rep[rep[:, 0] >= 0]


def main():
    what, path = sys.argv[1], sys.argv[2]
    x = first_replication(path)[:, 1]
    n = len(x)
    if what == "interval":
        sd = x.std(ddof=1)
        half = stats.t.ppf(0.975, n - 1) * sd / np.sqrt(n)
        print(x.mean(), sd, half, x.min(), x.max(), n)
    elif what == "batch":
        b = n // 100
        means = x[: 100 * b].reshape(100, b).mean(axis=1)
        d = np.sum(np.diff(means) ** 2)
        s = np.sum((means - means.mean()) ** 2)
        print(1.0 - d / (2.0 * s))
    elif what == "correlogram":
        y = x - x.mean()
        m = 1 << int(np.ceil(np.log2(2 * n)))
        f = np.fft.rfft(y, m)
        acc = np.fft.irfft(f * np.conj(f), m)[: 1001] / n
        print(acc[1:6] / acc[0])
    else:
        sys.exit("unknown work " + what)


main()
