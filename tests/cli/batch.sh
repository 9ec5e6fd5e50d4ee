#!/usr/bin/env bash
# oproc batch: reports on stdout, messages on stderr with exit status 1, usage
# errors with 2, and no output file left behind by a failed run.
set -u
oproc=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1
fail=0
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
"$oproc" info batched.flt >info.txt
check "output is a Filtered data file" grep -q "Data kind:      5 (Filtered)" info.txt
cp out.txt first.txt

for unit in obs O o observations; do
    run batch waits.dat --batch-type "$unit" --batch-size 40 --trunc 100 --out batched
    check "unit text '$unit' means observations" cmp -s out.txt first.txt
done

run batch waits.dat --batch-type Observation --batch-size 40 --trunc 100 --out kept.txt
check "an output name with an extension is kept" test -f kept.txt -a ! -e kept.txt.flt

expect_message() { # description, message, args...
    local what=$1 message=$2
    shift 2
    rm -f new.flt
    echo "an earlier result" >old.flt
    run "$@"
    check "$what: exit 1" test "$status" = 1
    check "$what: message once on stderr" test "$(grep -cxF "$message" err.txt)" = 1
    check "$what: no report" test ! -s out.txt
    check "$what: no new output file" test ! -e new.flt
    check "$what: existing file untouched" test "$(cat old.flt)" = "an earlier result"
}
expect_message "missing file" "File not found" batch nofile.dat --out new
expect_message "number out of range" "Please enter a number between 0 and 999999." \
    batch waits.dat --batch-size 1000000 --batch-type O --out new
expect_message "too few replications" \
    "The input file does not contain enough replications to support the specified replication treatment number" \
    batch waits.dat --reps 6 --out new
expect_message "output is the source" \
    "Invalid output file specified.  Output file can't be the same as the input file." \
    batch waits.dat --out ./waits.dat
expect_message "lumped replications restart at time 0" "Lumped data not allowed" \
    batch waits.dat --reps Lumped --batch-type O --batch-size 10 --out new
expect_message "computation fails into an existing file" "Lumped data not allowed" \
    batch waits.dat --reps Lumped --batch-type O --batch-size 10 --out old.flt
expect_message "truncation past the data" "No observations found" \
    batch waits.dat --trunc 999999 --batch-type O --batch-size 10 --out new

run batch waits.dat --bogus
check "unknown option is a usage error" test "$status" = 2
run batch
check "missing file argument is a usage error" test "$status" = 2

leftover=$(ls -A | grep -v -E '^(waits|queue|workload|served|meanwait)\.dat$|^(batched\.flt|kept\.txt|old\.flt|out\.txt|err\.txt|info\.txt|first\.txt)$')
check "no temporary files left" test -z "$leftover"

exit $fail
