#!/usr/bin/env bash
# Opens a DIF file of one replication (oproc dif FILE) in LibreOffice and
# checks that the spreadsheet holds the records of that replication as the
# export text (oproc export FILE) gives them: the same count, each number
# equal to the digits the spreadsheet shows. Skipped without soffice.
#
# usage: tools/dif_check.sh FILE.dif FILE.dax
set -u
dif=$1 dax=$2
if ! command -v soffice >/dev/null; then
    echo "soffice not installed: $dif was not opened in a spreadsheet"
    exit 0
fi
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
soffice -env:UserInstallation="file://$work/office" --headless --convert-to csv --outdir "$work" "$dif" \
    >/dev/null 2>&1 || { echo "soffice could not convert $dif"; exit 1; }
python3 - "$work/$(basename "${dif%.*}").csv" "$dax" <<'PY'
import csv, sys
rows = list(csv.reader(open(sys.argv[1], newline="")))[1:]
want = []
for line in open(sys.argv[2]).read().splitlines()[4:]:
    t, v = (float(x) for x in line.split())
    if t <= -1.0:
        break
    want.append((t, v))
worst = 0.0
for got, (t, v) in zip(rows, want):
    for text, x in zip(got, (t, v)):
        # The spreadsheet writes what it shows: up to 15 significant digits.
        worst = max(worst, abs(float(text) - x) / max(abs(x), 1e-300))
ok = len(rows) == len(want) and worst < 1e-14
print(f"LibreOffice read {sys.argv[1].rsplit('/', 1)[-1]}: {len(rows)} rows for {len(want)} records, "
      f"largest relative difference {worst:.1e}: {'ok' if ok else 'FAILED'}")
sys.exit(0 if ok else 1)
PY
