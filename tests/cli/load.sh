#!/usr/bin/env bash
# oproc load: separators, comments, replications, the header fields given,
# and the lines that are refused (by number, with nothing written).
set -u
oproc=$1
here=$2/cli
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }
cd "$work" || fail "cd"

# Two replications in every separator the format takes; the second closed by
# "end", blank lines and comments around them. Expected bytes from the layout.
printf '# arrivals\r\n0 1.5\r\n1\t2.5   # tab\n2, 3.5\n3 ;4.5\n\n\n5;-0\nEND\n\n# done\n' >two.txt
python3 "$here/mkdata.py" want.dat 3 1 1 "0:1.5,1:2.5,2:3.5,3:4.5|5:-0" || fail mkdata
# mkdata names the file ID3 / "Kind 3 records"; load is told the same.
"$oproc" load two.txt --out got --ident ID3 --title "Kind 3 records" --double >out 2>err || fail "load: $(cat err)"
cmp -s got.dat want.dat || fail "loaded bytes differ: $(cmp got.dat want.dat)"
cat >want <<'T'
                           Load ASCII Summary

                        Source File : two.txt                                 
                   Destination File : got.dat                                 
                          Data Kind : Tally                                   
                          Precision : Double                                  
                         Lines Read :          11
                       Replications :           2
                       Observations :           5
T
diff want out >/dev/null || fail "summary: $(diff want out)"

# Kind, single precision, standard input; defaults name the file.
python3 "$here/mkdata.py" want1.dat 1 0 1 "0:1.5,1:2.5,2:3.5,3:4.5|5:-0" || fail mkdata
"$oproc" load - --out got1.dat --kind 1 --ident ID1 --title "Kind 1 records" --single <two.txt >/dev/null || fail "stdin"
cmp -s got1.dat want1.dat || fail "kind 1 single from stdin differs"
"$oproc" load two.txt >/dev/null || fail "defaults"
"$oproc" info two.dat | grep -q "Title:          two.txt" || fail "default title: $("$oproc" info two.dat)"

check_refused() {
    local expected=$1 text=$2; shift 2
    printf '%s' "$text" >bad.txt
    out=$("$oproc" load bad.txt --out bad.dat "$@" 2>err); status=$?
    [ $status -eq 1 ] || fail "status $status for: $text"
    [ "$(cat err)" = "$expected" ] || fail "expected '$expected', got '$(cat err)'"
    [ -e bad.dat ] && fail "refused text left bad.dat"
    ls -A | grep -q '^\.' && fail "temporary files left: $(ls -A)"
}
check_refused "Line 3 has a decimal comma.
Write numbers with a decimal point." $'0 1.5\n1 2.5\n2 3,5\n'
check_refused "Line 2 has a decimal comma.
Write numbers with a decimal point." $'0;1.5\n1,5;2,5\n'
check_refused "Line 2 is not a time and a value." $'0 1.5\n1\n'
check_refused "Line 1 is not a time and a value." $'0 1.5 7\n'
check_refused "Line 1 is not a time and a value." $'0,,1\n'
check_refused "Line 4 has a negative time.
Times must be 0 or more." $'# c\n0 1\n\n-1 2\n'
check_refused "The text file holds no observations." $'# nothing\n\nend\n'
check_refused "Data kind must be a whole number from 1 to 7." $'0 1\n' --kind 8
"$oproc" load none.txt 2>err; [ $? -eq 1 ] && grep -qx "File not found" err || fail "missing file"
echo "load: all checks passed"
