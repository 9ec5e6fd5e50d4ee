#!/usr/bin/env bash
# oproc export and import: byte-for-byte round trips, the export header, the
# summaries, standard input and output, and damaged text.
set -u
oproc=$1
here=$2/cli
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }
cd "$work" || fail "cd"
mk() { python3 "$here/mkdata.py" "$@" || fail "mkdata $*"; }

# Every sample file, in both precisions.
"$oproc" sample d >/dev/null || fail "sample"
"$oproc" --single-precision sample s >/dev/null || fail "sample single"
# Files made here: the extremes of both precisions, NaNs with sign and
# payload, skip markers, and batch output without an end marker.
mkdir x
mk x/double.dat 3 1 1 "0:nan,0.1:-nan,1:inf,2:-inf,3:-0,4:max,5:-max,6:tiny,7:minnorm,8:0.30000000000000004|9:-1,-1:-2,10:1e300|11:12"
mk x/payload.dat 4 1 0 "0:0x7ff0000000000001,1:0xfff8000000000abc,2:0x7ffc000000000000,3:0x8000000000000000"
mk x/single.dat 1 0 1 "0:nan,0.1:-nan,1:inf,2:-inf,3:-0,4:max,5:-max,6:tiny,7:minnorm,8:0.3|9:-1"
mk x/filtered.dat 5 1 0 "0:1.5,1:2.5|2:3.5,3:4.5"
for f in d/*.dat s/*.dat x/*.dat; do
    prec=--double
    case $f in s/*|x/single.dat) prec=--single ;; esac
    "$oproc" export "$f" --out "$f.dax" >/dev/null 2>err || fail "export $f: $(cat err)"
    "$oproc" import "$f.dax" --out "$f.back" $prec >/dev/null 2>err || fail "import $f: $(cat err)"
    cmp -s "$f" "$f.back" || fail "$f does not come back byte for byte"
done

# The export header, from its layout: number, type right-aligned in 10, the
# reinitialisation flag at column 22, a blank field; counts; identifier; title.
printf '   203        Tally   Y        \n     1        3       14\nID3\nKind 3 records\n' >want
head -4 x/double.dat.dax | cmp -s - want || fail "export header: $(head -4 x/double.dat.dax | od -c | head)"
grep -qx -- "-0 -0\|3 -0" x/double.dat.dax || fail "negative zero: $(cat x/double.dat.dax)"
grep -qx -- "1 inf" x/double.dat.dax || fail "infinity"
grep -qx -- "0 nan(0x1)" x/payload.dat.dax || fail "NaN payload: $(cat x/payload.dat.dax)"
[ "$(tail -1 x/double.dat.dax)" = "-3 -1" ] || fail "end marker line"

# An old export number (1xx) reads as the same kind.
sed '1s/^   203/   103/' x/double.dat.dax >old.dax
"$oproc" import old.dax --out old.dat --double >/dev/null || fail "103 header"
cmp -s old.dat x/double.dat || fail "103 gives another file"
# Blanks after the identifier and the title are not kept by a data file.
sed -e '2s/.*/     1        6       16/' -e '3s/$/   /' -e '4s/$/  /' x/double.dat.dax >blanks.dax
"$oproc" import blanks.dax --out blanks.dat --double >/dev/null || fail "trailing blanks"
cmp -s blanks.dat x/double.dat || fail "trailing blanks of identifier and title are kept"

# The summaries.
cat >want <<'T'
                               Export Summary

                        Source File : x/filtered.dat                          
                   Destination File : f.dax                                   
                       Replications :           2
                       Observations :           4
                            Records :           5
T
"$oproc" export x/filtered.dat --out f >out 2>err || fail "export f: $(cat err)"
diff want out >/dev/null || fail "export summary: $(diff want out)"
cat >want <<'T'
                               Import Summary

                        Source File : f.dax                                   
                   Destination File : f.dat                                   
                          Data Kind : Filtered                                
                          Precision : Single                                  
                       Replications :           2
                       Observations :           4
                            Records :           5
T
"$oproc" import f.dax --single >out 2>err || fail "import f: $(cat err)"
diff want out >/dev/null || fail "import summary: $(diff want out)"

# Standard output and input.
"$oproc" export x/double.dat --out - >piped.dax 2>err || fail "export to -"
cmp -s piped.dax x/double.dat.dax || fail "export to - differs"
grep -q "Export Summary" err || fail "summary on stderr when the text goes to stdout"
"$oproc" import - --out piped.dat --double <piped.dax >/dev/null || fail "import from -"
cmp -s piped.dat x/double.dat || fail "import from - differs"

# Damaged text: the message names the line and nothing is written.
check_damaged() {
    local expected=$1 text=$2
    printf '%s' "$text" >bad.dax
    out=$("$oproc" import bad.dax --out bad.dat 2>err); status=$?
    [ $status -eq 1 ] || fail "damaged text gave status $status: $text"
    [ "$(cat err)" = "$expected" ] || fail "expected '$expected', got '$(cat err)'"
    [ -e bad.dat ] && fail "damaged text left bad.dat"
    ls -A | grep -q '^\.' && fail "temporary files left: $(ls -A)"
}
good=$(cat x/filtered.dat.dax)
hdr=$(head -4 x/filtered.dat.dax)
check_damaged "Line 6 is not a time and a value." "$hdr
0 1.5
1 2,5
$(tail -3 x/filtered.dat.dax)
"
check_damaged "Line 7 is not a time and a value." "$hdr
0 1.5
1 2.5
-1"
check_damaged "The export file ends early, at line 9.
It may have been cut short." "$good"
check_damaged "The export file ends early, at line 7.
It may have been cut short." "$(head -7 x/double.dat.dax)
"
check_damaged "Line 1 of the export file header is invalid." "   250        Tally   Y
$(tail -n +2 x/filtered.dat.dax)
"
check_damaged "Line 1 of the export file header is invalid." "   150        Tally   Y
$(tail -n +2 x/filtered.dat.dax)
"
check_damaged "Line 2 of the export file header is invalid." "$(head -1 x/filtered.dat.dax)
     1   many
"
check_damaged "Line 4 of the export file header is invalid." "$(head -3 x/filtered.dat.dax)
"

echo "kept" >kept.dat
"$oproc" import bad.dax --out kept.dat >/dev/null 2>&1
[ "$(cat kept.dat)" = kept ] || fail "a failed import replaced an existing file"
"$oproc" export nothere.dat 2>err; [ $? -eq 1 ] && grep -qx "File not found" err || fail "missing file"
echo "export: all checks passed"
