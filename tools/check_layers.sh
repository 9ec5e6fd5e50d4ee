#!/usr/bin/env bash
# Fails when a file under src/ includes from a folder above its own, or when
# the includes between files form a cycle. Folders from the bottom up:
layers=(platform framework datafile dialog report convert graph stats series group)
# usage: tools/check_layers.sh [SRC_DIR]
set -u
src=${1:-$(dirname "$0")/../src}
cd "$src" || exit 2

declare -A rank
for i in "${!layers[@]}"; do rank[${layers[$i]}]=$i; done

status=0
edges=$(mktemp)
trap 'rm -f "$edges"' EXIT
while IFS= read -r file; do
    folder=${file%%/*}
    if [[ -z ${rank[$folder]+x} ]]; then
        echo "unknown layer: $file (folder $folder is not in the list)"
        status=1
        continue
    fi
    while IFS= read -r inc; do
        target=${inc%%/*}
        echo "$file $inc" >> "$edges"
        [[ $inc == */* ]] || continue
        if [[ -z ${rank[$target]+x} ]]; then
            echo "unknown layer: $file includes \"$inc\""
            status=1
        elif (( rank[$target] > rank[$folder] )); then
            echo "upward include: $file ($folder) includes \"$inc\" ($target)"
            status=1
        fi
    done < <(sed -n 's/^[[:space:]]*#[[:space:]]*include[[:space:]]*"\([^"]*\)".*/\1/p' "$file")
done < <(find . -name '*.h' -o -name '*.cpp' | sed 's#^\./##' | sort)

# Cycles among headers (a .cpp is included by nobody): tsort names them.
if ! cycles=$(awk '{ print $2, $1 }' "$edges" | tsort 2>&1 >/dev/null); then :; fi
if [[ -n $cycles ]]; then
    echo "$cycles" | sed -e 's/^tsort: -: input contains a loop:/include cycle:/' -e 's/^tsort: /  /'
    status=1
fi
exit $status
