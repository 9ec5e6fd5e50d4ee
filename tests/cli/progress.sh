#!/usr/bin/env bash
# The progress line of a long read: on a terminal (script gives the command a
# pseudo-terminal) it is drawn on stderr and erased again; through a pipe, or
# with --quiet, stderr stays empty. The half-second wait is taken away so that
# a file of a few blocks is enough.
set -u
oproc=$1
here=$2/cli
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }
cd "$work" || fail "cd"

# 400 000 observations in one replication: 6.4 MB, seven blocks of the reader.
python3 - "$here" <<'PY' || fail "data"
import struct, sys
sys.path.insert(0, sys.argv[1])
import mkdata
out = bytearray(mkdata.header(3, "ID3", "Progress", False, True))
out += b"".join(struct.pack("<dd", i, i % 7) for i in range(400000))
out += struct.pack("<dd", -1.0, -1.0)
open("big.dat", "wb").write(out)
PY

export OPROC_PROGRESS_DELAY_MS=0
"$oproc" interval big.dat >want 2>err || fail "interval: $(cat err)"
[ -s err ] && fail "progress through a pipe: $(cat -v err)"

# Inside script only stderr reaches the terminal; the report goes to a file.
script -qec "'$oproc' interval big.dat >tty.out" /dev/null >tty </dev/null || fail "interval under script: $(cat -v tty)"
cmp -s want tty.out || fail "the report differs on a terminal"
grep -aq 'big\.dat  *[0-9]*%' tty || fail "no progress line: $(cat -v tty)"
# Whatever was drawn is erased at the end: carriage return, erase to end of line.
[ "$(tail -c 4 tty | od -An -c | tr -d ' ')" = '\r033[K' ] || fail "line not erased: $(cat -v tty)"

script -qec "'$oproc' --quiet interval big.dat >/dev/null" /dev/null >quiet </dev/null || fail "quiet run"
[ -s quiet ] && fail "progress despite --quiet: $(cat -v quiet)"
exit 0
