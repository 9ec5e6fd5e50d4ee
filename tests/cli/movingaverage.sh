#!/usr/bin/env bash
# oproc movingaverage and oproc warmup end to end: a trailing average's
# report worked by hand, the saved series, messages.
source "$(dirname "$0")/lib/common.sh"
records() {  # records FILE KIND TYPE TIME:VALUE...
    local file=$1 kind=$2 type=$3 r
    shift 3
    { header "$kind" "$type"; for r in "$@"; do printf "${d[${r%%:*}]}${d[${r##*:}]}"; done
      printf "${d[-1]}${d[-1]}"; } > "$file"
}
records obs.dat 203 Tally 1:2 2:4 3:1 4:7 5:3 6:5 7:6
records queue.dat 201 DSTAT 1:1 2:3 4:2 7:5
strip() { sed 's/ *$//'; }

# y = 2 4 1 7 3 5 6, w = 2: M = 3 2.5 4 5 4 5.5; the next forecast 5.5; errors
# -2 4.5 -1 0 2: MAD 9.5/5 = 1.9, MSE 29.25/5 = 5.85, MAPE
# 100 (2/1 + 4.5/7 + 1/3 + 0/5 + 2/6) / 5 = 66.19. Seven observations make
# one batch of 5: too few for MSER-5.
expected='                            Moving Average Summary
                                     Forecast test

                                    Data file : obs.dat
                        Replication treatment : 1
                                       Window :           2
                                       Method : Trailing (forecasting)
                       Number of observations :           7
                              Smoothed values :           6
               Smoothed series stored in file : fc.dat

                                Next forecast :         5.5
                  One-step forecasts compared :           5
                      Mean absolute deviation :         1.9
                           Mean squared error :        5.85
               Mean absolute percentage error :       66.19

                   Suggested warm-up (MSER-5) : too few observations (10 needed)'
check "trailing" "$expected" "$("$OPROC" movingaverage obs.dat --window 2 --method trailing --title "Forecast test" \
    --out fc | strip)"
check "saved series" "  replication    1:          6 observations" "$("$OPROC" info fc.dat | grep "replication    1")"
check "saved kind" "Data kind:      3 (Tally)" "$("$OPROC" info fc.dat | grep "Data kind")"
check "warmup" "FILE                             REPS   OBSERVATIONS  WARM-UP (MSER-5)
obs.dat                          1                 7  too few observations" "$("$OPROC" warmup obs.dat)"

message() {  # message EXPECTED ARGS...: status 1, no report, the text on stderr
    local expected=$1 out status
    shift
    out=$("$OPROC" "$@" 2>err); status=$?
    check "$* status" 1 "$status"
    check "$* report" "" "$out"
    # A second line may name what the message concerns.
    check "$* message" "$expected" "$(head -n "$(printf '%s\n' "$expected" | wc -l)" err)"
}
message "The window must be smaller than the number of observations" movingaverage obs.dat --window 7
message "Please enter an integer between 1 and 999999." movingaverage obs.dat --window 0
message "File contains time-persistent data.
 You must first Batch/Truncate the data." movingaverage queue.dat --window 2
message "Invalid output file specified.  Output file can't be the same as the input file." \
    movingaverage obs.dat --window 2 --out ./obs.dat
exit $fail

