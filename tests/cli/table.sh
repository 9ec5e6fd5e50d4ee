#!/usr/bin/env bash
# The table of observations end to end: the fixed-column report of a small
# pair of files written by hand, and the CSV and JSON forms read back by
# Python and compared with the records as an independent reader of the file
# layout finds them (8- and 4-byte records, empty replications, skip markers).
set -u
OPROC=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1
fail=0
check() {  # check WHAT EXPECTED ACTUAL
    if [ "$2" != "$3" ]; then
        echo "FAIL: $1"
        diff <(printf '%s\n' "$2") <(printf '%s\n' "$3")
        fail=1
    fi
}

# Data files: header lines, then (time, value) records; a replication ends with
# (-r, 0), the data with (-n, -1); (-1, -2) is a marker every reader skips.
python3 - <<'PY' || exit 1
import random, struct
def write(path, kind, ident, title, double, reps, skip_after=None):
    head = b"%d \r\n" % (200 + kind)
    head += b"Output file for:%-24.24s by:%-24.24s \r\n" % (ident.encode(), b"TEST WRITER")
    head += b"Data for:%s\r\n" % title.encode()
    head += b"Run date:%-10.10s%c%c     %7d\r\n" % (b"x", ord("N"), ord("D" if double else "S"), 1)
    head += b"File Version: \x07QUILLSTATFMT\r\n\x1a"
    fmt = "<dd" if double else "<ff"
    out = bytearray(head)
    for r, rep in enumerate(reps, 1):
        for k, (t, v) in enumerate(rep):
            out += struct.pack(fmt, t, v)
            if skip_after == (r, k):
                out += struct.pack(fmt, -1.0, -2.0)
        out += struct.pack(fmt, -r, -1.0 if r == len(reps) else 0.0)
    open(path, "wb").write(out)
write("a.dat", 3, "WAIT", "waits", True, [[(0.5, 1.25), (1, 2.5), (2, -3)], [], [(0.25, 0.1), (7, 1e-7)]], (1, 0))
write("b.dat", 1, "QUEUE", "queue length", False, [[(0, 0), (0.1, 1), (3.5, 2), (4, 1)], [(0, 0.1)]])
random.seed(7)
big = [[(i * 0.37 + random.random(), random.gauss(10, 3)) for i in range(n)] for n in (3000, 0, 5000, 1)]
write("big.dat", 3, "BIG", "many", True, big)
write("bigs.dat", 2, "BIGS", "many, 4-byte", False, big[::-1], (2, 10))
PY

expected='                        Table of Observations
                                    Two files

File 1: a.dat
    Identifier:   WAIT
    Title:        waits
    Kind:         Tally
    Replications: All
File 2: b.dat
    Identifier:   QUEUE
    Title:        queue length
    Kind:         DSTAT
    Replications: 1
A row of dashes ends a replication.

       Obs  WAIT                       QUEUE
                    Time        Value          Time        Value
         1           0.5         1.25             0            0
         2             1          2.5           0.1            1
         3             2           -3           3.5            2
         4                                        4            1
----------  ------------ ------------  ------------ ------------
----------  ------------ ------------  ------------ ------------
         5          0.25          0.1
         6             7        1e-07'
check "text report" "$expected" "$("$OPROC" table --title "Two files" a.dat@All b.dat@1)"

# Rows 2 to 5 of the times from 0.4 on: replication ends inside the range stay.
expected='obs,time_1,value_1,time_2,value_2
2,1,2.5,4,1
3,2,-3,,
,,,,
,,,,
4,7,1e-07,,'
check "window and range" "$expected" "$("$OPROC" table a.dat@All b.dat@1 --from 0.4 --first 2 --count 3 --format csv)"

# Every replication of every file, read back and compared with the records.
python3 - "$OPROC" <<'PY' || fail=1
import csv, io, json, struct, subprocess, sys
oproc = sys.argv[1]

def records(path):
    """Replications of a data file as lists of (time, value), by the file layout."""
    data = open(path, "rb").read()
    end = data.index(b"\x1a") + 1
    double = data[:end].split(b"\r\n")[3][20:21] in (b"D", b"d")
    fmt, size = ("<dd", 16) if double else ("<ff", 8)
    reps, cur = [], []
    for off in range(end, len(data) - size + 1, size):
        t, v = struct.unpack_from(fmt, data, off)
        if t >= 0:
            cur.append((t, v))
        elif v != -2.0:
            reps.append(cur)
            cur = []
            if v == -1.0:
                break
    return reps, double

def as_stored(text, double):
    x = float(text)
    return x if double else struct.unpack("<f", struct.pack("<f", x))[0]

def columns(rows, nfiles, doubles):
    """Per file, per replication-end-separated block, the filled cells in order."""
    blocks = [[[]] for _ in range(nfiles)]
    expect_obs = 1
    for row in rows:
        if row[0] is None:
            for b in blocks:
                b.append([])
            continue
        assert row[0] == expect_obs, (row[0], expect_obs)
        expect_obs += 1
        for i in range(nfiles):
            t, v = row[1 + 2 * i], row[2 + 2 * i]
            assert (t is None) == (v is None)
            if t is not None:
                assert not blocks[i][-1] or blocks[i][-1][-1] is not None, "cell after an empty one"
                blocks[i][-1].append((as_stored(t, doubles[i]), as_stored(v, doubles[i])))
    return blocks

bad = 0
for args in (["big.dat@All", "bigs.dat@All", "a.dat@All"], ["bigs.dat@3"], ["big.dat@Lumped", "b.dat@All"]):
    files = [a.split("@") for a in args]
    recs = [records(f) for f, _ in files]
    want = []
    for (f, reps), (r, _) in zip(files, recs):
        want.append(r if reps == "All" else ([sum(r, [])] if reps == "Lumped" else [r[int(reps) - 1]]))
    doubles = [d for _, d in recs]
    out = subprocess.run([oproc, "table", *args, "--format", "csv"], capture_output=True, text=True, check=True).stdout
    table = list(csv.reader(io.StringIO(out)))
    head = ["obs"] + [f"{k}_{i}" for i in range(1, len(args) + 1) for k in ("time", "value")]
    rows = [[int(c[0]) if c[0] else None] + [x if x else None for x in c[1:]] for c in table[1:]]
    got = columns(rows, len(args), doubles)
    blocks = max(len(w) for w in want)
    for i, w in enumerate(want):
        w = w + [[]] * (blocks - len(w))
        if table[0] != head or got[i] != w:
            print("FAIL: csv of", args, "file", i + 1)
            bad = 1
    js = json.loads(subprocess.run([oproc, "table", *args, "--format", "json"], capture_output=True, text=True,
                                   check=True).stdout)
    jrows = [[r[0]] + [None if x is None else repr(x) for x in r[1:]] if r else [None] * (1 + 2 * len(args))
             for r in js["results"]["rows"]]
    if columns(jrows, len(args), doubles) != got or [f["file"] for f in js["results"]["files"]] != [f for f, _ in files]:
        print("FAIL: json of", args)
        bad = 1
sys.exit(bad)
PY

# Messages: each once on stderr, exit status 1.
for case in "missing.dat|File not found" "a.dat@4|Invalid replication treatment" \
            "a.dat --first 0|Invalid numeric field" "a.dat --from 3 --to 2|Ending time must be greater than beginning time"; do
    args=${case%%|*}
    # shellcheck disable=SC2086
    "$OPROC" table $args 2>err.txt >/dev/null
    status=$?
    err=$(head -n 1 err.txt)  # a second line may name what the message concerns
    check "message of $args" "${case#*|} (1)" "$err ($status)"
done

exit $fail
