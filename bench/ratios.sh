#!/usr/bin/env bash
# Whole-program timings of every analysis on a large data file, each as the
# median of several runs and as a ratio to a plain 1 MiB block read of the
# same file(s) measured in the same run, with the peak resident memory.
#
# usage: bench/ratios.sh FILE [FILE2] [-n RUNS]
#   FILE2 is the second file of compare, vartest and anova (default FILE again).
#   OPROC names the binary (default build/oproc beside this script).
# The files must hold 8-byte records (the block read assumes them).
set -u
here=$(cd "$(dirname "$0")" && pwd)
runs=5
files=()
while [ $# -gt 0 ]; do
    case "$1" in
        -n) runs=$2; shift 2 ;;
        *) files+=("$1"); shift ;;
    esac
done
[ ${#files[@]} -ge 1 ] || { echo "usage: $0 FILE [FILE2] [-n RUNS]" >&2; exit 2; }
file=$(realpath "${files[0]}")
file2=$(realpath "${files[1]:-${files[0]}}")
oproc=$(realpath "${OPROC:-$here/../build/oproc}")
[ -x "$oproc" ] || { echo "no oproc at $oproc (set OPROC)" >&2; exit 2; }

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cc -O2 -o "$work/blockread" "$here/blockread.c" || exit 1

# Batch sizes for 100 batches of the first replication: a tenth of the
# observations' count, and of the time span that ten batches by time take.
n=$("$oproc" info "$file" | sed -n 's/^Observations: *//p')
[ -n "$n" ] || { echo "cannot read $file" >&2; exit 1; }
obsBatch=$(awk -v n="$n" 'BEGIN { b = int(n / 100); print (b > 999999 ? 999999 : (b < 1 ? 1 : b)) }')
tenth=$("$oproc" batch "$file" --batch-type T | sed -n 's/.*Time Spanned Per Batch : *//p')
timeBatch=$(awk -v s="$tenth" 'BEGIN { b = s / 10; printf "%.6g", (b > 999999 ? 999999 : b) }')

cat "$file" "$file2" >/dev/null  # page cache warm

# run NAME COMMAND...: median wall time and median processor time (user +
# system) in seconds, the peak resident memory in MB (what /usr/bin/time -v
# reports as its maximum resident set size) and the exit status. On a shared
# machine the processor time is the steadier figure.
declare -A wall cpu memory status
order=()
run() {
    local name=$1; shift
    local out w c m r
    out=$(python3 - "$runs" "$@" <<'PY'
import os, statistics, sys, tempfile, time
runs = int(sys.argv[1])
# /usr/bin/time reports the memory: a child forked from this script would
# count the script's own pages until it runs the command.
memfile = tempfile.mktemp()
cmd = ["/usr/bin/time", "-f", "%M", "-o", memfile] + sys.argv[2:]
walls, cpus, rss, rc = [], [], 0, 0
for _ in range(runs):
    start = time.perf_counter()
    pid = os.fork()
    if pid == 0:
        null = os.open(os.devnull, os.O_WRONLY)
        os.dup2(null, 1)
        os.dup2(null, 2)
        os.execvp(cmd[0], cmd)
    _, st, ru = os.wait4(pid, 0)
    walls.append(time.perf_counter() - start)
    cpus.append(ru.ru_utime + ru.ru_stime)
    rss = max(rss, int(open(memfile).read().split()[-1]))
    rc = os.waitstatus_to_exitcode(st)
os.remove(memfile)
print("%.3f %.3f %.1f %d" % (statistics.median(walls), statistics.median(cpus), rss / 1024, rc))
PY
)
    read -r w c m r <<<"$out"
    wall[$name]=$w
    cpu[$name]=$c
    memory[$name]=$m
    status[$name]=$r
    order+=("$name")
}

run "block read" "$work/blockread" "$file"
run "block read, two files" "$work/blockread" "$file" "$file2"
run "interval" "$oproc" interval "$file"
run "sdinterval" "$oproc" sdinterval "$file"
run "stdinterval" "$oproc" stdinterval "$file"
run "batch by observations" "$oproc" batch "$file" --batch-type O --batch-size "$obsBatch"
run "batch by time" "$oproc" batch "$file" --batch-type T --batch-size "$timeBatch"
run "batch, ten batches" "$oproc" batch "$file" --batch-type O
run "compare (paired)" "$oproc" compare "$file" "$file2"
run "compare (two-sample)" "$oproc" compare --method two-sample "$file" "$file2"
run "vartest" "$oproc" vartest "$file" "$file2"
run "anova (two files)" "$oproc" anova "$file" "$file2"
run "correlogram 1000 lags" "$oproc" correlogram "$file" --max-lags 1000
run "correlogram 9999 lags" "$oproc" correlogram "$file" --max-lags 9999
run "plot to SVG" "$oproc" plot "$file" --svg "$work/plot.svg"
# The histogram reads once with its cells given and twice when the data
# choose them (the quartiles of the width rule first).
run "histogram, 100 cells given" "$oproc" histogram "$file" --start 0 --width 1 --cells 100
run "histogram, default cells" "$oproc" histogram "$file"
run "moving average, w = 100" "$oproc" movingaverage "$file" --window 100
run "warmup (MSER-5)" "$oproc" warmup "$file"
if python3 -c 'import numpy, scipy' 2>/dev/null; then
    for what in interval batch correlogram; do
        run "numpy/scipy $what" python3 "$here/numpy_ref.py" "$what" "$file"
    done
    numpy="numpy and scipy present"
else
    numpy="numpy/scipy not importable here: no script comparison"
fi

echo "$(basename "$file"): $n observations, $(stat -c %s "$file") bytes; medians of $runs runs"
echo "machine: $(nproc) CPUs, $(sed -n 's/^model name\s*: //p' /proc/cpuinfo | head -1); $numpy"
echo "load:$(uptime | sed 's/.*load average//')"
echo
printf '| %-26s | %7s | %6s | %7s | %6s | %7s | %s |\n' "work" "wall s" "ratio" "cpu s" "ratio" "peak MB" "exit"
echo "|----------------------------|---------|--------|---------|--------|---------|------|"
ratio() { awk -v a="$1" -v b="$2" 'BEGIN { printf "%.2f", (b > 0 ? a / b : 0) }'; }
for name in "${order[@]}"; do
    ref="block read"
    case "$name" in compare*|vartest|anova*|*two\ files) ref="block read, two files" ;; esac
    printf '| %-26s | %7s | %6s | %7s | %6s | %7s | %4s |\n' "$name" "${wall[$name]}" \
        "$(ratio "${wall[$name]}" "${wall[$ref]}")" "${cpu[$name]}" "$(ratio "${cpu[$name]}" "${cpu[$ref]}")" \
        "${memory[$name]}" "${status[$name]}"
done
