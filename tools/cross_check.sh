#!/usr/bin/env bash
# Compiles every source file of the core library for Windows (mingw-w64) and,
# with the same flags, for clang: the core must build beyond Linux and glibc.
# Objects are thrown away; the exit status is non-zero when any file fails.
# usage: tools/cross_check.sh [-j N] [compiler ...]   (default: mingw-w64 g++ and clang++)
set -u
cd "$(dirname "$0")/.."

jobs=2
if [ "${1:-}" = "-j" ]; then jobs=$2; shift 2; fi
compilers=("$@")
[ ${#compilers[@]} -eq 0 ] && compilers=(x86_64-w64-mingw32-g++ clang++)

flags=(-std=c++20 -c -o /dev/null -Wall -Wextra -Werror -Isrc)
status=0
for cxx in "${compilers[@]}"; do
    if ! command -v "$cxx" >/dev/null; then
        echo "cross_check: $cxx not found" >&2
        status=1
        continue
    fi
    log=$(mktemp)
    find src -name '*.cpp' | sort |
        xargs -P "$jobs" -I{} sh -c '"$0" "$@" {} || echo "FAILED {}"' "$cxx" "${flags[@]}" >"$log" 2>&1
    failed=$(grep -c '^FAILED ' "$log")
    total=$(find src -name '*.cpp' | wc -l)
    if [ "$failed" -ne 0 ]; then
        cat "$log"
        echo "cross_check: $cxx: $failed of $total files failed"
        status=1
    else
        echo "cross_check: $cxx: all $total files compile"
    fi
    rm -f "$log"
done
exit $status
