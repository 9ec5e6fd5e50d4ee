#!/usr/bin/env bash
# Builds and runs the libFuzzer targets of tests/fuzz under ASan and UBSan.
#
# usage: tools/fuzz.sh build DIR              configure and build DIR with clang
#        tools/fuzz.sh run DIR SECONDS [NAME...] run each target (default all) for SECONDS
#
# The seeds are made afresh from the sample model by DIR's own oproc: the
# sample files in both precisions, a correlogram's .cor, a Batch/Truncate
# .flt and a data group. A target's corpus grows in DIR/fuzz-corpus/NAME
# between runs; a crash leaves its input in DIR/fuzz-crashes and fails the run.
set -u
cd "$(dirname "$0")/.."

usage() { echo "usage: $0 build DIR | run DIR SECONDS [NAME...]" >&2; exit 2; }
[ $# -ge 2 ] || usage
what=$1 dir=$2
shift 2

build() {
    local launcher=()
    command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
    cmake -S . -B "$dir" -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=RelWithDebInfo -DOPROC_FUZZ=ON \
        -DOPROC_TESTS=OFF -DOPROC_BENCH=OFF -DOPROC_GUI=OFF "${launcher[@]}" >/dev/null &&
        cmake --build "$dir" -j"$(nproc)"
}

seeds() {
    local pool=$1 oproc=$dir/oproc
    rm -rf "$pool"
    mkdir -p "$pool" || return 1
    # Small runs: the fuzzer mutates best from short inputs.
    "$oproc" sample "$pool/double" --reps 3 --horizon 40 >/dev/null &&
        "$oproc" --single-precision sample "$pool/single" --reps 2 --horizon 30 >/dev/null &&
        "$oproc" correlogram "$pool/double/waits.dat" --max-lags 3 --reps 1 --out "$pool/double/waits.cor" >/dev/null &&
        "$oproc" batch "$pool/double/waits.dat" --reps 1 --batch-size 5 --out "$pool/double/waits.flt" >/dev/null &&
        "$oproc" group new "$pool/double/samples.dgr" >/dev/null &&
        "$oproc" group add "$pool/double/samples.dgr" "$pool"/double/*.dat >/dev/null &&
        "$oproc" group new "$pool/double/empty.dgr" >/dev/null || return 1
}

run() {
    local seconds=$1
    shift
    local list=$dir/fuzz-targets.txt pool=$dir/fuzz-seeds
    [ -f "$list" ] || { echo "fuzz: no $list (run: $0 build $dir)" >&2; return 2; }
    seeds "$pool" || { echo "fuzz: could not make the seeds" >&2; return 1; }
    mkdir -p "$dir/fuzz-crashes"
    local status=0 name patterns
    while read -r name patterns; do
        if [ $# -gt 0 ] && [[ " $* " != *" $name "* ]]; then continue; fi
        local corpus=$dir/fuzz-corpus/$name
        mkdir -p "$corpus"
        local pattern file
        for pattern in $patterns; do
            while IFS= read -r file; do cp "$file" "$corpus/seed-$(basename "$(dirname "$file")")-$(basename "$file")"; done \
                < <(find "$pool" -name "$pattern" -type f)
        done
        echo "fuzz: $name for $seconds s"
        if ! ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
            "$dir/fuzz/fuzz$name" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 \
            -artifact_prefix="$dir/fuzz-crashes/$name-" "$corpus" >"$dir/fuzz-$name.log" 2>&1; then
            tail -n 60 "$dir/fuzz-$name.log"
            echo "fuzz: $name FAILED (inputs in $dir/fuzz-crashes, log $dir/fuzz-$name.log)"
            status=1
        else
            grep -E '^stat::number_of_executed_units|^Done' "$dir/fuzz-$name.log" | tr '\n' ' '
            echo
        fi
    done <"$list"
    return $status
}

case "$what" in
    build) build ;;
    run) [ $# -ge 1 ] || usage; run "$@" ;;
    *) usage ;;
esac
