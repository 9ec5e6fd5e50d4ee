#!/usr/bin/env bash
# Builds and runs the libFuzzer targets of tests/fuzz under ASan and UBSan.
#
# usage: tools/fuzz.sh build DIR                 configure DIR with clang and build the targets
#        tools/fuzz.sh run DIR SECONDS [NAME...] run each target (default all) for SECONDS
#
# The build compiles the core once, with warnings as errors, and the targets;
# nothing else. The seeds are made afresh from the sample model by an oproc
# built elsewhere (OPROC, default build/oproc; DIR's own is built when there
# is none): the sample files in both precisions, a correlogram's .cor, a
# Batch/Truncate .flt, a data group, export text and load text. A target's
# corpus grows in DIR/fuzz-corpus/NAME between runs; a crash, leak or hang
# leaves its input in DIR/fuzz-crashes and fails the run; such inputs, once
# mended, go into tests/fuzz/regressions/NAME, which every run starts from. FUZZ_JOBS targets
# run at once (default: the processors, at most 2).
set -u
cd "$(dirname "$0")/.."

usage() { echo "usage: $0 build DIR | run DIR SECONDS [NAME...]" >&2; exit 2; }
[ $# -ge 2 ] || usage
what=$1 dir=$2
shift 2
list=$dir/fuzz-targets.txt

build() {
    local launcher=()
    command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
    cmake -S . -B "$dir" -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=RelWithDebInfo -DOPROC_FUZZ=ON \
        -DOPROC_WERROR=ON -DOPROC_TESTS=OFF -DOPROC_BENCH=OFF -DOPROC_GUI=OFF "${launcher[@]}" >/dev/null || return 1
    local targets=()
    mapfile -t targets < <(awk '{ print "fuzz" $1 }' "$list")
    cmake --build "$dir" -j"$(nproc)" --target "${targets[@]}"
}

seeds() {
    local pool=$1 oproc=${OPROC:-build/oproc}
    if [ ! -x "$oproc" ]; then
        cmake --build "$dir" -j"$(nproc)" --target oproc || return 1
        oproc=$dir/oproc
    fi
    rm -rf "$pool"
    mkdir -p "$pool/double" "$pool/single" "$pool/numbers" || return 1
    # Small runs: the fuzzer mutates best from short inputs.
    "$oproc" sample "$pool/double" --reps 3 --horizon 40 >/dev/null &&
        "$oproc" --single-precision sample "$pool/single" --reps 2 --horizon 30 >/dev/null &&
        "$oproc" correlogram "$pool/double/waits.dat" --max-lags 3 --reps 1 --out "$pool/double/waits.cor" >/dev/null &&
        "$oproc" batch "$pool/double/waits.dat" --reps 1 --batch-size 5 --out "$pool/double/waits.flt" >/dev/null &&
        "$oproc" group new "$pool/double/samples.dgr" >/dev/null &&
        "$oproc" group add "$pool/double/samples.dgr" "$pool"/double/*.dat >/dev/null &&
        "$oproc" group new "$pool/double/empty.dgr" >/dev/null || return 1
    local file
    for file in "$pool"/double/*.dat "$pool"/single/*.dat "$pool"/double/*.flt; do
        "$oproc" export "$file" --out "${file%.*}-${file##*.}.dax" >/dev/null || return 1
    done
    # Load text: the exported records without markers, a blank line or "end"
    # between replications, a comment, and the other separators.
    for file in "$pool"/double/*.dax "$pool"/single/*.dax; do
        awk 'NR == 1 { print "# time value" }
             NR > 4 && $1 >= 0 { sep = NR % 3 == 0 ? ", " : NR % 3 == 1 ? "\t" : " ; "; print $1 sep $2 }
             NR > 4 && $1 < 0 && $2 != -2 { print (NR % 2 ? "" : "end") }' "$file" >"${file%.dax}.txt"
    done
    # Numbers: the forms the text formats write and read.
    local n=0 text
    for text in 0 -0 1.5 -2.25e-300 4.9e-324 1.7976931348623157e308 3.4028235e38 1e-45 inf -Infinity nan -nan \
        'nan(0x8000000000001)' '-nan(0xfffffffffffff)' 0x1p3 .5 5. 1e+5; do
        printf '%s' "$text" >"$pool/numbers/$((n += 1)).num"
    done
}

run_one() {
    local name=$1 seconds=$2 patterns=$3 pool=$4
    local corpus=$dir/fuzz-corpus/$name pattern file
    mkdir -p "$corpus"
    # Inputs that once failed stay in every run.
    [ -d "tests/fuzz/regressions/$name" ] && cp tests/fuzz/regressions/"$name"/* "$corpus"/
    for pattern in $patterns; do
        while IFS= read -r file; do cp "$file" "$corpus/seed-$(basename "$(dirname "$file")")-$(basename "$file")"; done \
            < <(find "$pool" -name "$pattern" -type f)
    done
    local log=$dir/fuzz-$name.log
    if ! ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
        "$dir/fuzz/fuzz$name" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 \
        -artifact_prefix="$dir/fuzz-crashes/$name-" "$corpus" >"$log" 2>&1; then
        tail -n 60 "$log"
        echo "fuzz: $name FAILED (inputs in $dir/fuzz-crashes, log $log)"
        return 1
    fi
    local runs cov
    runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
    cov=$(grep -Eo 'cov: [0-9]+ ft: [0-9]+ corp: [0-9]+/[0-9]+[a-zA-Z]*' "$log" | tail -n 1)
    echo "fuzz: $name: $runs runs in $seconds s, $cov"
}

run() {
    local seconds=$1
    shift
    local pool=$dir/fuzz-seeds
    [ -f "$list" ] || { echo "fuzz: no $list (run: $0 build $dir)" >&2; return 2; }
    seeds "$pool" || { echo "fuzz: could not make the seeds" >&2; return 1; }
    mkdir -p "$dir/fuzz-crashes"
    local jobs=${FUZZ_JOBS:-$(nproc)}
    ((jobs > 2)) && jobs=2
    local status=0 name patterns running=0
    while read -r name patterns; do
        if [ $# -gt 0 ] && [[ " $* " != *" $name "* ]]; then continue; fi
        if ((running >= jobs)); then
            wait -n || status=1
            ((running -= 1))
        fi
        echo "fuzz: $name for $seconds s"
        run_one "$name" "$seconds" "$patterns" "$pool" &
        ((running += 1))
    done <"$list"
    while ((running > 0)); do
        wait -n || status=1
        ((running -= 1))
    done
    return $status
}

case "$what" in
    build) build ;;
    run) [ $# -ge 1 ] || usage; run "$@" ;;
    *) usage ;;
esac
