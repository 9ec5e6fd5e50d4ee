#!/usr/bin/env bash
# The oproc command's foundation: sample data, info, exit statuses, help.
set -u
oproc=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }

"$oproc" --help >/dev/null || fail "--help should exit 0"
"$oproc" info --help | grep -q "FILE" || fail "info --help should describe FILE"
"$oproc" >/dev/null 2>&1; [ $? -eq 2 ] || fail "no command is a usage error (2)"
"$oproc" info --no-such-flag x >/dev/null 2>&1; [ $? -eq 2 ] || fail "unknown flag is a usage error (2)"

"$oproc" sample "$work/s" --reps 3 --seed 7 --horizon 200 >/dev/null || fail "sample"
for f in waits queue workload served meanwait; do [ -f "$work/s/$f.dat" ] || fail "missing $f.dat"; done
"$oproc" sample "$work/t" --reps 3 --seed 7 --horizon 200 >/dev/null
cmp -s "$work/s/waits.dat" "$work/t/waits.dat" || fail "same seed must give the same file"
ls -A "$work/s" | grep -q '^\.' && fail "temporary files left behind"

out=$("$oproc" info "$work/s/waits.dat") || fail "info exit status"
echo "$out" | grep -q "Replications:   3" || fail "info replication count: $out"
echo "$out" | grep -q "Data kind:      3 (Tally)" || fail "info kind: $out"

# A missing file: the message on stderr, status 1, and the other file still reported.
out=$("$oproc" info "$work/none.dat" "$work/s/queue.dat" 2>"$work/err"); status=$?
[ $status -eq 1 ] || fail "missing file should give status 1, got $status"
grep -qx "File not found" "$work/err" || fail "missing file message: $(cat "$work/err")"
echo "$out" | grep -q "queue.dat" || fail "the readable file must still be reported"

# Damaged input: a message, never a crash.
printf 'garbage' >"$work/bad.dat"
: >"$work/empty.dat"
for f in "$work/bad.dat" "$work/empty.dat" "$work"; do
    "$oproc" info "$f" >/dev/null 2>"$work/err"; status=$?
    [ $status -eq 1 ] || fail "damaged input $f should give status 1, got $status"
    [ -s "$work/err" ] || fail "damaged input $f should print a message"
done

# --single-precision writes 4-byte records.
"$oproc" --single-precision sample "$work/f" --reps 1 --horizon 50 >/dev/null
"$oproc" info "$work/f/waits.dat" | grep -q "4-byte floats" || fail "--single-precision"
OPROC_DOUBLE_PRECISION=0 "$oproc" sample "$work/g" --reps 1 --horizon 50 >/dev/null
"$oproc" info "$work/g/waits.dat" | grep -q "4-byte floats" || fail "OPROC_DOUBLE_PRECISION=0"
echo "foundation: all checks passed"
