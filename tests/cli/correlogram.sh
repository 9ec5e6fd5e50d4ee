#!/usr/bin/env bash
# oproc correlogram: report, the saved .cor file, field and dialog messages.
source "$(dirname "$0")/lib/common.sh"
oproc=$OPROC
fail() { echo "FAIL: $*" >&2; exit 1; }
"$oproc" sample . --reps 3 --seed 5 --horizon 300 >/dev/null || fail "sample"

out=$("$oproc" correlogram waits.dat --reps 2 --title "Rep two" --max-lags 12 --out lags 2>err) || fail "status: $(cat err)"
[ -s err ] && fail "stderr: $(cat err)"
echo "$out" | head -2 | grep -q "                          Correlogram Summary" || fail "title: $out"
echo "$out" | grep -q "                                      Rep two" || fail "user title: $out"
[ "$(echo "$out" | grep -cE '^ +[0-9]+ +[-0-9.e+]+ +[-0-9.e+]+$')" -eq 12 ] || fail "12 lag lines: $out"
echo "$out" | grep -q "     Lag   Covariance  Correlation" || fail "column heads: $out"
# The .cor file's bytes, and those under "All", are the document's tests.
[ -f lags.cor ] || fail ".cor added to a name without extension"

check_message() {
    local expected=$1; shift
    out=$("$oproc" "$@" 2>err); status=$?
    [ $status -eq 1 ] || fail "$* should give status 1, got $status"
    [ -z "$out" ] || fail "$* printed a report"
    [ "$(head -1 err)" = "$expected" ] || fail "$*: expected '$expected', got '$(cat err)'"
}
check_message "Please enter an integer." correlogram waits.dat --max-lags -0
check_message "Maximum Lags must be greater than 0" correlogram waits.dat --max-lags 0
# The file, output and kind checks in their order are the dialog's test.

# A run that fails leaves no output file (an earlier one kept: the document's test).
"$oproc" correlogram meanwait.dat --reps Lumped --max-lags 3 --out new.cor >/dev/null 2>err; [ $? -eq 1 ] || fail "too few points"
grep -q "does not contain enough data points" err || fail "15831 message: $(cat err)"
[ -e new.cor ] && fail "failed run left new.cor"

# Without --max-lags, floor(10 log10 n) lags (R's acf), n from info's count of replication 2.
n=$("$oproc" info waits.dat | awk '/replication +2:/ {print $3}')
lags=$(awk -v n="$n" 'BEGIN {print int(10 * log(n) / log(10))}')
out=$("$oproc" correlogram waits.dat --reps 2 2>err) || fail "default lags: $(cat err)"
[ "$(echo "$out" | grep -cE '^ +[0-9]+ +[-0-9.e+]+ +[-0-9.e+]+$')" -eq "$lags" ] || fail "default lags: $lags for n = $n: $out"
echo "correlogram: all checks passed"
