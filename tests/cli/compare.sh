#!/usr/bin/env bash
# oproc compare and oproc vartest: pairs of files, reports, messages, statuses.
set -u
oproc=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }
cd "$work" || fail "cd"
"$oproc" sample . --reps 3 --seed 11 --horizon 300 >/dev/null || fail "sample"

# Default method paired, level 0.95; the pair is named by file A as given.
out=$("$oproc" compare waits.dat@1 waits.dat@2 2>err) || fail "compare status $?: $(cat err)"
[ -s err ] && fail "compare wrote to stderr: $(cat err)"
echo "$out" | head -1 | grep -q "Paired-T Means Comparison" || fail "paired title: $out"
echo "$out" | grep -q "0.950 C.I." || fail "level 0.950: $out"
echo "$out" | grep -q "^waits.dat  " || fail "identifier: $out"
echo "$out" | grep -Eq "MEANS ARE (NOT )?EQUAL  AT  0.05 LEVEL" || fail "verdict: $out"

out=$("$oproc" compare --method two-sample --level 0.9 --title Reps waits.dat@All waits.dat@All) || fail "two-sample"
echo "$out" | head -1 | grep -q "Two-Sample T Means Comparison :                 Reps" || fail "two-sample title: $out"
for r in 1 2 3; do echo "$out" | grep -q "^waits.dat@$r " || fail "All pair $r: $out"; done
echo "$out" | grep -q "^waits.dat@4" && fail "only three replications"
# The same replication against itself: difference 0, never rejected.
[ "$(echo "$out" | grep -c "FAIL TO REJECT  H0 => MEANS ARE EQUAL  AT   0.1 LEVEL")" -eq 3 ] || fail "verdicts: $out"

out=$("$oproc" vartest --title Spread meanwait.dat@Lumped meanwait.dat@Lumped waits.dat@1 waits.dat@3) || fail "vartest"
echo "$out" | head -1 | grep -q "Compare Variances : Spread" || fail "vartest title: $out"
echo "$out" | grep -q "^meanwait.dat  *1  *[0-9.e+-]*%" || fail "ratio 1 and the percent sign: $out"
[ "$(echo "$out" | grep -c "VARIANCES ARE")" -eq 2 ] || fail "two verdicts: $out"

# Messages of the system: stderr and status 1, nothing on stdout.
check_message() {
    local expected=$1; shift
    out=$("$oproc" "$@" 2>err); status=$?
    [ $status -eq 1 ] || fail "$* should give status 1, got $status"
    [ -z "$out" ] || fail "$* printed a report: $out"
    [ "$(head -1 err)" = "$expected" ] || fail "$*: expected '$expected', got '$(cat err)'"
    [ "$(grep -cx "$expected" err)" -eq 1 ] || fail "$*: message shown more than once"
}
check_message "Confidence level value must be >= 0 and <= 100" compare --level 95 waits.dat waits.dat
check_message "Confidence level value must be >= 0 and <= 100" vartest --level 1 waits.dat waits.dat
check_message "File not found" compare waits.dat none.dat
check_message "Invalid replication treatment" compare waits.dat@All waits.dat@1
check_message "Invalid replication treatment" vartest waits.dat@9 waits.dat
"$oproc" compare queue.dat waits.dat 2>err; [ $? -eq 1 ] || fail "time-persistent data"
grep -q "You must first Batch/Truncate the data." err || fail "time-persistent message: $(cat err)"
"$oproc" compare meanwait.dat@Lumped meanwait.dat@Lumped >/dev/null 2>&1 || fail "Output data lumped"

# Usage errors: status 2.
"$oproc" compare waits.dat waits.dat waits.dat >/dev/null 2>&1; [ $? -eq 2 ] || fail "odd file count"
"$oproc" vartest waits.dat >/dev/null 2>&1; [ $? -eq 2 ] || fail "odd file count (vartest)"
"$oproc" compare --method welch waits.dat waits.dat >/dev/null 2>&1; [ $? -eq 2 ] || fail "unknown method"
echo "compare: all checks passed"
