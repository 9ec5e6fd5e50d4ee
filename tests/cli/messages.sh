#!/usr/bin/env bash
# What the command line says when it cannot do what was asked: one row per
# case with the exit status and stderr's first and second lines. A message of
# the system is its exact text, then what it concerns; a usage error is
# CLI11's message with status 2.
set -u
OPROC=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1
"$OPROC" sample . --reps 3 --horizon 200 >/dev/null || { echo "FAIL: sample data"; exit 1; }
"$OPROC" group new g.dgr >/dev/null || { echo "FAIL: group new"; exit 1; }
fail=0

row() {  # row STATUS FIRST SECOND ARGS...
    local status=$1 first=$2 second=$3
    shift 3
    "$OPROC" "$@" >out.txt 2>err.txt
    local got=$?
    if [ "$got" != "$status" ] || [ "$(sed -n 1p err.txt)" != "$first" ] || [ "$(sed -n 2p err.txt)" != "$second" ]; then
        echo "FAIL: oproc $*"
        echo "  expected $status, '$first', '$second'"
        echo "  got      $got, '$(sed -n 1p err.txt)', '$(sed -n 2p err.txt)'"
        fail=1
    fi
}

help="Run with --help for more information."
note="note: waits.dat has 3 replications; replication 1 is read"
# Usage errors.
row 2 "oproc: unknown command 'frobnicate'" "Run with --help for the list of commands." frobnicate waits.dat
row 2 "A subcommand is required" "$help"
row 2 "FILE is required" "$help" interval
row 2 "--level: Failed parsing abc as a FLOAT" "$help" interval --level abc waits.dat@1
row 2 "--max-lags: Failed parsing ten as a INT" "$help" correlogram waits.dat --max-lags ten
row 2 "--trunc: Failed parsing 1x as a FLOAT" "$help" batch waits.dat --trunc 1x
row 2 "waits.dat@x: REPS after @ must be a replication number, All or Lumped" "" interval waits.dat@x
row 2 "--reps: 'x' is not a replication number, All or Lumped" "$help" batch waits.dat --reps x
row 2 "--batch-type: 'Weeks' is neither Time nor Observation" "$help" batch waits.dat --batch-type Weeks
# Messages of the system, and what they concern.
row 1 "File not found" "file none.dat" interval waits.dat@1 none.dat
row 1 "Confidence level value must be >= 0 and <= 100" "option --level" compare --level 101 waits.dat@1 waits.dat@2
row 1 "Invalid replication treatment" "waits.dat has 3 replications" interval waits.dat@9
row 1 "The input file does not contain enough replications to support the specified replication treatment number" \
    "waits.dat has 3 replications" correlogram waits.dat --reps 4 --max-lags 5
row 1 "Please enter an integer between 0 and 9999." "option --max-lags" correlogram waits.dat --reps 1 --max-lags 10000
row 1 "Please enter a number between 0 and 999999." "option --batch-size" \
    batch waits.dat --reps 1 --batch-type O --batch-size 1000000
row 1 "Invalid output file specified.  Output file can't be the same as the input file." "option --out" \
    batch waits.dat --reps 1 --out ./waits.dat
row 1 "File not found" "file $work/none.dat" group add g.dgr waits.dat none.dat queue.dat
# Notes leave the status alone; global options go before or after the command.
row 0 "$note (choose with waits.dat@N, waits.dat@All or waits.dat@Lumped)" "" interval waits.dat
row 0 "$note (choose with --reps N, --reps All or --reps Lumped)" "" correlogram waits.dat --max-lags 3
row 0 "" "" interval waits.dat --quiet
row 0 "" "" --quiet interval waits.dat
row 0 "" "" sample single --reps 1 --horizon 50 --single-precision

# group add added the files it could.
[ "$("$OPROC" group list g.dgr | wc -l)" -eq 2 ] || { echo "FAIL: group add keeps the files it could add"; fail=1; }
"$OPROC" info single/waits.dat | grep -q "4-byte floats" || { echo "FAIL: --single-precision after the command"; fail=1; }
[ $fail -eq 0 ] && echo "messages: all checks passed"
exit $fail
