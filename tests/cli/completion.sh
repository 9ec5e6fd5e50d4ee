#!/usr/bin/env bash
# The version the build gives, and the bash completion installed beside the
# program: commands, options, option values, and the files each argument takes.
set -u
oproc=$1
completion=$2/../app/cli/oproc.bash
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }
cd "$work" || fail "cd"

version=$("$oproc" --version) || fail "--version"
[[ $version =~ ^oproc\ [0-9]+\.[0-9]+(\+[0-9A-Za-z.-]+)?$ ]] || fail "--version: $version"
"$oproc" sample . --reps 2 --seed 3 --horizon 50 >/dev/null || fail "sample"
json=$("$oproc" info --format json waits.dat) || fail "info --format json"
[[ $json == *"\"version\": \"${version#oproc }\""* || $json == *"\"version\":\"${version#oproc }\""* ]] ||
    fail "JSON version differs from --version ($version): $json"

source "$completion" || fail "source $completion"
mkdir sub
touch runs.dgr waits.txt
# offers WORD...: what completing the last word offers, sorted, on one line.
offers() {
    COMP_WORDS=("$oproc" "$@")
    COMP_CWORD=$#
    COMPREPLY=()
    _oproc
    printf '%s\n' "${COMPREPLY[@]}" | sort | tr '\n' ' '
}
while IFS='|' read -r words want; do
    read -ra args <<<"$words"
    [[ $words == *' ' ]] && args+=("")
    got=$(offers "${args[@]}")
    [ "$got" = "$want" ] || fail "completing '$words': got '$got', want '$want'"
done <<'T'
inter|interval 
vart|vartest 
group |add list new remove 
interval --form|--format 
interval --format |csv json text 
-q interval --level 0.9 --format j|json 
group add |runs.dgr sub 
group add runs.dgr w|waits.dat waits.txt workload.dat 
interval --group |runs.dgr sub 
interval --svg s|served.dat sub 
T
exit 0
