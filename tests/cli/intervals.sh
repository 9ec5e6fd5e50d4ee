#!/usr/bin/env bash
# The interval commands end to end: reports on stdout, messages on stderr
# exactly once with exit status 1, usage errors with 2.
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

# A Tally data file written byte by byte: header, then 8-byte records.
header() {  # header KINDNUMBER TYPE
    printf '%s \r\n' "$1"
    printf 'Output file for:%-24.24s by:%-24.24s \r\n' "sample" "TEST WRITER"
    printf 'Data for:%s\r\n' "hand made"
    printf 'Run date:%-10.10sND     %7d\r\n' "$2" 1
    printf 'File Version: \x07QUILLSTATFMT\r\n\x1a'
}
d1='\x00\x00\x00\x00\x00\x00\xf0\x3f'
d2='\x00\x00\x00\x00\x00\x00\x00\x40'
d3='\x00\x00\x00\x00\x00\x00\x08\x40'
d4='\x00\x00\x00\x00\x00\x00\x10\x40'
d5='\x00\x00\x00\x00\x00\x00\x14\x40'
dm1='\x00\x00\x00\x00\x00\x00\xf0\xbf'
{ header 203 Tally; printf "$d1$d1$d2$d2$d3$d3$d4$d4$d5$d5$dm1$dm1"; } > small.dat
{ header 203 Tally; printf "$d1$d4$dm1$dm1"; } > one.dat
{ header 201 DSTAT; printf "$d1$d4$dm1$dm1"; } > level.dat
{ header 203 Tally; printf "$dm1$dm1"; } > empty.dat

# 1..5: mean 3, s = 1.581, t(4, 0.025) = 2.776 from the t table, hw = 1.963.
expected_mean='                  Classical C.I. Intervals Summary

IDENTIFIER              AVERAGE   STANDARD   0.950 C.I.    MINIMUM    MAXIMUM  NUMBER
                                 DEVIATION   HALF-WIDTH      VALUE      VALUE  OF OBS.
small.dat                     3       1.58         1.96          1          5       5'
check "interval" "$expected_mean" "$("$OPROC" interval small.dat)"
check "interval as a percentage" "$expected_mean" "$("$OPROC" interval --level 95 small.dat)"

# Chi-square table points for 4 df: 11.143 and 0.4844.
expected_sd='              Standard Deviation Intervals Summary
                                          Two runs

IDENTIFIER         EST.STANDARD   LOWER 0.950   UPPER 0.950      RANGE    NUMBER
                      DEVIATION     C.I.LIMIT     C.I.LIMIT     OF OBS    OF OBS
small.dat              1.58         0.947          4.54          4         5'
check "sdinterval" "$expected_sd" "$("$OPROC" sdinterval --title "Two runs" small.dat@Lumped)"

# Batches (1, 2) and (3, 4): A = 0.5, B = 2, V = 1.25, d = 3, hw = 3.182 * 1.118 / sqrt(3).
expected_std='        Standardized Time Series Intervals Summary

IDENTIFIER              AVERAGE   SQRT(A/N)  0.950 C.I.    MINIMUM    MAXIMUM  NUMBER
                                             HALF-WIDTH      VALUE      VALUE  OF OBS.
small.dat                   2.5       1.12         2.05          1          4       4'
check "stdinterval" "$expected_std" "$("$OPROC" stdinterval --scale small.dat@1)"

# Failures: the message once on stderr, nothing on stdout, status 1.
failing() {  # failing WHAT MESSAGE ARGS...
    local what=$1 message=$2
    shift 2
    out=$("$OPROC" "$@" 2>err.txt)
    status=$?
    check "$what: status" 1 "$status"
    check "$what: stdout" "" "$out"
    check "$what: message" 1 "$(grep -c -F "$message" err.txt)"
}
failing "missing file" "File not found" sdinterval small.dat missing.dat
failing "level" "Confidence level value must be >= 0 and <= 100" stdinterval --level 101 small.dat
failing "treatment" "Invalid replication treatment" interval small.dat@0
failing "replication beyond the file" "Invalid replication treatment" interval small.dat@2
failing "time-persistent" "You must first Batch/Truncate the data." interval level.dat
failing "too few for a batch" "No observations stored in data file." stdinterval one.dat
failing "no observations" "No observations stored in data file." interval small.dat empty.dat one.dat

"$OPROC" interval --no-such-option small.dat > /dev/null 2>&1
check "usage error" 2 "$?"

exit $fail
