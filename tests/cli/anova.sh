#!/usr/bin/env bash
# The one-way analysis of variance end to end: the report of a hand-computed
# set, Welch's test, the method choice, and every message once on stderr.
source "$(dirname "$0")/lib/common.sh"
tally() {  # tally FILE KIND TYPE VALUE...
    local file=$1 kind=$2 type=$3
    shift 3
    { header "$kind" "$type"; for v in "$@"; do printf "${d[$v]}${d[$v]}"; done; printf "${d[-1]}${d[-1]}"; } > "$file"
}
tally a.dat 203 Tally 1 2 3
tally b.dat 203 Tally 4 5 6 7
tally c.dat 203 Tally 2 4
tally one.dat 203 Tally 1
tally two.dat 203 Tally 2
tally five.dat 203 Tally 5 5
tally seven.dat 203 Tally 7 7 7
tally level.dat 201 DSTAT 1 4

# Means 2, 5.5, 3 (grand mean 34/9); SSB = 203/9, SSW = 2 + 5 + 2 = 9 on 2 and
# 6 df; F = 203/27; F(0.05; 2, 6) = 3 (0.05^(-1/3) - 1) = 5.143 and
# p = (1 + 2F/6)^-3 = 0.0232 (closed forms for 2 numerator df). MSW = 1.5:
# se = sqrt(1.5 (1/n_i + 1/n_j)). Tukey q(0.05; 3, 6) = 4.34 (table);
# Scheffe sqrt(2 F(0.05; 2, 6)) = 3.207; Bonferroni t(0.05/6; 6) = 3.287.
expected='                             One-Way ANOVA Summary

  # IDENTIFIER            NUMBER     AVERAGE    STANDARD
                         OF OBS.               DEVIATION
  1 a.dat                      3           2           1
  2 b.dat                      4         5.5       1.291
  3 c.dat                      2           3       1.414

SOURCE             DF      SUM OF        MEAN           F
                          SQUARES      SQUARE
Between             2       22.56       11.28       7.519
Within              6           9         1.5
Total               8       31.56

                                  F :       7.519
           Critical F at 0.05 level :       5.143
                            P-value :      0.0232
         REJECT H0 => MEANS ARE NOT ALL EQUAL AT  0.05 LEVEL

TUKEY-KRAMER 0.950 SIMULTANEOUS INTERVALS ON DIFFERENCES OF MEANS
        Studentized range q (table) :        4.34
   PAIR    DIFFERENCE       LOWER       UPPER
  1 -  2         -3.5      -6.371     -0.6294  *
  1 -  3           -1      -4.431       2.431
  2 -  3          2.5      -0.755       5.755
   * INTERVAL EXCLUDES 0: THE MEANS DIFFER AT  0.05 LEVEL

SCHEFFE 0.950 SIMULTANEOUS INTERVALS ON DIFFERENCES OF MEANS
                    sqrt((k - 1) F) :       3.207
   PAIR    DIFFERENCE       LOWER       UPPER
  1 -  2         -3.5        -6.5     -0.4999  *
  1 -  3           -1      -4.586       2.586
  2 -  3          2.5     -0.9018       5.902
   * INTERVAL EXCLUDES 0: THE MEANS DIFFER AT  0.05 LEVEL

BONFERRONI 0.950 SIMULTANEOUS INTERVALS ON DIFFERENCES OF MEANS
                       t at 0.00833 :       3.287
   PAIR    DIFFERENCE       LOWER       UPPER
  1 -  2         -3.5      -6.575     -0.4249  *
  1 -  3           -1      -4.675       2.675
  2 -  3          2.5     -0.9869       5.987
   * INTERVAL EXCLUDES 0: THE MEANS DIFFER AT  0.05 LEVEL'
check "anova" "$expected" "$("$OPROC" anova a.dat b.dat c.dat)"
check "anova at 95 percent" "$expected" "$("$OPROC" anova --level 95 a.dat b.dat c.dat)"

# Welch: weights n/s^2 = 3, 12/5, 1; F* = 203904/30617 on 2 and 16384/6041 df,
# used as 2: F(0.05; 2, 2) = 19, p = 1/(1 + F*). Games-Howell: s^2/n = 1/3,
# 5/12, 1; pair df 243/49 -> 4, 32/19 and 867/457 -> 1; q(0.05; 3, 4) = 5.04,
# q(0.05; 3, 1) = 27 from the table.
expected_welch='                             One-Way ANOVA Summary
                                          Hand set

  # IDENTIFIER            NUMBER     AVERAGE    STANDARD
                         OF OBS.               DEVIATION
  1 a.dat                      3           2           1
  2 b.dat                      4         5.5       1.291
  3 c.dat                      2           3       1.414

SOURCE             DF      SUM OF        MEAN
                          SQUARES      SQUARE
Between             2       22.56       11.28
Within              6           9         1.5
Total               8       31.56

WELCH'"'"'S TEST FOR UNEQUAL VARIANCES
                       Numerator DF :           2
                     Denominator DF :       2.712
                Denominator DF used :           2
                                  F :        6.66
           Critical F at 0.05 level :          19
                            P-value :      0.1306
         FAIL TO REJECT H0 => MEANS ARE EQUAL AT  0.05 LEVEL

GAMES-HOWELL 0.950 SIMULTANEOUS INTERVALS ON DIFFERENCES OF MEANS
   PAIR    DIFFERENCE       LOWER       UPPER      DF           Q
  1 -  2         -3.5      -6.586     -0.4136       4        5.04   *
  1 -  3           -1      -23.05       21.05       1          27
  2 -  3          2.5      -20.22       25.22       1          27
   * INTERVAL EXCLUDES 0: THE MEANS DIFFER AT  0.05 LEVEL'
check "anova --unequal-variances" "$expected_welch" \
    "$("$OPROC" anova --unequal-variances --title "Hand set" a.dat b.dat c.dat)"

check "one method" 1 "$("$OPROC" anova --method scheffe a.dat b.dat c.dat | grep -c SIMULTANEOUS)"
check "a computed q is marked" 1 \
    "$("$OPROC" anova --level 0.975 --method tukey a.dat b.dat c.dat | grep -c 'Studentized range q (computed)')"

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
failing "one file" "An analysis of variance needs at least two files" anova a.dat
failing "missing file" "File not found" anova a.dat missing.dat
failing "time-persistent" "You must first Batch/Truncate the data." anova a.dat level.dat
failing "level" "Confidence level value must be >= 0 and <= 100" anova --level 101 a.dat b.dat
failing "level of 100" "Confidence level value must be >= 0 and <= 100" anova --level 100 a.dat b.dat
failing "no error df" "there must be more observations than files" anova one.dat two.dat
failing "constant files" "The observations within each file are all equal." anova five.dat seven.dat
failing "Welch, one observation" "at least two observations" anova --unequal-variances a.dat one.dat
failing "Welch, constant file" "cannot be compared with unequal variances" anova --unequal-variances a.dat five.dat

for args in "--method bogus a.dat b.dat" "--method tukey --unequal-variances a.dat b.dat"; do
    "$OPROC" anova $args > /dev/null 2>&1
    check "usage error: $args" 2 "$?"
done

exit $fail
