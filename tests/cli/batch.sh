#!/usr/bin/env bash
# oproc batch: reports on stdout, messages on stderr with exit status 1, usage
# errors with 2, and no output file left behind by a failed run.
source "$(dirname "$0")/lib/common.sh"
oproc=$OPROC
check() { # description, condition...
    local what=$1
    shift
    if "$@"; then echo "ok   $what"; else echo "FAIL $what"; fail=1; fi
}
run() { # runs oproc, keeping stdout, stderr and the exit status
    "$oproc" "$@" >out.txt 2>err.txt
    status=$?
}

"$oproc" sample data >/dev/null || { echo "FAIL sample data"; exit 1; }
cd data || exit 1

run batch waits.dat --batch-type Observation --batch-size 40 --trunc 100 --out batched
check "success exits 0" test "$status" = 0
check "summary on stdout" grep -q "Batch/Truncate Summary" out.txt
check "no message on stderr, only the replication note" test "$(grep -vc '^note: ' err.txt)" = 0
check ".flt added to an output name without extension" test -f batched.flt
check "named in the summary" grep -q "stored in file : batched.flt" out.txt
cp out.txt first.txt

for unit in obs O o observations; do
    run batch waits.dat --batch-type "$unit" --batch-size 40 --trunc 100 --out batched
    check "unit text '$unit' means observations" cmp -s out.txt first.txt
done

expect_message() { # description, message, args...
    local what=$1 message=$2
    shift 2
    rm -f new.flt
    run "$@"
    check "$what: exit 1" test "$status" = 1
    check "$what: message once on stderr" test "$(grep -cxF "$message" err.txt)" = 1
    check "$what: no report" test ! -s out.txt
    check "$what: no new output file" test ! -e new.flt
}
# The dialog's checks are its own test; that a failure keeps an earlier output
# file is the document's.
expect_message "lumped replications restart at time 0" "Lumped data not allowed" \
    batch waits.dat --reps Lumped --batch-type O --batch-size 10 --out new
expect_message "truncation past the data" "No observations found" \
    batch waits.dat --trunc 999999 --batch-type O --batch-size 10 --out new

run batch waits.dat --bogus
check "unknown option is a usage error" test "$status" = 2
run batch
check "missing file argument is a usage error" test "$status" = 2

leftover=$(ls -A | grep -v -E '^(waits|queue|workload|served|meanwait)\.dat$|^(batched\.flt|out\.txt|err\.txt|first\.txt)$')
check "no temporary files left" test -z "$leftover"

exit $fail
