#!/usr/bin/env bash
# The conversions of data files: export and import (byte-for-byte round
# trips, the export header, the summaries, standard input and output, damaged
# text), append (the reinitialisation rules, numbering, precision, a refusal
# leaves the destination as it was) and DIF.
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

# Append. Each case: the destination's reinitialisation flag and records,
# the treatment, and the destination read back (by mkdata's own reader) or
# the message it is refused with. The source holds floats: they are widened
# to the destination's doubles. The observation of value -1 is data, not the
# end marker.
mk src.dat 3 0 0 "0:0.5|1:1.5,2:2.5|3:3.5"
while IFS=';' read -r reinit records reps expected; do
    mk dest.dat 3 1 "$reinit" "$records"
    cp dest.dat before.dat
    out=$("$oproc" append src.dat dest.dat --reps "$reps" 2>err); status=$?
    case $expected in
    [0-9]*)
        [ $status -eq 0 ] || fail "append --reps $reps: $(cat err)"
        got=$(mk --read dest.dat)
        [ "$got" = "$expected" ] || fail "append --reps $reps: expected '$expected', read '$got'"
        # The header is kept, byte for byte.
        cmp -s -n 150 dest.dat before.dat || fail "append --reps $reps changed the header" ;;
    *)
        [ $status -eq 1 ] && [ "$(tr '\n' ' ' <err)" = "$expected " ] || fail "append --reps $reps: $status '$(cat err)'"
        cmp -s dest.dat before.dat || fail "a refused append changed the destination" ;;
    esac
    ls -A | grep -q '^\.' && fail "temporary files left: $(ls -A)"
done <<'T'
1;0:1,1:-1|2:3;All;3 Y D 0:1,1:-1|2:3|0:0.5|1:1.5,2:2.5|3:3.5
1;0:1|2:3;2;3 Y D 0:1|2:3|1:1.5,2:2.5
0;0:1|2:3;Lumped;3 N D 0:1|2:3|0:0.5,1:1.5,2:2.5,3:3.5
1;0:1|2:3;Lumped;Reinitialized systems requires a non-lumped treatment for the APPEND option file dest.dat
0;0:1|2:3;All;Non-reinitialized systems requires lumped treatment for APPEND option file dest.dat
0;0:1|2:3;4;The input file does not contain enough replications to support the specified replication treatment number src.dat has 3 replications
T
mk dest.dat 1 1 1 "0:1"
cp dest.dat before.dat
"$oproc" append src.dat dest.dat 2>err; [ $? -eq 1 ] && grep -qx "Files don't contain the same type of data" err \
    || fail "append across kinds: $(cat err)"
cmp -s dest.dat before.dat || fail "append across kinds changed the destination"
mk dest.dat 3 1 1 "0:1"
chmod 444 dest.dat
"$oproc" append src.dat dest.dat 2>err; [ $? -eq 1 ] && grep -q "Write-protected" err || fail "write-protected: $(cat err)"
chmod 644 dest.dat
cmp -s src.dat <(mk /dev/stdout 3 0 0 "0:0.5|1:1.5,2:2.5|3:3.5") || fail "append changed its source"
# The summary: 2 + 3 replications; 4 observations and 3 markers appended.
mk dest.dat 3 1 1 "0:1|2:3"
cat >want <<'T'
                               Append Summary

                        Source File : src.dat                                 
                   Destination File : dest.dat                                
                Replications Before :           2
                 Replications After :           5
                   Records Appended :           7
T
"$oproc" append src.dat dest >out 2>err || fail "append: $(cat err)"
diff want out >/dev/null || fail "append summary: $(diff want out)"
# The same for scripts, once more onto the five.
"$oproc" append src.dat dest.dat --format json >out 2>err || fail "append json: $(cat err)"
python3 -c 'import json, sys
d = json.load(open("out"))
assert d["parameters"] == {"source": "src.dat", "destination": "dest.dat", "reps": "All"}, d
r = d["results"]
assert (r["replications_before"], r["replications_after"], r["records_appended"]) == (5, 8, 7), r' || fail "append json"

# DIF: each treatment's table, read back by mkdata's DIF reader, which also
# checks the header's counts; then by a spreadsheet, when one is installed.
mk dif.dat 3 1 1 "0:1.5,1.25:-2.5,2:1000000|3:0.1"
mk odd.dat 3 0 1 "0:nan,1:inf,2:-inf,3:0.1"
while IFS=';' read -r arg expected; do
    "$oproc" dif "$arg" --out got.dif >/dev/null 2>err || fail "dif $arg: $(cat err)"
    got=$(mk --dif got.dif 2>&1)
    [ "$got" = "$expected" ] || fail "dif $arg: expected '$expected', read '$got'"
done <<'T'
dif.dat@All;Observation,Replication 1,Replication 2;1,1.5,0.1;2,-2.5,;3,1000000,
dif.dat@2;Time,Value;3,0.1
dif.dat@Lumped;Time,Value;0,1.5;1.25,-2.5;2,1000000;3,0.1
odd.dat;Time,Value;0,NA;1,ERROR;2,ERROR;3,0.1
T
"$oproc" dif dif.dat@All --title 'Say "hi"' --out - >piped.dif 2>err || fail "dif to -"
grep -q "DIF File Summary" err || fail "summary on stderr when the DIF goes to stdout"
[ "$(sed -n 3p piped.dif)" = $'"Say ""hi"""\r' ] || fail "title: $(sed -n 3p piped.dif)"
if command -v soffice >/dev/null; then
    "$oproc" dif dif.dat@All --out sheet.dif >/dev/null || fail "dif for the spreadsheet"
    soffice -env:UserInstallation="file://$work/office" --headless --convert-to csv --outdir csv sheet.dif >/dev/null 2>&1 || fail "soffice"
    got=$(mk --csv csv/sheet.csv)
    [ "$got" = "Observation,Replication 1,Replication 2;1,1.5,0.1;2,-2.5,;3,1000000," ] || fail "soffice read '$got'"
else
    echo "soffice not installed: the DIF file was not opened in a spreadsheet"
fi
echo "export: all checks passed"
