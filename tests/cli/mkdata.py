#!/usr/bin/env python3
"""Data files for the conversion checks, written byte by byte from the file
layout with struct, so that no expected byte comes from oproc itself.

usage: mkdata.py PATH KIND DOUBLE REINIT RECORDS
       mkdata.py --read PATH
       mkdata.py --dif PATH | --csv PATH
RECORDS is a list of records "t:v,t:v,..." where a value may be nan, -nan,
inf, -inf, -0, max, -max, tiny (smallest subnormal), minnorm, or 0xHEX for
the raw bits of a double; "|" between replications makes the markers
(-r, 0), and the last replication ends with (-n, -1) except in kind 5.

--read prints a file back in the same notation after "KIND REINIT D|S ",
numbers as Python writes them (whole ones without ".0"); it fails unless
the markers are numbered -1, -2, ... with the last of value -1.

--dif reads a Data Interchange Format file (checking its header's counts
against its tuples) and --csv a spreadsheet's CSV; both print the rows as
"cell,cell;cell,cell", numbers as --read writes them, NA and ERROR as such.
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


def text(x):
    whole = x == x and abs(x) != float("inf") and x == int(x) and str(x) != "-0.0"
    return str(int(x)) if whole else repr(x)


def cell(x):
    try:
        return text(float(x))
    except (ValueError, OverflowError):
        return x


def read_dif(path):
    lines = open(path, newline="").read().split("\r\n")
    assert lines[-1] == "", "the last line ends in CR LF"
    header = {}
    while lines[0] != "DATA":
        topic, numbers, string = lines[:3]
        header[topic] = int(numbers.split(",")[1])
        del lines[:3]
    assert lines[1:3] == ["0,0", '""'], lines[:3]
    del lines[:3]
    rows = []
    while True:
        kind, number = lines[0].split(",")
        word = lines[1]
        del lines[:2]
        if kind == "-1":
            if word == "EOD":
                break
            assert word == "BOT", word
            rows.append([])
        elif kind == "0":
            rows[-1].append(text(float(number)) if word == "V" else word)
        else:
            assert kind == "1" and word.startswith('"') and word.endswith('"'), word
            rows[-1].append(word[1:-1].replace('""', '"'))
    assert lines == [""], lines
    assert header["TUPLES"] == len(rows) and all(len(r) == header["VECTORS"] for r in rows), header
    print(";".join(",".join(r) for r in rows))


def read_csv(path):
    import csv
    print(";".join(",".join(cell(c) for c in row) for row in csv.reader(open(path, newline=""))))


def read(path):
    data = open(path, "rb").read()
    end = data.index(b"\x1a") + 1
    lines = data[:end].decode("latin-1").split("\r\n")
    kind, reinit, dbl = int(lines[0][:3]) - 200, lines[3][19], lines[3][20] == "D"
    fmt = "<dd" if dbl else "<ff"
    size = struct.calcsize(fmt)
    reps, rep, ended = [], [], False
    for at in range(end, len(data) - size + 1, size):
        t, v = struct.unpack_from(fmt, data, at)
        if ended:
            sys.exit(f"{path}: a record after the end marker")
        if t > -1.0:
            rep.append(f"{text(t)}:{text(v)}")
            continue
        reps.append(",".join(rep))
        rep = []
        if t != -len(reps) or v not in (0.0, -1.0):
            sys.exit(f"{path}: marker ({t}, {v}) closes replication {len(reps)}")
        ended = v == -1.0
    if not ended:
        sys.exit(f"{path}: no end marker")
    print(kind, reinit, "D" if dbl else "S", "|".join(reps))


def main():
    readers = {"--read": read, "--dif": read_dif, "--csv": read_csv}
    if sys.argv[1] in readers:
        return readers[sys.argv[1]](sys.argv[2])
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
