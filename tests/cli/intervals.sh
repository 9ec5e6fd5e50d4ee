#!/usr/bin/env bash
# The interval commands end to end: reports on stdout, messages on stderr
# exactly once with exit status 1, usage errors with 2.
source "$(dirname "$0")/lib/common.sh"
{ header 203 Tally; printf "${d[1]}${d[1]}${d[2]}${d[2]}${d[3]}${d[3]}${d[4]}${d[4]}${d[5]}${d[5]}${d[-1]}${d[-1]}"; } > small.dat
{ header 203 Tally; printf "${d[1]}${d[4]}${d[-1]}${d[-1]}"; } > one.dat
{ header 203 Tally; printf "${d[-1]}${d[-1]}"; } > empty.dat

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

# Failures: the message once on stderr, nothing on stdout, status 1. Which
# check fails for which entry is the dialog's and the documents' test.
failing "too few for a batch" "No observations stored in data file." stdinterval one.dat
failing "no observations" "No observations stored in data file." interval small.dat empty.dat one.dat

"$OPROC" interval --no-such-option small.dat > /dev/null 2>&1
check "usage error" 2 "$?"

exit $fail
