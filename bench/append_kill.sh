#!/usr/bin/env bash
# Kills `oproc append` at random moments and checks that the destination is
# then exactly the file before the append or the file after it, by checksum.
# Not a ctest test: it writes a few hundred megabytes and takes a minute.
#
# usage: bench/append_kill.sh OPROC [TRIALS] [RECORDS]
# The destination holds RECORDS observations (default 10^7) in two
# replications, in doubles; the source three small replications in floats.
set -u
oproc=$(realpath "$1")
trials=${2:-20}
records=${3:-10000000}
here=$(cd "$(dirname "$0")/.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1

# numpy lives with the system's python.
/usr/bin/python3 - "$here/tests/cli" "$records" <<'PY' || exit 1
import sys
import numpy as np
sys.path.insert(0, sys.argv[1])
import mkdata
n = int(sys.argv[2])
half = n // 2
rng = np.random.default_rng(7)
rec = np.empty((n + 2, 2))
rec[:half, 0] = np.arange(half)
rec[:half, 1] = rng.exponential(2.0, half)
rec[half] = (-1.0, 0.0)
rec[half + 1:n + 1, 0] = np.arange(n - half)
rec[half + 1:n + 1, 1] = rng.exponential(2.0, n - half)
rec[n + 1] = (-2.0, -1.0)
with open("dest.dat", "wb") as f:
    f.write(mkdata.header(3, "ID3", "Kind 3 records", True, True))
    f.write(rec.astype("<f8").tobytes())
PY
python3 "$here/tests/cli/mkdata.py" src.dat 3 0 0 "0:0.5,1:1.5|2:2.5|3:3.5,4:4.5" || exit 1

cp dest.dat old.dat
old=$(sha256sum <old.dat)
start=$(date +%s.%N)
"$oproc" append src.dat dest.dat >/dev/null || { echo "the full append failed"; exit 1; }
took=$(echo "$(date +%s.%N) - $start" | bc)
new=$(sha256sum <dest.dat)
echo "append onto $records records: $took s ($(stat -c %s old.dat) bytes before)"

kept_old=0 kept_new=0 broken=0 leftovers=0
for ((i = 1; i <= trials; i++)); do
    cp old.dat dest.dat
    # Any moment from the start to a little past the whole run's length.
    delay=$(awk -v r="$RANDOM" -v t="$took" 'BEGIN { printf "%.3f", r / 32767 * t * 1.2 }')
    "$oproc" append src.dat dest.dat >/dev/null 2>&1 &
    pid=$!
    sleep "$delay"
    kill -KILL "$pid" 2>/dev/null
    wait "$pid" 2>/dev/null
    sum=$(sha256sum <dest.dat)
    if [ "$sum" = "$old" ]; then
        kept_old=$((kept_old + 1)); what=old
    elif [ "$sum" = "$new" ]; then
        kept_new=$((kept_new + 1)); what=new
    else
        broken=$((broken + 1)); what=BROKEN
    fi
    # A killed run cannot remove its temporary file; it is never the destination.
    left=$(ls -A | grep -c '^\.dest\.dat\.')
    leftovers=$((leftovers + left))
    rm -f .dest.dat.*
    echo "trial $i: killed after $delay s: $what"
done
echo "$trials trials: $kept_old old, $kept_new new, $broken neither; $leftovers temporary files left by killed runs"
[ "$broken" -eq 0 ]
