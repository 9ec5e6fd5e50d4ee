#!/usr/bin/env bash
# oproc correlogram: report, the saved .cor file, field and dialog messages.
set -u
oproc=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }
cd "$work" || fail "cd"
"$oproc" sample . --reps 3 --seed 5 --horizon 300 >/dev/null || fail "sample"

out=$("$oproc" correlogram waits.dat --reps 2 --title "Rep two" --max-lags 12 --out lags 2>err) || fail "status: $(cat err)"
[ -s err ] && fail "stderr: $(cat err)"
echo "$out" | head -2 | grep -q "                          Correlogram Summary" || fail "title: $out"
echo "$out" | grep -q "                                      Rep two" || fail "user title: $out"
[ "$(echo "$out" | grep -cE '^ +[0-9]+ +[-0-9.e+]+ +[-0-9.e+]+$')" -eq 12 ] || fail "12 lag lines: $out"
echo "$out" | grep -q "     Lag   Covariance  Correlation" || fail "column heads: $out"
[ -f lags.cor ] || fail ".cor added to a name without extension"
info=$("$oproc" info lags.cor) || fail "the saved file reads back"
echo "$info" | grep -q "Data kind:      5 (Filtered)" || fail "kind 5: $info"
echo "$info" | grep -q "Title:          Rep two" || fail "title in the file: $info"
echo "$info" | grep -q "replication    1:         12 observations" || fail "12 records: $info"
"$oproc" correlogram waits.dat --max-lags 3 --out lags.txt >/dev/null && [ -f lags.txt ] || fail "own extension kept"

# Under "All" the file holds each replication's lags and its marker.
"$oproc" correlogram waits.dat --reps All --max-lags 4 --out all.cor >/dev/null || fail "All"
"$oproc" info all.cor | grep -q "Replications:   3" || fail "three replications saved: $("$oproc" info all.cor)"

check_message() {
    local expected=$1; shift
    out=$("$oproc" "$@" 2>err); status=$?
    [ $status -eq 1 ] || fail "$* should give status 1, got $status"
    [ -z "$out" ] || fail "$* printed a report"
    [ "$(head -1 err)" = "$expected" ] || fail "$*: expected '$expected', got '$(cat err)'"
}
check_message "Please enter an integer." correlogram waits.dat --max-lags -0
check_message "Please enter an integer between 0 and 9999." correlogram waits.dat --max-lags 10000
check_message "Maximum Lags must be greater than 0" correlogram waits.dat --max-lags 0
check_message "File not found" correlogram none.dat --max-lags 5
check_message "The input file does not contain enough replications to support the specified replication treatment number" \
    correlogram waits.dat --reps 4 --max-lags 5
check_message "Invalid output file specified.  Output file can't be the same as the input file." \
    correlogram waits.dat --max-lags 5 --out ./waits.dat
"$oproc" correlogram workload.dat --max-lags 5 2>err; [ $? -eq 1 ] || fail "time-persistent"
grep -q "You must first Batch/Truncate" err || fail "time-persistent message"

# A run that fails leaves no output file, and an existing one untouched.
echo "keep me" >kept.cor
"$oproc" correlogram meanwait.dat --reps Lumped --max-lags 3 --out kept.cor >/dev/null 2>err; [ $? -eq 1 ] || fail "too few points"
grep -q "does not contain enough data points" err || fail "15831 message: $(cat err)"
[ "$(cat kept.cor)" = "keep me" ] || fail "existing output overwritten by a failed run"
"$oproc" correlogram meanwait.dat --reps Lumped --max-lags 3 --out new.cor >/dev/null 2>&1
[ -e new.cor ] && fail "failed run left new.cor"
ls -A | grep -q '^\.' && fail "temporary files left behind: $(ls -A)"

# Without --max-lags, floor(10 log10 n) lags (R's acf), n from info's count of replication 2.
n=$("$oproc" info waits.dat | awk '/replication +2:/ {print $3}')
lags=$(awk -v n="$n" 'BEGIN {print int(10 * log(n) / log(10))}')
out=$("$oproc" correlogram waits.dat --reps 2 2>err) || fail "default lags: $(cat err)"
[ "$(echo "$out" | grep -cE '^ +[0-9]+ +[-0-9.e+]+ +[-0-9.e+]+$')" -eq "$lags" ] || fail "default lags: $lags for n = $n: $out"
echo "correlogram: all checks passed"
