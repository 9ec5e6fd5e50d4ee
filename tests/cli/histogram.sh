#!/usr/bin/env bash
# oproc histogram end to end: the report of hand-made observations and of a
# hand-made step series (time-weighted), defaults from the data, messages.
source "$(dirname "$0")/lib/common.sh"
records() {  # records FILE KIND TYPE TIME:VALUE...
    local file=$1 kind=$2 type=$3 r
    shift 3
    { header "$kind" "$type"; for r in "$@"; do printf "${d[${r%%:*}]}${d[${r##*:}]}"; done
      printf "${d[-1]}${d[-1]}"; } > "$file"
}
records obs.dat 203 Tally 1:1 2:2 3:3 4:4 5:5 6:6 7:7
records queue.dat 201 DSTAT 1:1 2:3 4:2 7:5
strip() { sed 's/ *$//'; }

# 1..7 in cells [1,3), [3,5), [5,7): two each, 7 at the last upper bound.
# Mean 4, sd sqrt(28/6) = 2.160; relative 2/7 = 0.2857, cumulative 4/7, 6/7.
expected='                            Histogram Summary

                          Data file : obs.dat
              Replication treatment : 1
             Number of observations :           7
                               Mean :           4
                 Standard deviation :        2.16
                            Minimum :           1
                            Maximum :           7
      Observations below first cell :           0
 Observations at or above last cell :           1

        LOWER        UPPER       COUNT    RELATIVE  CUMULATIVE
            1            3           2      0.2857      0.2857
            3            5           2      0.2857      0.5714
            5            7           2      0.2857      0.8571'
check "observations" "$expected" "$("$OPROC" histogram obs.dat --start 1 --width 2 --cells 3 | strip)"

# Values 1 for 1, 3 for 2, 2 for 3 (5 holds no time): total 6, mean 13/6,
# E[v^2] = 31/6, sd sqrt(17/36) = 0.6872. Defaults: quartiles of 1 2 3 5 are
# 1.75 and 3.5, 2 * 1.75 / 4^(1/3) = 2.2 made 2; cells from 0 to reach 5.
expected='                            Histogram Summary
                                   Queue test

                          Data file : queue.dat
              Replication treatment : 1
                         Total time :           6
                 Time-weighted mean :       2.167
   Time-weighted standard deviation :      0.6872
                            Minimum :           1
                            Maximum :           5
              Time below first cell :           0
         Time at or above last cell :           0

Time-weighted: each value counts for the time it holds, until the next change.

        LOWER        UPPER        TIME    RELATIVE  CUMULATIVE
            0            2           1      0.1667      0.1667
            2            4           5      0.8333           1
            4            6           0           0           1'
check "time-weighted" "$expected" "$("$OPROC" histogram queue.dat@1 --title "Queue test" --svg q.svg | strip)"
grep -q "Proportion of Time" q.svg || { echo "FAIL: time-weighted y title"; fail=1; }

message() {  # message EXPECTED ARGS...: status 1, no report, the text on stderr
    local expected=$1 out status
    shift
    out=$("$OPROC" "$@" 2>err); status=$?
    check "$* status" 1 "$status"
    check "$* report" "" "$out"
    # The text first; a second line may name what it concerns.
    check "$* message" "$expected" "$(head -n "$(printf '%s\n' "$expected" | wc -l)" err)"
}
message "Cell width must be greater than 0" histogram obs.dat --width 0
message "Invalid numeric field" histogram obs.dat --start one
message "Please enter an integer between 1 and 200." histogram obs.dat --cells 201
message "File not found" histogram none.dat
exit $fail
