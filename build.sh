#!/usr/bin/env bash
# Sets up a fresh Debian machine, builds, and runs the demo or the tests.
#   ./build.sh demo [DIR]   build, then make sample data and run every analysis
#   ./build.sh test         build, then run the whole test suite
#   ./build.sh build        build only
#   ./build.sh gui [GROUP]  build, then start the desktop program (oproc-gui)
# BUILD_DIR picks the build folder (default build), BUILD_TYPE the CMake build
# type (default RelWithDebInfo); OPROC_SANITIZE=1 builds with AddressSanitizer
# and UndefinedBehaviorSanitizer. Warnings are errors here.
set -euo pipefail
cd "$(dirname "$0")"

need=()
command -v cmake >/dev/null || need+=(cmake)
command -v g++ >/dev/null || need+=(g++)
command -v make >/dev/null || need+=(make)
[ -f /usr/include/CLI/CLI.hpp ] || need+=(libcli11-dev)
[ -d /usr/include/gtest ] || need+=(libgtest-dev)
[ -d /usr/include/benchmark ] || need+=(libbenchmark-dev)
# The tests of the JSON results read them with Python.
command -v python3 >/dev/null || need+=(python3)
# PNG and PDF graphs (cairo, found through pkg-config), set in the face their
# layout measures (Liberation Sans); the tests render the PDFs with pdftoppm.
command -v pkg-config >/dev/null || need+=(pkg-config)
[ -f /usr/include/cairo/cairo.h ] || need+=(libcairo2-dev)
[ -d /usr/share/fonts/truetype/liberation ] || need+=(fonts-liberation)
if [ "${1:-}" = test ]; then
    command -v pdftoppm >/dev/null || need+=(poppler-utils)
fi
# The desktop program and its tests need Qt 6 (OPROC_GUI=0 skips them).
if [ "${1:-}" = gui ] || { [ "${1:-}" = test ] && [ "${OPROC_GUI:-1}" = 1 ]; }; then
    dpkg -s qt6-base-dev >/dev/null 2>&1 || need+=(qt6-base-dev)
    [ -d /usr/share/fonts/truetype/liberation ] || need+=(fonts-liberation)
fi
if ((${#need[@]})); then
    sudo=""
    [ "$(id -u)" = 0 ] || sudo=sudo
    echo "Installing ${need[*]} ..." >&2
    $sudo apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq "${need[@]}" >/dev/null
fi

build_dir=${BUILD_DIR:-build}
flags=(-DCMAKE_BUILD_TYPE="${BUILD_TYPE:-RelWithDebInfo}" -DOPROC_WERROR=ON)
if [ "${OPROC_SANITIZE:-0}" = 1 ]; then
    flags+=(-DOPROC_SANITIZE=ON -DOPROC_BENCH=OFF)
fi
cmake -S . -B "$build_dir" "${flags[@]}" >/dev/null
cmake --build "$build_dir" -j"$(nproc)"

what=${1:-build}
[ $# -gt 0 ] && shift
case "$what" in
    demo) exec "$build_dir/oproc" demo "$@" ;;
    gui) exec "$build_dir/oproc-gui" "$@" ;;
    test) exec ctest --test-dir "$build_dir" --output-on-failure -j"$(nproc)" ;;
    build) ;;
    *) echo "usage: ./build.sh demo [DIR] | test | build | gui [GROUP]" >&2; exit 2 ;;
esac
