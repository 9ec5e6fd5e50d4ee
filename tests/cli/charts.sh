#!/usr/bin/env bash
# The charts of the comparisons and the correlogram: --svg (--png, --pdf)
# writes the graph pane beside the report; without them nothing is drawn.
set -u
oproc=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }

"$oproc" sample "$work" --reps 3 --seed 5 --horizon 200 >/dev/null || fail "sample"
cd "$work"

"$oproc" compare waits.dat@1 waits.dat@2 --svg means.svg --size 640x400 >report.txt || fail "compare status"
grep -q "Paired-T Means Comparison" report.txt || fail "compare report"
grep -q 'width="640" height="400"' means.svg || fail "compare size"
grep -q '>Paired-t Comparison of Means</text>' means.svg || fail "compare chart title"
grep -q '>95% CL</text>' means.svg || fail "compare legend"

"$oproc" vartest waits.dat@1 waits.dat@2 --level 0.9 --svg var.svg >/dev/null || fail "vartest status"
grep -q '>Comparison of Variances</text>' var.svg || fail "vartest chart title"
grep -q '>90% CL</text>' var.svg || fail "vartest legend"

"$oproc" correlogram waits.dat --max-lags 20 --svg corr.svg >/dev/null || fail "correlogram status"
grep -q '>Lag Number</text>' corr.svg || fail "correlogram x title"
grep -q '<title>Correlogram - ' corr.svg || fail "correlogram caption"
grep -q 'fill="#0000ff"' corr.svg || fail "positive bars"

# PNG and PDF beside the SVG: PNG at twice the pixels of --size by default.
"$oproc" correlogram waits.dat --max-lags 20 --png corr.png --pdf corr.pdf --size 320x200 >/dev/null 2>err
status=$?
if grep -q "built without cairo" err; then
    echo "cairo not in this build: PNG and PDF not checked"
else
    [ $status -eq 0 ] || fail "PNG and PDF status $status: $(cat err)"
    [ "$(head -c 8 corr.png | od -An -tx1 | tr -d ' \n')" = 89504e470d0a1a0a ] || fail "PNG signature"
    [ "$(od -An -tu1 -j16 -N8 corr.png | tr -s ' ')" = " 0 0 2 128 0 0 1 144" ] || fail "PNG of 640x400 pixels"
    [ "$(head -c 5 corr.pdf)" = "%PDF-" ] || fail "PDF signature"
    if command -v pdftoppm >/dev/null; then
        pdftoppm -png -r 72 corr.pdf page >/dev/null 2>&1 && [ -s page-1.png ] || fail "pdftoppm renders the PDF"
        rm -f page-1.png
    fi
    rm -f corr.png corr.pdf
fi

"$oproc" compare waits.dat@1 waits.dat@2 >/dev/null || fail "compare without --svg"
[ "$(ls *.svg | wc -l)" -eq 3 ] || fail "only the asked-for files are written"
"$oproc" correlogram waits.dat --max-lags 20 --svg x.svg --size 10x10 >/dev/null 2>&1
[ $? -eq 2 ] || fail "a size below 16 is a usage error"
ls -A | grep -q '^\.' && fail "temporary files left behind"
exit 0
