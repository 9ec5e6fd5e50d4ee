#!/usr/bin/env python3
"""Data files for the conversion checks, written byte by byte from the file
layout with struct, so that no expected byte comes from oproc itself.

usage: mkdata.py PATH KIND DOUBLE REINIT RECORDS
RECORDS is a list of records "t:v,t:v,..." where a value may be nan, -nan,
inf, -inf, -0, max, -max, tiny (smallest subnormal), minnorm, or 0xHEX for
the raw bits of a double; "|" between replications makes the markers
(-r, 0), and the last replication ends with (-n, -1) except in kind 5.
"""
import struct
import sys

TYPES = {1: "DSTAT", 2: "CSTAT", 3: "Tally", 4: "Output", 5: "Filtered", 6: "Counter", 7: "Frequency"}


def header(kind, ident, title, reinit, dbl, count=1):
    text = (
        f"{200 + kind} \r\n"
        f"Output file for:{ident:<24.24} by:{'QUILLSTAT VIEWR':<24.24} \r\n"
        f"Data for:{title}\r\n"
        f"Run date:{TYPES[kind]:<10.10}{'Y' if reinit else 'N'}{'D' if dbl else 'S'}     {count:7d}\r\n"
        "File Version: \x07QUILLSTATFMT\r\n\x1a"
    )
    return text.encode("latin-1")


def number(text, dbl):
    names = {
        "max": 1.7976931348623157e308 if dbl else 3.4028234663852886e38,
        "tiny": 5e-324 if dbl else 1.401298464324817e-45,
        "minnorm": 2.2250738585072014e-308 if dbl else 1.1754943508222875e-38,
    }
    neg = text.startswith("-") and text[1:] in names
    if text.lstrip("-") in names:
        v = names[text.lstrip("-")]
        return -v if neg else v
    if text.startswith("0x"):
        return struct.unpack("<d", struct.pack("<Q", int(text, 16)))[0]
    return float(text)


def pack(t, v, dbl):
    if dbl:
        return struct.pack("<dd", t, v)
    return struct.pack("<ff", t, v)


def main():
    path, kind, dbl, reinit, records = sys.argv[1:6]
    kind, dbl, reinit = int(kind), dbl == "1", reinit == "1"
    reps = records.split("|")
    out = bytearray(header(kind, f"ID{kind}", f"Kind {kind} records", reinit, dbl))
    for i, rep in enumerate(reps, 1):
        for rec in filter(None, rep.split(",")):
            t, v = rec.split(":")
            out += pack(number(t, dbl), number(v, dbl), dbl)
        if kind != 5 or i < len(reps):
            out += pack(-float(i), -1.0 if i == len(reps) else 0.0, dbl)
    open(path, "wb").write(out)


if __name__ == "__main__":
    main()
