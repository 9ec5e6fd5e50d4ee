#!/usr/bin/env bash
# Pictures of the desktop program for the README and for review: makes the
# demo's sample data and data group, opens the group in oproc-gui under a
# virtual X server and saves PNG screenshots of the main window and its menus.
#   app/gui/screenshots.sh [OUT_DIR]     (default: screenshots)
# BUILD_DIR picks the build folder (default build). Installs xvfb when missing;
# without a way to install it, Qt's offscreen platform draws the same pictures.
set -euo pipefail
root="$(cd "$(dirname "$0")/../.." && pwd)"
build_dir="$root/${BUILD_DIR:-build}"
out="$(mkdir -p "${1:-screenshots}" && cd "${1:-screenshots}" && pwd)"

for program in oproc oproc-gui; do
    if [ ! -x "$build_dir/$program" ]; then
        echo "$build_dir/$program is missing: run ./build.sh gui first" >&2
        exit 1
    fi
done

if ! command -v xvfb-run >/dev/null; then
    sudo=""
    [ "$(id -u)" = 0 ] || sudo=sudo
    if [ -n "$sudo" ] && ! command -v sudo >/dev/null; then
        echo "xvfb is missing and cannot be installed here: using Qt's offscreen platform" >&2
    else
        echo "Installing xvfb ..." >&2
        $sudo apt-get update -qq
        DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq xvfb >/dev/null
    fi
fi

data="$(mktemp -d)"
trap 'rm -rf "$data"' EXIT
# The demo makes the sample files and samples.dgr, the group its analyses start from.
"$build_dir/oproc" demo "$data" >/dev/null

# A settings folder of its own, so the pictures never show the user's recent groups.
export XDG_CONFIG_HOME="$data/config"
if command -v xvfb-run >/dev/null; then
    QT_QPA_PLATFORM=xcb xvfb-run -a -s "-screen 0 1280x800x24" \
        "$build_dir/oproc-gui" --screenshot "$out" "$data/samples.dgr"
else
    QT_QPA_PLATFORM=offscreen "$build_dir/oproc-gui" --screenshot "$out" "$data/samples.dgr"
fi
ls "$out"/*.png
