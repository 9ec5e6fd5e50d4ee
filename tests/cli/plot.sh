#!/usr/bin/env bash
# oproc plot: the SVG it writes, its messages and exit statuses.
set -u
oproc=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }

"$oproc" sample "$work" --reps 2 --seed 3 --horizon 100 >/dev/null || fail "sample"
cd "$work"

"$oproc" plot waits.dat >/dev/null 2>&1; [ $? -eq 2 ] || fail "--svg is required (usage error)"
"$oproc" plot waits.dat --svg a.svg --size 80 >/dev/null 2>&1; [ $? -eq 2 ] || fail "bad --size is a usage error"
[ -e a.svg ] && fail "no file after a usage error"

"$oproc" plot waits.dat@1 "queue.dat@All" --title "Two files" --svg p.svg --size 640x480 || fail "plot status"
grep -q 'width="640" height="480"' p.svg || fail "size of the SVG"
grep -q '>Two files</text>' p.svg || fail "graph title"
grep -q '>Plot Legend ~ Filename (Replication Treatment)</text>' p.svg || fail "legend title"
grep -q '>queue.dat (all)</text>' p.svg || fail "legend entry"
grep -q '<title>Plot - waits.dat</title>' p.svg || fail "caption"

# Validation messages: exact text on stderr, status 1, no file.
check() {
    local expect=$1; shift
    "$oproc" plot "$@" --svg bad.svg >/dev/null 2>err; local status=$?
    [ $status -eq 1 ] || fail "$* should give status 1, got $status"
    [ "$(head -n "$(printf '%s\n' "$expect" | wc -l)" err)" = "$expect" ] || fail "$*: message was '$(cat err)'"
    [ -e bad.svg ] && fail "$*: no file after a message"
    return 0
}
check "File not found" none.dat
check "Ending value must be larger than beginning value" waits.dat --from 5 --to 5
check "Ending time must be greater than beginning time" waits.dat --min 5 --max 5
check "$(printf 'Invalid beginning time.\nMust be non-negative numeric quantity.')" waits.dat --from -1
check "Invalid replication treatment" waits.dat@7
ls -A | grep -q '^\.' && fail "temporary files left behind"
exit 0
