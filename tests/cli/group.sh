#!/usr/bin/env bash
# Data groups from the command line: the .dgr bytes, the list lines, refusals
# with their messages on stderr and exit status 1, usage errors with 2.
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

# A data file written byte by byte: header, then 8-byte records; REPS
# replications of one observation each.
datafile() {  # datafile KINDNUMBER TYPE TITLE REPS
    printf '%s \r\n' "$1"
    printf 'Output file for:%-24.24s by:%-24.24s \r\n' "sample" "TEST WRITER"
    printf 'Data for:%s\r\n' "$3"
    printf 'Run date:%-10.10sND     %7d\r\n' "$2" 1
    printf 'File Version: \x07QUILLSTATFMT\r\n\x1a'
    local r
    for ((r = 1; r <= $4; r++)); do
        # one observation (1, 1), then the marker (-r, 0), the last one (-r, -1)
        perl -e 'print pack("d<d<d<d<", 1, 1, -$ARGV[0], $ARGV[0] == $ARGV[1] ? -1 : 0)' "$r" "$4"
    done
}
mkdir runs
datafile 203 Tally "Waits" 3 > runs/w.dat
datafile 201 DSTAT "" 12 > runs/q.dat

# A new group is the header and a count of zero.
"$OPROC" group new g >out 2>err
check "new: status" 0 $?
check "new: bytes" "4f504448 2e444752 01000000" "$(od -An -tx1 g.dgr | tr -d ' \n' | sed 's/.\{8\}/& /g;s/ $//')"
"$OPROC" group new g.dgr >out 2>err
check "new over an existing group: status" 1 $?
check "new over an existing group: message" "g.dgr already exists; give --force to replace it with an empty group." "$(cat err)"

# Adding: full paths, count width, no trailing separator without a title.
"$OPROC" group add g.dgr runs/w.dat runs/q.dat >out 2>err
check "add: status" 0 $?
check "add: list" "#1   $work/runs/w.dat, 3, Tally, Waits
#2   $work/runs/q.dat, 12, DSTAT" "$(cat out)"
"$OPROC" group add g.dgr runs/../runs/w.dat >out 2>err
check "add a file already there: status" 1 $?
check "add a file already there: message" "File already is in the data group." "$(head -1 err)"
"$OPROC" group add g.dgr runs/none.dat >out 2>err
check "add a missing file: status" 1 $?
check "add a missing file: message" "File not found" "$(head -1 err)"

# Listing refreshes a changed file's line.
datafile 203 Tally "Waits again" 2 > runs/w.dat
touch -d '2001-01-01 00:00:00' runs/w.dat
"$OPROC" group list g.dgr >out 2>err
check "list: status" 0 $?
check "list: refreshed" "#1   $work/runs/w.dat, 2, Tally, Waits again
#2   $work/runs/q.dat, 12, DSTAT" "$(cat out)"

# #N names the group's files in other commands; the shell's folder still counts.
mkdir elsewhere
(cd elsewhere && "$OPROC" info --group ../g.dgr '#2' >../out 2>../err)
check "#N: status" 0 $?
check "#N: file" "File:           $work/runs/q.dat" "$(head -1 out)"
"$OPROC" info --group g.dgr '#3' >out 2>err
check "#N past the end: status" 2 $?
"$OPROC" info '#1' >out 2>err
check "#N without a group: status" 2 $?

# An analysis reached through the group runs as with the path itself.
"$OPROC" correlogram runs/w.dat --reps Lumped --max-lags 1 >direct.out 2>direct.err
direct=$?
"$OPROC" correlogram --group g.dgr '#1' --reps Lumped --max-lags 1 >via.out 2>via.err
check "analysis via #N: status" $direct $?
check "analysis via #N: report" "$(sed "s|runs/w.dat|$work/runs/w.dat|" direct.out)" "$(cat via.out)"
check "analysis via #N: messages" "$(cat direct.err)" "$(cat via.err)"

# Removing by number, from the list the user saw.
"$OPROC" group remove g.dgr 3 >out 2>err
check "remove past the end: status" 2 $?
"$OPROC" group remove g.dgr 1 >out 2>err
check "remove: status" 0 $?
check "remove: list" "#1   $work/runs/q.dat, 12, DSTAT" "$(cat out)"

# Missing and damaged groups.
"$OPROC" group list nothere.dgr >out 2>err
check "missing group: status" 1 $?
check "missing group: message" "File not found" "$(head -1 err)"
printf 'OPDH.DGR\x01\x00\xff\xff\xff\xff\xff\x7f' > bad.dgr
"$OPROC" group list bad.dgr >out 2>err
check "huge count: status" 1 $?
check "huge count: message" "Unexpected file format." "$(head -1 err)"
head -c 3000 /dev/urandom > noise.dgr
"$OPROC" group add noise.dgr runs/q.dat >out 2>err
check "noise: status" 1 $?
check "noise: message" "Unexpected file format." "$(head -1 err)"
check "noise: file untouched" 3000 "$(stat -c %s noise.dgr)"

exit $fail
